#include "network/RawDataPacketFactory.h"

#include "network/SerialisableDataPacket.h"
#include "network/packets/AesPresenceDataPacket.h"
#include "network/packets/AncPitHistogramPacket.h"
#include "network/packets/AncillaryStatusDataPacket.h"
#include "network/packets/AudioChannelStatusDataPacket.h"
#include "network/packets/AudioPitHistogramPacket.h"
#include "network/packets/Captions608bytePairsRawDataPacket.h"
#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/EyeHorizontalHistogramData.h"
#include "network/packets/EyeVerticalHistogramData.h"
#include "network/packets/EyeWindowedVerticalHistogramData.h"
#include "network/packets/InstantPeakDbMetersData.h"
#include "network/packets/InstantPeakLinearMetersData.h"
#include "network/packets/JitterVerticalHistogramData.h"
#include "network/packets/LoudnessEngineRawDataPacket.h"
#include "network/packets/PeakHoldMetersData.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"
#include "network/packets/PtpMediaLatencyPacket.h"
#include "network/packets/RawSdiJitterSpectrumDataPacket.h"
#include "network/packets/RawSdiSampleGridPacket.h"
#include "network/packets/RefVsPtpPacket.h"
#include "network/packets/RegisterRawDataPacket.h"
#include "network/packets/SCTE104RawDataPacket.h"
#include "network/packets/ST337DolbyDetectData.h"
#include "network/packets/TeletextRawDataPacket.h"
#include "network/packets/VideoIp2110_21DataPacket.h"
#include "network/packets/VideoPitHistogramPacket.h"

#include <array>

namespace {

using Maker = std::shared_ptr<RawDataPacket> (*)(const QByteArray&, const RawDataPacket::Header&);

template<typename Packet>
std::shared_ptr<RawDataPacket> make(const QByteArray& frame, const RawDataPacket::Header& header)
{
    return std::make_shared<Packet>(frame, header);
}

/// The packet classes in the order of their identifiers, without a gap.
template<typename... Packets>
struct PacketClasses {
    static constexpr std::array<Maker, sizeof...(Packets)> kMakers{make<Packets>...};

    static constexpr bool areInOrder()
    {
        quint16 expected = RawDataPacket::kFirstPacketIdentifier;
        return ((Packets::kPacketIdentifier == expected++) && ...)
            && expected == RawDataPacket::kLastPacketIdentifier + 1;
    }
};

using Classes =
    PacketClasses<SerialisableDataPacket, EyeVerticalHistogramData, EyeHorizontalHistogramData, PpmMetersData,
                  PeakHoldMetersData, PhaseMetersData, InstantPeakDbMetersData, InstantPeakLinearMetersData,
                  ST337DolbyDetectData, RawSdiSampleGridPacket, RawSdiJitterSpectrumDataPacket,
                  JitterVerticalHistogramData, VideoPitHistogramPacket, AudioPitHistogramPacket,
                  AncPitHistogramPacket, AncillaryStatusDataPacket, AudioChannelStatusDataPacket,
                  AesPresenceDataPacket, TeletextRawDataPacket, EyeWindowedVerticalHistogramData,
                  VideoIp2110_21DataPacket, PtpMediaLatencyPacket, Captions608bytePairsRawDataPacket,
                  RefVsPtpPacket, SCTE104RawDataPacket, LoudnessEngineRawDataPacket, RegisterRawDataPacket,
                  DeregisterRawDataPacket>;
static_assert(Classes::areInOrder());

} // namespace

std::shared_ptr<RawDataPacket> RawDataPacketFactory::createPacket(const QByteArray& frame,
                                                                  const RawDataPacket::Header& header)
{
    if (frame.size() < qint64{RawDataPacket::kHeaderSize} + header.payloadSize)
        return nullptr;
    if (!RawDataPacket::isPacketIdentifier(header.packetIdentifier))
        return nullptr;
    return Classes::kMakers[header.packetIdentifier - RawDataPacket::kFirstPacketIdentifier](frame, header);
}
