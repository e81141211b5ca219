#include "datacore/DatacoreClassnameElement.h"

#include "network/JsonObjectWriter.h"

DatacoreClassnameElement::DatacoreClassnameElement(const QString& className,
                                                   DatacoreElementPrivateInterface* node)
    : DatacoreElement(node)
    , m_className(className)
{
}

void DatacoreClassnameElement::setClassname(const QString& className)
{
    m_className = className;
    node().notifyElementChangedFromDirect();
}

QJsonValue DatacoreClassnameElement::toJson(bool /*skipStatus*/) const
{
    return m_className;
}

void DatacoreClassnameElement::write(JsonObjectWriter& writer) const
{
    writer.string(keyView(), m_className);
}

template<typename View>
bool DatacoreClassnameElement::read(const View& value, Change& change,
                                    std::list<DatacoreJsonMessage>& messages) const
{
    if (value.isString(m_className))
        return true;
    auto received = value.string();
    if (!received)
        return false;
    if (!m_adopts) {
        messages.emplace_back(DatacoreJsonMessage::ClassNameMismatch);
        return false;
    }
    change = std::move(received);
    return true;
}

template bool DatacoreClassnameElement::read(const JsonView&, Change&, std::list<DatacoreJsonMessage>&) const;
template bool DatacoreClassnameElement::read(const QtJsonView&, Change&,
                                             std::list<DatacoreJsonMessage>&) const;

void DatacoreClassnameElement::apply(Change&& change)
{
    if (change)
        m_className = std::move(*change);
}
