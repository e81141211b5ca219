#include "server/core/PlatformElements.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "server/core/DatacoreService.h"
#include "server/core/InstrumentTrees.h"

#include <sys/timex.h>

#include <QDateTime>
#include <QTimeZone>
#include <QTimerEvent>

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

constexpr int kHealthMs = 5000;
constexpr int kMinuteMs = 60000;

std::list<DatacoreActiveStatusMessage> noNeed()
{
    return {DatacoreActiveStatusMessage(DatacoreActiveStatusMessage::NoNeed)};
}

/// Whether the machine's clock is held to another one, as its kernel sees it.
bool isClockSynchronised()
{
    ntptimeval time{};
    return ntp_gettime(&time) != TIME_ERROR;
}

} // namespace

PlatformElements::PlatformElements(InstrumentTrees& trees, DatacoreService& datacores,
                                   ReadSensors readSensors, QObject* parent)
    : QObject(parent)
    , m_datacores(datacores)
    , m_readSensors(std::move(readSensors))
{
    addHealth(trees);
    addTime(trees);
    addAbsent(trees);
}

void PlatformElements::addHealth(InstrumentTrees& trees)
{
    m_readings = &trees.add<DatacoreBase>(Tree::Status, ElementPaths::HealthStatus::kReadings);
    m_alarms = &trees.add<DatacoreBase>(Tree::Status, ElementPaths::HealthStatus::kAlarms);
    setHealth();
    // Sensors do not come later.
    if (m_readings->isActive())
        m_healthTimer.start(kHealthMs, Qt::CoarseTimer, this);
}

void PlatformElements::setHealth()
{
    const std::vector<HealthReading> readings = m_readSensors();
    QStringList alarms;
    for (const HealthReading& reading : readings) {
        if (reading.isAlarm())
            alarms << QStringLiteral("%1: %2").arg(reading.name, reading.text());
    }
    const QStringList items = HealthReading::toItems(readings);
    if (items != m_readings->getDataList())
        m_readings->setDataList(items);
    if (alarms != m_alarms->getDataList())
        m_alarms->setDataList(alarms);
    const auto reasons = readings.empty() ? noNeed() : std::list<DatacoreActiveStatusMessage>();
    if (m_readings->isActive() != reasons.empty()) {
        m_readings->setActive(reasons);
        m_alarms->setActive(reasons);
    }
}

void PlatformElements::addTime(InstrumentTrees& trees)
{
    m_utc = &trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemTimeStatus::kUtc);
    m_timeZone = &trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemTimeStatus::kTimeZone);
    m_synchronised =
        &trees.add<DatacoreBool>(Tree::Status, ElementPaths::SystemTimeStatus::kSynchronised, false);
    setTime();
}

/// The machine's clock is nobody's to set here, and it stays on.
void PlatformElements::addAbsent(InstrumentTrees& trees)
{
    trees.addAbsent<DatacoreBase>(Tree::Command, ElementPaths::SystemTimeCommands::kSetUtc);
    trees.addAbsent<DatacoreBase>(Tree::Command, ElementPaths::PowerCommands::kPowerOff);
}

void PlatformElements::setTime()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    m_utc->setData(now.toString(Qt::ISODateWithMs));
    const QString zone = QString::fromLatin1(QTimeZone::systemTimeZoneId());
    if (zone != m_timeZone->getData())
        m_timeZone->setData(zone);
    if (isClockSynchronised() != m_synchronised->getDataBool())
        m_synchronised->setDataBool(isClockSynchronised());
    m_timeTimer.start(static_cast<int>(kMinuteMs - now.toMSecsSinceEpoch() % kMinuteMs), Qt::PreciseTimer,
                      this);
}

void PlatformElements::publishTime()
{
    setTime();
    m_datacores.publishChanges();
}

void PlatformElements::publishHealth()
{
    setHealth();
    m_datacores.publishChanges();
}

void PlatformElements::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_healthTimer.timerId())
        publishHealth();
    else if (event->timerId() == m_timeTimer.timerId())
        publishTime();
}

} // namespace Velmora::Server
