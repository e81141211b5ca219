#include "gui/shell/InstrumentClock.h"

std::optional<QDateTime> InstrumentClock::now() const
{
    if (!m_aheadMs)
        return {};
    return QDateTime::currentDateTimeUtc().addMSecs(*m_aheadMs);
}

void InstrumentClock::fromStatusCoreSystemTimeUtcUpdated(QStringList values, QStringList, bool active)
{
    const QString told = active ? values.value(0) : QString();
    // Nodes tell again what they have when another window wants to know.
    if (told == m_lastTold)
        return;
    m_lastTold = told;
    const QDateTime utc = QDateTime::fromString(told, Qt::ISODateWithMs);
    m_aheadMs.reset();
    if (utc.isValid())
        m_aheadMs = QDateTime::currentDateTimeUtc().msecsTo(utc);
    emit changed();
}

void InstrumentClock::reset()
{
    m_lastTold.clear();
    m_aheadMs.reset();
    emit changed();
}
