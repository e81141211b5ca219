#pragma once

/// What a node's elements call to report that they have changed.
class DatacoreElementPrivateInterface {
public:
    virtual ~DatacoreElementPrivateInterface() = default;

    virtual void notifyElementChangedFromJson() = 0;
    virtual void notifyElementChangedFromDirect() = 0;
};
