#pragma once

#include "datacore/DatacoreBase.h"

/// A boolean, or a list of them, as "true" and "false".
class DatacoreBool : public DatacoreBase {
public:
    DatacoreBool(QString instanceName, DatacoreBase* parent, bool initial);
    DatacoreBool(QString className, QString instanceName, DatacoreBase* parent, bool initial);
    DatacoreBool(QString instanceName, DatacoreBase* parent);
    DatacoreBool(QString className, QString instanceName, DatacoreBase* parent);
    DatacoreBool(QString instanceName, DatacoreBase* parent, const std::deque<bool>& initial);

    /// Whether the first item is "true".
    bool getDataBool() const;
    std::deque<bool> getDataBoolArray() const;
    void setDataBool(bool value);
    void setDataBoolArray(const std::deque<bool>& values);

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override;
};
