#pragma once

#include "datacore/DatacoreElement.h"

#include <optional>

class JsonObjectWriter;

/// The name of a node's class, by which a receiver checks that what it gets belongs to the node it has.
class DatacoreClassnameElement : public DatacoreElement<DatacoreClassnameElement> {
public:
    static constexpr QLatin1String kKey{"class", 5};
    static constexpr bool kIsStatus = false;
    using Change = std::optional<QString>;

    DatacoreClassnameElement(const QString& className, DatacoreElementPrivateInterface* node);

    QString getClassname() const { return m_className; }
    void setClassname(const QString& className);
    /// From now on a class name that is received is taken over: a mirror does not know the classes of what it
    /// mirrors. Otherwise one that differs is a fault.
    void adoptReceivedNames() { m_adopts = true; }

    QJsonValue toJson(bool skipStatus) const;
    void write(JsonObjectWriter& writer) const;
    template<typename View>
    bool read(const View& value, Change& change, std::list<DatacoreJsonMessage>& messages) const;
    void apply(Change&& change);

private:
    QString m_className;
    bool m_adopts = false;
};
