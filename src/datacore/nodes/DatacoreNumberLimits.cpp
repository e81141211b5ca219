#include "datacore/nodes/DatacoreNumberLimits.h"

#include "datacore/ItemCodec.h"

template<typename T>
DatacoreNumberLimits<T>::DatacoreNumberLimits(QString instanceName, DatacoreBase* parent, T initial,
                                              T minimum, T maximum)
    : DatacoreNumberLimits(QString(), instanceName, parent, initial, minimum, maximum)
{
}

template<typename T>
DatacoreNumberLimits<T>::DatacoreNumberLimits(QString className, QString instanceName, DatacoreBase* parent,
                                              T initial, T minimum, T maximum)
    : DatacoreNumber<T>(className, instanceName, parent, initial)
    , m_minimum(minimum)
    , m_maximum(maximum)
{
}

/// The texts are those of numbers, also for integers, which have their own: that is how they are known.
template<typename T>
void DatacoreNumberLimits<T>::regenerateInvalidationStatusMessages(
    std::list<DatacoreValidStatusMessage>& messages) const
{
    DatacoreNumber<T>::regenerateInvalidationStatusMessages(messages);
    for (const QString& item : this->getDataList()) {
        const auto number = ItemText::toNumber<typename DatacoreNumber<T>::Parsed>(item);
        if (number && *number > m_maximum)
            messages.emplace_back(DatacoreValidStatusMessage::NumberOversized);
        else if (number && *number < m_minimum)
            messages.emplace_back(DatacoreValidStatusMessage::NumberUndersized);
    }
}

template class DatacoreNumberLimits<unsigned int>;
template class DatacoreNumberLimits<unsigned short>;
template class DatacoreNumberLimits<int>;
template class DatacoreNumberLimits<long long>;
template class DatacoreNumberLimits<double>;
