#include "datacore/nodes/DatacoreNumber.h"

#include "datacore/ItemCodec.h"

#include <algorithm>
#include <limits>

namespace {

template<typename T>
std::deque<QString> itemsOf(const std::deque<T>& values)
{
    std::deque<QString> items;
    for (const T value : values)
        items.push_back(ItemText::of(value));
    return items;
}

} // namespace

template<typename T>
DatacoreNumber<T>::DatacoreNumber(QString instanceName, DatacoreBase* parent)
    : DatacoreBase(instanceName, parent)
{
}

template<typename T>
DatacoreNumber<T>::DatacoreNumber(QString instanceName, DatacoreBase* parent, T initial)
    : DatacoreBase(instanceName, parent, ItemText::of(initial))
{
}

template<typename T>
DatacoreNumber<T>::DatacoreNumber(QString className, QString instanceName, DatacoreBase* parent)
    : DatacoreBase(className, instanceName, parent)
{
}

template<typename T>
DatacoreNumber<T>::DatacoreNumber(QString className, QString instanceName, DatacoreBase* parent, T initial)
    : DatacoreBase(className, instanceName, parent, ItemText::of(initial))
{
}

template<typename T>
DatacoreNumber<T>::DatacoreNumber(QString instanceName, DatacoreBase* parent, const std::deque<T>& initial)
    : DatacoreBase(instanceName, parent, itemsOf(initial))
{
}

template<typename T>
T DatacoreNumber<T>::getDataNumber() const
{
    return narrowed(ItemText::toNumber<Parsed>(getData()).value_or(0));
}

template<typename T>
std::deque<T> DatacoreNumber<T>::getDataNumberArray() const
{
    std::deque<T> values;
    for (const QString& item : getDataList())
        values.push_back(narrowed(ItemText::toNumber<Parsed>(item).value_or(0)));
    return values;
}

template<typename T>
void DatacoreNumber<T>::setDataNumber(T value)
{
    setData(ItemText::of(value));
}

template<typename T>
void DatacoreNumber<T>::setDataNumberArray(const std::deque<T>& values)
{
    setDataArray(itemsOf(values));
}

template<typename T>
void DatacoreNumber<T>::regenerateInvalidationStatusMessages(
    std::list<DatacoreValidStatusMessage>& messages) const
{
    messages.clear();
    for (const QString& item : getDataList()) {
        if (ItemText::toNumber<Parsed>(item))
            continue;
        messages.emplace_back(std::is_integral_v<T> ? DatacoreValidStatusMessage::NotIntegral
                                                    : DatacoreValidStatusMessage::NotFloatingPoint);
    }
}

template<typename T>
T DatacoreNumber<T>::narrowed(Parsed number)
{
    if constexpr (std::is_same_v<T, Parsed>)
        return number;
    else
        return static_cast<T>(std::min<Parsed>(number, std::numeric_limits<T>::max()));
}

template class DatacoreNumber<unsigned int>;
template class DatacoreNumber<unsigned short>;
template class DatacoreNumber<int>;
template class DatacoreNumber<long long>;
template class DatacoreNumber<double>;
