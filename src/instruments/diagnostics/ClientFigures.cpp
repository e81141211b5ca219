#include "instruments/diagnostics/ClientFigures.h"

#include "datacore/WzClientDatacoreManager.h"
#include "network/WzClientNetworkManager.h"
#include "network/packets/MeterSequence.h"

#include <QFile>

namespace {

/// The figure behind a name of /proc/self/status, in KiB.
qint64 ownStatus(const QByteArray& status, const char* name)
{
    const int at = status.indexOf(name);
    return at < 0
        ? 0
        : status.mid(at + static_cast<int>(qstrlen(name)), 24).simplified().split(' ').first().toLongLong();
}

/// What the system has thrown away of the datagrams to that port, since nobody fetched them in time.
std::optional<quint64> systemDrops(quint16 port)
{
    QFile table(QStringLiteral("/proc/net/udp"));
    if (!table.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray place = ':' + QByteArray::number(port, 16).toUpper().rightJustified(4, '0');
    std::optional<quint64> drops;
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() > 12 && fields.at(1).endsWith(place))
            drops = drops.value_or(0) + fields.last().toULongLong();
    }
    return drops;
}

} // namespace

void ClientFigures::follow(WzClientNetworkManager& network, const WzClientDatacoreManager& datacores)
{
    m_network = &network;
    m_datacores = &datacores;
    // Both come at the end of an attempt, which waits for its peer.
    const auto name = [this] {
        if (m_loop)
            m_loop->nameCause(tr("connection attempt"));
    };
    connect(&network, &WzClientNetworkManager::connectedToServer, this, name);
    connect(&network, &WzClientNetworkManager::reconnectAttemptFailed, this, name);
}

void ClientFigures::startWatching()
{
    if (m_watchers++ == 0)
        m_loop = std::make_unique<LoopWatch>();
    m_sinceReading.invalidate();
}

void ClientFigures::stopWatching()
{
    if (--m_watchers == 0)
        m_loop.reset();
}

ClientFigures::Counts ClientFigures::counts() const
{
    if (!m_network)
        return {};
    const Traffic& traffic = m_network->getConnectionToServer().traffic();
    return {traffic.tcpFrames, traffic.udpFrames, m_datacores->populator().appliedCount()};
}

ClientFigures::Reading ClientFigures::read()
{
    Reading reading;
    const Counts now = counts();
    if (m_sinceReading.isValid()) {
        reading.span = std::chrono::nanoseconds(m_sinceReading.nsecsElapsed());
        const auto rate = [&reading](quint64 count, quint64 before) {
            return static_cast<double>(count - before) / reading.span.count();
        };
        reading.tcpFramesPerSecond = rate(now.tcpFrames, m_before.tcpFrames);
        reading.udpFramesPerSecond = rate(now.udpFrames, m_before.udpFrames);
        reading.updatesPerSecond = rate(now.updates, m_before.updates);
    }
    m_before = now;
    m_sinceReading.start();

    if (m_network) {
        const QElapsedTimer& sinceLast = m_network->getConnectionToServer().traffic().sinceLast;
        if (sinceLast.isValid())
            reading.dataAge = std::chrono::milliseconds(sinceLast.elapsed());
        reading.echoTime = m_datacores->monitor().lastEchoTime();
        reading.droppedDatagrams = systemDrops(NetworkConnection::kClientUdpPort);
    }
    reading.lostMeterPackets = MeterSequence::totalLost();
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArray text = status.readAll();
        reading.residentKiB = ownStatus(text, "VmRSS:");
        reading.peakKiB = ownStatus(text, "VmHWM:");
    }
    if (m_loop) {
        reading.stalls = m_loop->stalls();
        reading.longestStall = m_loop->longest();
        reading.longestStallCause = m_loop->longestCause();
    }
    return reading;
}
