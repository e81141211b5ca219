#include "network/packets/MeterPacketReceiver.h"

#include "network/RawDataPacketRegistry.h"
#include "network/packets/InstantPeakDbMetersData.h"
#include "network/packets/InstantPeakLinearMetersData.h"
#include "network/packets/PeakHoldMetersData.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"

template<typename Packet>
class MeterPacketReceiver::One : public RawDataPacketReceiverInterface<Packet> {
public:
    One(const Handler& handler, MeterSet::Kind kind)
        : m_handler(handler)
        , m_kind(kind)
    {
        RawDataPacketRegistry::getInstance().registerRawDataPacketReceiver(Packet::kPacketIdentifier, this);
    }
    ~One() override
    {
        RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(Packet::kPacketIdentifier, this);
    }
    Q_DISABLE_COPY_MOVE(One)

    void receivePacket(std::shared_ptr<const Packet> packet) override { m_handler(m_kind, *packet); }

private:
    const Handler& m_handler;
    const MeterSet::Kind m_kind;
};

MeterPacketReceiver::MeterPacketReceiver(Handler handler)
    : m_handler(std::move(handler))
    , m_receivers{std::make_unique<One<PpmMetersData>>(m_handler, MeterSet::Ppm),
                  std::make_unique<One<PeakHoldMetersData>>(m_handler, MeterSet::PeakHold),
                  std::make_unique<One<PhaseMetersData>>(m_handler, MeterSet::Phase),
                  std::make_unique<One<InstantPeakDbMetersData>>(m_handler, MeterSet::InstantPeakDb),
                  std::make_unique<One<InstantPeakLinearMetersData>>(m_handler, MeterSet::InstantPeakLinear)}
{
}

MeterPacketReceiver::~MeterPacketReceiver() = default;
