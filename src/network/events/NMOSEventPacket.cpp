#include "network/events/NMOSEventPacket.h"

#include "network/events/CodedText.h"

#include <QStringList>

namespace {

constexpr QLatin1String kEventKey{"nmos_event", 10};
constexpr QLatin1String kResourceKey{"nmos_resource", 13};
constexpr QLatin1String kNameKey{"nmos_name", 9};
constexpr QLatin1String kDetailKey{"nmos_detail", 11};

/// By the values of Event.
constexpr std::array kEvents{
    CodedText{"registry_found", "registry found"},
    CodedText{"registry_lost", "registry lost"},
    CodedText{"registered", "registered"},
    CodedText{"heartbeat_lost", "heartbeat lost"},
    CodedText{"re_registered", "registered again"},
    CodedText{"resource_added", "resource added"},
    CodedText{"resource_removed", "resource removed"},
    CodedText{"staged", "staged"},
    CodedText{"activated", "activated"},
    CodedText{"activation_scheduled", "activation scheduled"},
    CodedText{"activation_failed", "activation failed"},
    CodedText{"master_enable_on", "master enable on"},
    CodedText{"master_enable_off", "master enable off"},
    CodedText{"authorisation_refused", "authorisation refused"},
};
static_assert(kEvents.size() == static_cast<std::size_t>(NMOSEventPacket::Event::AuthorisationRefused) + 1);

} // namespace

NMOSEventPacket::NMOSEventPacket()
    : LogSerialisableDataPacket(kClassName, EventKind::Nmos)
{
}

NMOSEventPacket::NMOSEventPacket(Event event, const QString& resource, const QString& name,
                                 const QString& detail)
    : NMOSEventPacket()
{
    setText(kEventKey, codeOf(kEvents, event));
    setText(kResourceKey, resource);
    setText(kNameKey, name);
    setText(kDetailKey, detail);
}

QString NMOSEventPacket::getEventCustomMessage() const
{
    QStringList subject{stringMember(kResourceKey), stringMember(kNameKey)};
    subject.removeAll(QString());
    const QString detail = stringMember(kDetailKey);

    QString message = QLatin1String("NMOS ") + textOfCode(kEvents, stringMember(kEventKey));
    if (!subject.isEmpty())
        message += QLatin1String(": ") + subject.join(QLatin1Char(' '));
    if (!detail.isEmpty())
        message += QLatin1String(" (") + detail + QLatin1Char(')');
    return message;
}
