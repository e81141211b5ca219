#pragma once

#include "datacore/DatacoreBase.h"
#include "datacore/ItemCodec.h"

#include <optional>

/// A node whose items are the fields of the plain struct @p Value, which gives
///  - kNodeClass: the node's class name,
///  - kFaultContent: the message when the items are no such struct,
///  - visit(codec, self): names its fields in the order of the items, once for both directions,
///  - check(messages), if its values can be wrong: lists every problem of a struct that could be read.
template<typename Value>
class DatacoreStructured : public DatacoreBase {
public:
    using Messages = std::list<DatacoreValidStatusMessage>;

    DatacoreStructured(QString instanceName, DatacoreBase* parent)
        : DatacoreBase(QString(Value::kNodeClass), instanceName, parent)
    {
    }
    DatacoreStructured(QString instanceName, DatacoreBase* parent, const Value& initial)
        : DatacoreStructured(QString(Value::kNodeClass), instanceName, parent, initial)
    {
    }
    DatacoreStructured(QString className, QString instanceName, DatacoreBase* parent, const Value& initial)
        : DatacoreBase(className, instanceName, parent, toDeque(toItems(initial)))
    {
    }

    void setValue(const Value& value) { setDataList(toItems(value)); }

    /// The items as the struct; nothing, and a message, when they are none. Whether its values make sense is
    /// another matter.
    std::optional<Value> getValueAndValidateThatItIsDeserialisable(Messages& messages) const
    {
        ItemReader reader(getDataList());
        Value value;
        Value::visit(reader, value);
        if (reader.isDone())
            return value;
        messages.emplace_back(Value::kFaultContent);
        return std::nullopt;
    }

    void regenerateInvalidationStatusMessages(Messages& messages) const override
    {
        messages.clear();
        const auto value = getValueAndValidateThatItIsDeserialisable(messages);
        if constexpr (requires(const Value& v) { v.check(messages); }) {
            if (value)
                value->check(messages);
        }
    }

private:
    static QStringList toItems(const Value& value)
    {
        ItemWriter writer;
        Value::visit(writer, value);
        return writer.take();
    }
    static std::deque<QString> toDeque(const QStringList& items) { return {items.begin(), items.end()}; }
};
