#include "network/packets/MeterSetReceiver.h"

#include "network/RawDataPacketRegistry.h"
#include "network/packets/InstantPeakDbMetersData.h"
#include "network/packets/InstantPeakLinearMetersData.h"
#include "network/packets/PeakHoldMetersData.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"

namespace {

/// A larger step of the sequence number, and one backwards, is another sequence: the instrument began anew.
constexpr quint32 kLargestGap = 3000;

} // namespace

template<typename Packet>
class MeterSetReceiver::One : public RawDataPacketReceiverInterface<Packet> {
public:
    One(MeterSetReceiver& owner, MeterSet::Kind kind)
        : m_owner(owner)
        , m_kind(kind)
    {
        RawDataPacketRegistry::getInstance().registerRawDataPacketReceiver(Packet::kPacketIdentifier, this);
    }
    ~One() override
    {
        RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(Packet::kPacketIdentifier, this);
    }
    Q_DISABLE_COPY_MOVE(One)

    void receivePacket(std::shared_ptr<const Packet> packet) override { m_owner.add(m_kind, *packet); }

private:
    MeterSetReceiver& m_owner;
    const MeterSet::Kind m_kind;
};

MeterSetReceiver::MeterSetReceiver(Handler handler)
    : m_handler(std::move(handler))
    , m_receivers{std::make_unique<One<PpmMetersData>>(*this, MeterSet::Ppm),
                  std::make_unique<One<PeakHoldMetersData>>(*this, MeterSet::PeakHold),
                  std::make_unique<One<PhaseMetersData>>(*this, MeterSet::Phase),
                  std::make_unique<One<InstantPeakDbMetersData>>(*this, MeterSet::InstantPeakDb),
                  std::make_unique<One<InstantPeakLinearMetersData>>(*this, MeterSet::InstantPeakLinear)}
{
}

MeterSetReceiver::~MeterSetReceiver() = default;

quint64 MeterSetReceiver::s_totalLost = 0;

void MeterSetReceiver::add(MeterSet::Kind kind, const AudioMetersDataPacket& packet)
{
    const quint32 sequenceNumber = packet.getSequenceNumber();
    if (sequenceNumber != m_current.sequenceNumber())
        m_current = MeterSet(sequenceNumber);
    const bool wasComplete = m_current.isComplete();
    m_current.add(kind, packet);
    if (wasComplete || !m_current.isComplete())
        return;
    const int lost = lostBefore(sequenceNumber);
    m_lastFinished = sequenceNumber;
    m_hasFinished = true;
    s_totalLost += static_cast<quint64>(lost);
    m_handler(m_current, lost);
}

int MeterSetReceiver::lostBefore(quint32 sequenceNumber) const
{
    const quint32 gap = sequenceNumber - m_lastFinished - 1; // modulo 2^32, as the number itself
    return m_hasFinished && gap <= kLargestGap ? static_cast<int>(gap) : 0;
}
