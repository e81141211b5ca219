#include "network/events/RestApiRequestEventPacket.h"

namespace {

constexpr QLatin1String kMethodKey{"rest_method", 11};
constexpr QLatin1String kResourceKey{"rest_resource", 13};
constexpr QLatin1String kAddressKey{"rest_address", 12};

} // namespace

RestApiRequestEventPacket::RestApiRequestEventPacket()
    : LogSerialisableDataPacket(kClassName, EventKind::RestRequest)
{
}

RestApiRequestEventPacket::RestApiRequestEventPacket(const QString& method, const QString& resource,
                                                     const QString& address)
    : RestApiRequestEventPacket()
{
    setText(kMethodKey, method);
    setText(kResourceKey, resource);
    setText(kAddressKey, address);
}

QString RestApiRequestEventPacket::getEventCustomMessage() const
{
    // All at once: a resource may hold what looks like a place marker ("/a%20b").
    return QStringLiteral("Request %1 for resource %2 received from %3")
        .arg(stringMember(kMethodKey), stringMember(kResourceKey), stringMember(kAddressKey));
}
