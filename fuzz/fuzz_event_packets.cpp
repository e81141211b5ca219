// Whatever stands in a sequence-packaged log packet, there is one entry for an event of a known class and
// none otherwise, with a time that can be; the members read as any class of event give texts of that class.

#include "Check.h"
#include "network/events/EventPacketFactory.h"
#include "network/events/SequencePackagedLogPacket.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdint>
#include <optional>

namespace {

using Handler = WzClientSequencePackagedLogPacketHandler;

constexpr const char* kClassNames[] = {
    "LoggerResetEventPacket",
    "SCTE104EventPacket",
    "AudioInputPresenceChangeEventPacket",
    "SfpEventPacket",
    "IpInterfacesEventPacket",
    "IpRxEventPacket",
    "IpTxEventPacket",
    "ReferenceLockingStandardChangeEventPacket",
    "SdiInputVideoStandardChangeEventPacket",
    "SdiInputRateChangeEventPacket",
    "RestApiRequestEventPacket",
    "SdiJitterTimingAlignmentOutOfRangeEventPacket",
    "SdiJitterTimingTimingOutOfRangeEventPacket",
    "NMOSEventPacket",
    "PtpEventPacket",
};

SerialisableDataPacket received(const QByteArray& text)
{
    RawDataPacket::Header header;
    header.packetIdentifier = RawDataPacket::PID_SERIALISABLE_DATA;
    header.payloadSize = static_cast<quint32>(text.size() + 4);
    return SerialisableDataPacket(QByteArray(RawDataPacket::kHeaderSize + 4, '\0') + text, header);
}

struct Entry {
    EventKind kind;
    QDateTime time;
    QString message;
};

/// The entry that a handler makes of the packet, which has to be the same in both of its forms.
std::optional<Entry> entryOf(const SerialisableDataPacket& packet)
{
    Handler handler;
    QStringList lines;
    std::optional<Entry> entry;
    int resets = 0;
    QObject::connect(&handler, &Handler::resetEventLog, &handler, [&] { ++resets; });
    QObject::connect(&handler, &Handler::newLogEntry, &handler, [&](const QString& line) { lines << line; });
    QObject::connect(&handler, &Handler::newLogEvent, &handler,
                     [&](EventKind kind, const QDateTime& time, const QString& message) {
                         FUZZ_CHECK(!entry);
                         entry = Entry{kind, time, message};
                     });
    handler.acceptPacket(packet);
    FUZZ_CHECK(lines.size() == (entry ? 1 : 0));
    FUZZ_CHECK(resets == (entry && entry->kind == EventKind::LogReset ? 1 : 0));
    if (entry) {
        const bool known = entry->time.isValid();
        FUZZ_CHECK(!known || (entry->time.date().year() >= 1 && entry->time.date().year() <= 9999));
        const QString stamp = known ? entry->time.toString(Qt::TextDate) : QStringLiteral("Unknown time");
        FUZZ_CHECK(lines.first() == stamp + QLatin1Char(' ') + entry->message);
    }
    return entry;
}

/// Texts whose parts can be told without the class that makes them.
void hasTextOfItsClass(const LogSerialisableDataPacket& event, const QJsonObject& members)
{
    const QString message = event.getEventCustomMessage();
    const auto member = [&](const char* key) { return members.value(QLatin1String(key)).toString(); };
    switch (event.getEventKind()) {
    case EventKind::RestRequest:
        FUZZ_CHECK(message
                   == QLatin1String("Request ") + member("rest_method") + QLatin1String(" for resource ")
                       + member("rest_resource") + QLatin1String(" received from ") + member("rest_address"));
        break;
    case EventKind::SdiRate:
        FUZZ_CHECK(message.startsWith(QLatin1String("New rate on ")) && message.size() <= 35);
        break;
    case EventKind::AlignmentJitter:
    case EventKind::TimingJitter:
        FUZZ_CHECK(message.contains(QLatin1String(" Jitter ok: "))
                   || message.contains(QLatin1String(" Jitter out of spec: ")));
        break;
    case EventKind::VideoStandard:
        FUZZ_CHECK(message == QLatin1String("New SDI video standard ") + member("standard"));
        break;
    default:
        break;
    }
}

/// The members as an event of every class, through the wire form and back.
void readsAsEveryClass(QJsonObject members)
{
    const QDateTime time(QDate(2024, 2, 29), QTime(12, 0));
    for (const char* className : kClassNames) {
        members.insert(SerialisableDataPacket::kClassKey, QLatin1String(className));
        const auto event = EventPacketFactory::createEventFromSerialisedDataPacket(
            SerialisableDataPacket::fromJson(members));
        FUZZ_CHECK(event);
        hasTextOfItsClass(*event, members);
        const auto entry = entryOf(received(SequencePackagedLogPacket(*event, time).serialise()));
        FUZZ_CHECK(entry && entry->time == time && entry->kind == event->getEventKind());
        FUZZ_CHECK(entry->message == event->getEventCustomMessage());
    }
}

/// Qt writes a byte order mark in front of a text bare, and takes it for no part of the text when it reads
/// it. What an event can carry is what is left then.
QJsonObject withoutLeadingMarks(QJsonObject members)
{
    for (;;) {
        const QJsonObject next = QJsonDocument::fromJson(QJsonDocument(members).toJson()).object();
        if (next == members)
            return members;
        members = next;
    }
}

} // namespace

/// Qt 5.15 loses the first of two values of the same key when it is an object or an array.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QJsonObject json = QJsonDocument::fromJson(text).object();
    const QJsonObject members = json.value(QLatin1String("logPacket")).toObject();
    const QString className = members.value(SerialisableDataPacket::kClassKey).toString();
    const bool known = std::any_of(std::begin(kClassNames), std::end(kClassNames),
                                   [&](const char* name) { return className == QLatin1String(name); });
    FUZZ_CHECK(entryOf(received(text)).has_value() == known);
    readsAsEveryClass(withoutLeadingMarks(members));
    return 0;
}
