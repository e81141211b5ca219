#pragma once

#include "datacore/DatacoreElement.h"

#include <QStringList>

#include <deque>
#include <optional>

class JsonObjectWriter;

/// A node's value: a queue of strings. It is kept as the list that is handed to windows, so that this costs
/// no copy.
class DatacoreDataElement : public DatacoreElement<DatacoreDataElement> {
public:
    static constexpr QLatin1String kKey{"data", 4};
    static constexpr bool kIsStatus = false;
    /// A node with more items than this is refused. The longest lists of the instrument have some hundreds.
    static constexpr int kItemLimit = 64 * 1024;
    using Change = std::optional<QStringList>;

    using DatacoreElement::DatacoreElement;

    std::deque<QString> getData() const;
    const QStringList& items() const { return m_items; }
    void setData(std::deque<QString>&& items);
    void setItems(const QStringList& items);
    /// Sets the items of a node that is being made.
    void initialise(const QStringList& items) { m_items = items; }

    /// Null for no item, a string for one, an array for more.
    QJsonValue toJson(bool skipStatus) const;
    void write(JsonObjectWriter& writer) const;
    template<typename View>
    bool read(const View& value, Change& change, std::list<DatacoreJsonMessage>& messages) const;
    void apply(Change&& change);

private:
    QStringList m_items;
};
