#pragma once

#include "instruments/diagnostics/LoopWatch.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <optional>

class WzClientDatacoreManager;
class WzClientNetworkManager;

/// What the client can tell about itself.
class ClientFigures : public QObject {
    Q_OBJECT
public:
    struct Reading {
        /// Since the reading before; absent in the first one.
        std::optional<double> tcpFramesPerSecond;
        std::optional<double> udpFramesPerSecond;
        std::optional<double> updatesPerSecond;
        std::chrono::duration<double> span{0}; ///< since the reading before
        std::optional<std::chrono::milliseconds> dataAge;
        quint64 lostMeterPackets = 0;
        std::optional<quint64> droppedDatagrams; ///< by the system, since the port is open
        std::optional<std::chrono::nanoseconds> echoTime;
        qint64 residentKiB = 0;
        qint64 peakKiB = 0;
        int stalls = 0;
        std::chrono::milliseconds longestStall{0};
        QString longestStallCause;
    };

    ClientFigures() = default;

    /// Neither is owned, and both live longer.
    void follow(WzClientNetworkManager& network, const WzClientDatacoreManager& datacores);

    /// Stalls of the event loop are counted while somebody watches.
    void startWatching();
    void stopWatching();

    Reading read();

private:
    struct Counts {
        quint64 tcpFrames = 0;
        quint64 udpFrames = 0;
        quint64 updates = 0;
    };
    Counts counts() const;

    WzClientNetworkManager* m_network = nullptr;
    const WzClientDatacoreManager* m_datacores = nullptr;
    int m_watchers = 0;
    std::unique_ptr<LoopWatch> m_loop;
    Counts m_before;
    QElapsedTimer m_sinceReading;
};
