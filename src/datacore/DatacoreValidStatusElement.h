#pragma once

#include "datacore/DatacoreValidStatusMessage.h"
#include "datacore/DatacoreStatusElement.h"

/// Why a node is invalid; no reason means that it is valid.
class DatacoreValidStatusElement
    : public DatacoreStatusElement<DatacoreValidStatusElement, DatacoreValidStatusMessage> {
public:
    static constexpr QLatin1String kKey{"reasonsForBeingInvalid", 22};

    using DatacoreStatusElement::DatacoreStatusElement;

    bool isValid() const { return reasons().empty(); }
    /// Also copies the reasons out.
    bool isValid(std::list<DatacoreValidStatusMessage>& out) const
    {
        out = reasons();
        return reasons().empty();
    }
    void setValid(const std::list<DatacoreValidStatusMessage>& reasons) { setReasons(reasons); }
    const std::list<DatacoreValidStatusMessage>& getReasonsForBeingInvalid() const { return reasons(); }
    QJsonArray getReasonsForBeingInvalidAsJSONArray() const { return asJsonArray(); }
};
