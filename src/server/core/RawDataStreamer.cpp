#include "server/core/RawDataStreamer.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QBuffer>
#include <QHostAddress>

#include <algorithm>

namespace Velmora::Server {

RawDataStreamer::RawDataStreamer(const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_faults(faults, seed)
{
}

void RawDataStreamer::addRequest(PacketIdentifier identifier, const RawDataDestination& destination)
{
    const bool isNew = !isWanted(identifier);
    ++m_requests[identifier][destination];
    if (isNew)
        emit wantedChanged();
}

void RawDataStreamer::removeRequest(PacketIdentifier identifier, const RawDataDestination& destination)
{
    const auto found = m_requests.find(identifier);
    if (found == m_requests.end())
        return;
    auto& destinations = found->second;
    const auto request = destinations.find(destination);
    if (request == destinations.end() || --request->second > 0)
        return;
    destinations.erase(request);
    if (destinations.empty()) {
        m_requests.erase(found);
        emit wantedChanged();
    }
}

bool RawDataStreamer::isWanted(PacketIdentifier identifier) const
{
    return m_requests.contains(identifier);
}

void RawDataStreamer::send(const RawDataPacket& packet)
{
    const auto found = m_requests.find(packet.getPacketIdentifier());
    if (found == m_requests.end())
        return;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    packet.serialisePacketAndWriteToDevice(buffer);
    for (const auto& [destination, count] : found->second) {
        if (m_faults.loses())
            continue;
        QByteArray frame = buffer.data();
        m_faults.damage(frame);
        write(frame, destination);
    }
}

void RawDataStreamer::write(const QByteArray& frame, const RawDataDestination& destination)
{
    const QHostAddress address(destination.address);
    const int split = m_faults.plan().split;
    const int largest = split > 0 ? split : kLargestDatagram;
    for (int offset = 0; offset < frame.size(); offset += largest) {
        const int size = std::min(largest, frame.size() - offset);
        if (m_socket.writeDatagram(frame.constData() + offset, size, address, destination.port) < 0) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::warn, "Failed to send raw data to {}:{}: {}", address.toString(),
                         destination.port, m_socket.errorString());
            return;
        }
    }
}

} // namespace Velmora::Server
