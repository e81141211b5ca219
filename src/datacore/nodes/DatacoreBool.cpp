#include "datacore/nodes/DatacoreBool.h"

#include "datacore/ItemCodec.h"

namespace {

std::deque<QString> itemsOf(const std::deque<bool>& values)
{
    std::deque<QString> items;
    for (const bool value : values)
        items.push_back(ItemText::of(value));
    return items;
}

} // namespace

DatacoreBool::DatacoreBool(QString instanceName, DatacoreBase* parent, bool initial)
    : DatacoreBase(instanceName, parent, ItemText::of(initial))
{
}

DatacoreBool::DatacoreBool(QString className, QString instanceName, DatacoreBase* parent, bool initial)
    : DatacoreBase(className, instanceName, parent, ItemText::of(initial))
{
}

DatacoreBool::DatacoreBool(QString instanceName, DatacoreBase* parent)
    : DatacoreBase(instanceName, parent)
{
}

DatacoreBool::DatacoreBool(QString className, QString instanceName, DatacoreBase* parent)
    : DatacoreBase(className, instanceName, parent)
{
}

DatacoreBool::DatacoreBool(QString instanceName, DatacoreBase* parent, const std::deque<bool>& initial)
    : DatacoreBase(instanceName, parent, itemsOf(initial))
{
}

bool DatacoreBool::getDataBool() const
{
    return ItemText::toBool(getData()).value_or(false);
}

std::deque<bool> DatacoreBool::getDataBoolArray() const
{
    std::deque<bool> values;
    for (const QString& item : getDataList())
        values.push_back(ItemText::toBool(item).value_or(false));
    return values;
}

void DatacoreBool::setDataBool(bool value)
{
    setData(ItemText::of(value));
}

void DatacoreBool::setDataBoolArray(const std::deque<bool>& values)
{
    setDataArray(itemsOf(values));
}

void DatacoreBool::regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const
{
    messages.clear();
    if (getDataList().isEmpty())
        messages.emplace_back(DatacoreValidStatusMessage::TooFewItems);
    for (const QString& item : getDataList()) {
        if (!ItemText::toBool(item))
            messages.emplace_back(DatacoreValidStatusMessage::NotBoolean);
    }
}
