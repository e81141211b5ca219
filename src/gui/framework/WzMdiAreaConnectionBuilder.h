#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class WzMdiArea;

/// Connects the instrument area with its elements.
class WzMdiAreaConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectMdiAreaToDatacores(WzMdiArea* area) const;

private:
    DatacoreLink m_screenSwipingSupported;
    DatacoreLink m_executeCommand;
};
