#include "network/events/SequencePackagedLogPacket.h"

#include "network/events/LogSerialisableDataPacket.h"
#include "network/events/WholeNumber.h"

namespace {

constexpr QLatin1String kLogPacketKey{"logPacket", 9};
constexpr QLatin1String kDateKey{"julianDate", 10};
constexpr QLatin1String kTimeKey{"msecsSinceStartOfDay", 20};

constexpr QLatin1String kRequestedKey{"requested", 9};

constexpr int kLastYear = 9999;
/// When daylight-saving time begins.
constexpr int kSecondsSkipped = 3600;
constexpr qint64 kMsecsPerDay = 24 * 60 * 60 * 1000;

} // namespace

SequencePackagedLogPacket::SequencePackagedLogPacket()
    : SerialisableDataPacket(QString(kClassName))
{
}

SequencePackagedLogPacket::SequencePackagedLogPacket(const SerialisableDataPacket& packet)
    : SerialisableDataPacket(packet)
{
}

SequencePackagedLogPacket::SequencePackagedLogPacket(const LogSerialisableDataPacket& event,
                                                     const QDateTime& time)
    : SequencePackagedLogPacket()
{
    const QDateTime local = time.toLocalTime();
    insertOtherPacketIntoThis(kLogPacketKey, event);
    setValue(kDateKey, local.date().toJulianDay());
    setValue(kTimeKey, local.time().msecsSinceStartOfDay());
}

SerialisableDataPacket SequencePackagedLogPacket::getLogPacket() const
{
    bool ok = false;
    return extractOtherPacketFromThis(kLogPacketKey, ok);
}

void SequencePackagedLogPacket::markRequested()
{
    setValue(kRequestedKey, true);
}

bool SequencePackagedLogPacket::isRequested() const
{
    return object().value(kRequestedKey).toBool();
}

QDateTime SequencePackagedLogPacket::getTime() const
{
    const auto day = wholeNumber(object().value(kDateKey));
    const auto msecs = wholeNumber(object().value(kTimeKey));
    if (!day || !msecs || *msecs < 0 || *msecs >= kMsecsPerDay)
        return {};
    const QDate date = QDate::fromJulianDay(*day);
    if (!date.isValid() || date.year() < 1 || date.year() > kLastYear)
        return {};
    const QTime time = QTime::fromMSecsSinceStartOfDay(static_cast<int>(*msecs));
    if (const QDateTime local(date, time); local.isValid())
        return local;
    // The clocks here skip that hour, those of an instrument in another zone do not.
    const QDateTime later = QDateTime(date, time, Qt::UTC).addSecs(kSecondsSkipped);
    return {later.date(), later.time()};
}
