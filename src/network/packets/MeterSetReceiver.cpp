#include "network/packets/MeterSetReceiver.h"

MeterSetReceiver::MeterSetReceiver(Handler handler)
    : m_handler(std::move(handler))
    , m_receiver([this](MeterSet::Kind kind, const AudioMetersDataPacket& packet) { add(kind, packet); })
{
}

void MeterSetReceiver::add(MeterSet::Kind kind, const AudioMetersDataPacket& packet)
{
    const quint32 sequenceNumber = packet.getSequenceNumber();
    if (sequenceNumber != m_current.sequenceNumber())
        m_current = MeterSet(sequenceNumber);
    const bool wasComplete = m_current.isComplete();
    m_current.add(kind, packet);
    if (!wasComplete && m_current.isComplete())
        m_handler(m_current, m_finished.lostBefore(sequenceNumber));
}
