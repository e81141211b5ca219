#pragma once

#include "datacore/nodes/DatacoreNumber.h"

/// A number that has to lie within limits, both included.
template<typename T>
class DatacoreNumberLimits : public DatacoreNumber<T> {
public:
    DatacoreNumberLimits(QString instanceName, DatacoreBase* parent, T initial, T minimum, T maximum);
    DatacoreNumberLimits(QString className, QString instanceName, DatacoreBase* parent, T initial, T minimum,
                         T maximum);

    T getMinimum() const { return m_minimum; }
    T getMaximum() const { return m_maximum; }

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override;

private:
    T m_minimum;
    T m_maximum;
};
