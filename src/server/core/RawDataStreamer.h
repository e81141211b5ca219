#pragma once

#include "network/RawDataPacket.h"
#include "server/core/FaultPlan.h"

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <compare>
#include <map>

namespace Velmora::Server {

/// Where somebody listens for raw data packets: an IPv4 address and a UDP port.
struct RawDataDestination {
    quint32 address = 0;
    quint16 port = 0;

    auto operator<=>(const RawDataDestination&) const = default;
};

/// Sends raw data packets by UDP to all destinations that want them: once to each, however many requests name
/// it.
class RawDataStreamer : public QObject {
    Q_OBJECT
public:
    using PacketIdentifier = RawDataPacket::PacketIdentifier;

    /// Readers take no more than this of one datagram; larger frames go out in several.
    static constexpr int kLargestDatagram = 16384;

    explicit RawDataStreamer(const FaultPlan& faults = {}, unsigned seed = 1, QObject* parent = nullptr);

    /// Requests are counted: a destination stays until each was removed again.
    void addRequest(PacketIdentifier identifier, const RawDataDestination& destination);
    void removeRequest(PacketIdentifier identifier, const RawDataDestination& destination);

    /// Whether anybody wants the packets, so that what nobody wants need not be made.
    bool isWanted(PacketIdentifier identifier) const;
    void send(const RawDataPacket& packet);

signals:
    /// The set of wanted identifiers has changed.
    void wantedChanged();

private:
    struct Listener {
        QHostAddress address;
        int requests = 0;
    };

    void write(const QByteArray& frame, const QHostAddress& address, quint16 port);

    QUdpSocket m_socket;
    FaultInjector m_faults;
    std::map<PacketIdentifier, std::map<RawDataDestination, Listener>> m_requests;
    QByteArray m_frame; ///< the frame being sent; keeps its memory from one to the next
};

} // namespace Velmora::Server
