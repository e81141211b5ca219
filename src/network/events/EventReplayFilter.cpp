#include "network/events/EventReplayFilter.h"

#include <QCryptographicHash>

void EventReplayFilter::onConnected()
{
    m_seenBefore = QSet<QByteArray>(m_recent.begin(), m_recent.end());
}

bool EventReplayFilter::isRepeat(EventKind kind, const QDateTime& time, const QString& message)
{
    const QString event = eventKindName(kind) + QLatin1Char(' ') + time.toString(Qt::ISODateWithMs)
        + QLatin1Char(' ') + message;
    const QByteArray digest = QCryptographicHash::hash(event.toUtf8(), QCryptographicHash::Sha1);
    m_recent.push_back(digest);
    if (m_recent.size() > kMostRemembered)
        m_recent.pop_front();
    return m_seenBefore.contains(digest);
}

void EventReplayFilter::clear()
{
    m_recent.clear();
    m_seenBefore.clear();
}
