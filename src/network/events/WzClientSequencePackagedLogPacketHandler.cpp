#include "network/events/WzClientSequencePackagedLogPacketHandler.h"

#include "network/events/EventPacketFactory.h"
#include "network/events/SequencePackagedLogPacket.h"

WzClientSequencePackagedLogPacketHandler::WzClientSequencePackagedLogPacketHandler(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<EventKind>();
}

bool WzClientSequencePackagedLogPacketHandler::canAcceptPacket(const QString& /*className*/) const
{
    return true;
}

void WzClientSequencePackagedLogPacketHandler::acceptPacket(const SerialisableDataPacket& packet)
{
    const SequencePackagedLogPacket outer(packet);
    const auto event = EventPacketFactory::createEventFromSerialisedDataPacket(outer.getLogPacket());
    if (!event)
        return;
    if (event->getEventKind() == EventKind::LogReset)
        emit resetEventLog();
    const QDateTime time = outer.getTime();
    const QString message = event->getEventCustomMessage();
    const QString stamp = time.isValid() ? time.toString(Qt::TextDate) : QStringLiteral("Unknown time");
    emit newLogEntry(QStringLiteral("%1 %2").arg(stamp, message));
    if (outer.isRequested())
        emit requestedLogEvent(event->getEventKind(), time, message);
    else
        emit newLogEvent(event->getEventKind(), time, message);
}
