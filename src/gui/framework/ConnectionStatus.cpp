#include "gui/framework/ConnectionStatus.h"

int ConnectionStatus::secondsWithoutConnection() const
{
    const bool waits = m_state == State::NotConnected && m_sinceLost.isValid();
    return waits ? static_cast<int>(m_sinceLost.elapsed() / 1000) : 0;
}

QString ConnectionStatus::text() const
{
    switch (m_state) {
    case State::Connected:
        return tr("Connected");
    case State::Connecting:
        return tr("Connecting, %1 of %2 nodes")
            .arg(QString::number(m_nodesReceived), QString::number(m_nodesAnnounced));
    case State::NotConnected:
        break;
    }
    if (!m_retrying)
        return tr("Not connected to %1").arg(m_address);
    return tr("Not connected to %1, retrying (%2 s)")
        .arg(m_address, QString::number(secondsWithoutConnection()));
}

void ConnectionStatus::setAddress(const QString& address)
{
    if (!m_sinceLost.isValid())
        m_sinceLost.start();
    if (address == m_address)
        return;
    m_address = address;
    m_retries = 0;
    m_retrying = true;
    emit changed();
}

void ConnectionStatus::setAutoConnect(bool autoConnect)
{
    m_autoConnect = autoConnect;
    emit changed();
}

void ConnectionStatus::noteConnected()
{
    m_state = State::Connecting;
    m_retries = 0;
    m_nodesReceived = 0;
    m_nodesAnnounced = 0;
    m_lastSuccess = QDateTime::currentDateTime();
    emit changed();
}

void ConnectionStatus::noteLost()
{
    if (m_state == State::NotConnected)
        return;
    m_state = State::NotConnected;
    m_retrying = m_autoConnect;
    m_sinceLost.start();
    emit changed();
}

void ConnectionStatus::noteFailedAttempt()
{
    ++m_retries;
    m_retrying = true;
    emit changed();
}

void ConnectionStatus::noteGivenUp()
{
    m_retrying = false;
    emit changed();
}

void ConnectionStatus::setProgress(int nodesReceived, int nodesAnnounced)
{
    const bool isNews = nodesReceived != m_nodesReceived || nodesAnnounced != m_nodesAnnounced;
    if (m_state == State::NotConnected || !isNews)
        return;
    m_nodesReceived = nodesReceived;
    m_nodesAnnounced = nodesAnnounced;
    m_state = nodesAnnounced > 0 && nodesReceived >= nodesAnnounced ? State::Connected : State::Connecting;
    emit changed();
}
