#include "datacore/DatacoreDataElement.h"

#include "logging/LogThrottle.h"
#include "network/JsonObjectWriter.h"

#include <QJsonArray>

using Velmora::LogThrottle;

namespace {

/// Compares an array with the items at hand and begins a list of its own at the first difference.
class ItemComparison {
public:
    explicit ItemComparison(const QStringList& present)
        : m_present(present)
    {
    }

    template<typename View>
    bool add(const View& item)
    {
        if (++m_count > DatacoreDataElement::kItemLimit) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::err, "DatacoreDataElement: more than {} items refused",
                         int{DatacoreDataElement::kItemLimit});
            return false;
        }
        if (!m_changed && m_count <= m_present.size() && item.isString(m_present.at(m_count - 1))) {
            noteSize(m_present.at(m_count - 1));
            return true;
        }
        const auto text = item.string();
        if (!text)
            return false;
        noteSize(*text);
        beginChange(m_count - 1);
        m_changed->append(*text);
        return true;
    }

    std::optional<QStringList> change()
    {
        if (m_count != m_present.size())
            beginChange(m_count);
        return std::move(m_changed);
    }

private:
    void beginChange(int equalItems)
    {
        if (!m_changed)
            m_changed = m_present.mid(0, equalItems);
    }

    /// An empty item among others is taken over, but it is odd.
    static void noteSize(const QString& text)
    {
        if (!text.isEmpty())
            return;
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "0 sized entry for data element");
    }

    const QStringList& m_present;
    std::optional<QStringList> m_changed;
    int m_count = 0;
};

} // namespace

std::deque<QString> DatacoreDataElement::getData() const
{
    return {m_items.begin(), m_items.end()};
}

void DatacoreDataElement::setData(std::deque<QString>&& items)
{
    setItems(QStringList(items.begin(), items.end()));
}

void DatacoreDataElement::setItems(const QStringList& items)
{
    m_items = items;
    node().notifyElementChangedFromDirect();
}

QJsonValue DatacoreDataElement::toJson(bool /*skipStatus*/) const
{
    switch (m_items.size()) {
    case 0:
        return QJsonValue::Null;
    case 1:
        return m_items.first();
    default:
        return QJsonArray::fromStringList(m_items);
    }
}

void DatacoreDataElement::write(JsonObjectWriter& writer) const
{
    switch (m_items.size()) {
    case 0:
        writer.null(keyView());
        return;
    case 1:
        writer.string(keyView(), m_items.first());
        return;
    default:
        writer.strings(keyView(), m_items);
    }
}

template<typename View>
bool DatacoreDataElement::read(const View& value, Change& change,
                               std::list<DatacoreJsonMessage>& /*messages*/) const
{
    if (m_items.size() == 1 && value.isString(m_items.first()))
        return true;
    if (auto text = value.string()) {
        change = QStringList(*text);
        return true;
    }
    if (value.isNull()) {
        if (!m_items.isEmpty())
            change.emplace();
        return true;
    }
    if (!value.isArray())
        return false;
    ItemComparison comparison(m_items);
    if (!value.forEachItem([&](const View& item) { return comparison.add(item); }))
        return false;
    change = comparison.change();
    return true;
}

template bool DatacoreDataElement::read(const JsonView&, Change&, std::list<DatacoreJsonMessage>&) const;
template bool DatacoreDataElement::read(const QtJsonView&, Change&, std::list<DatacoreJsonMessage>&) const;

void DatacoreDataElement::apply(Change&& change)
{
    if (change)
        m_items = std::move(*change);
}
