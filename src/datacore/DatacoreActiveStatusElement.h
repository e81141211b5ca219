#pragma once

#include "datacore/DatacoreActiveStatusMessage.h"
#include "datacore/DatacoreStatusElement.h"

/// Why a node is inactive; no reason means that it is active.
class DatacoreActiveStatusElement
    : public DatacoreStatusElement<DatacoreActiveStatusElement, DatacoreActiveStatusMessage> {
public:
    static constexpr QLatin1String kKey{"reasonsForBeingInactive", 23};

    using DatacoreStatusElement::DatacoreStatusElement;

    bool isActive() const { return reasons().empty(); }
    /// Also copies the reasons out.
    bool isActive(std::list<DatacoreActiveStatusMessage>& out) const
    {
        out = reasons();
        return reasons().empty();
    }
    void setActive(const std::list<DatacoreActiveStatusMessage>& reasons) { setReasons(reasons); }
    const std::list<DatacoreActiveStatusMessage>& getReasonsForBeingInactive() const { return reasons(); }
    QJsonArray getReasonsForBeingInactiveAsJSONArray() const { return asJsonArray(); }
};
