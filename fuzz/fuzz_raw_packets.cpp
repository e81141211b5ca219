// Any payload under any identifier makes a packet. Registration and meter packets that could be read are
// written and read again without a difference.

#include "Check.h"
#include "network/RawDataPacketFactory.h"
#include "network/packets/AudioMetersDataPacket.h"
#include "network/packets/RegistrationRawDataPacket.h"

#include <QStringBuilder>

#include <cmath>
#include <cstdint>
#include <memory>

namespace {

std::shared_ptr<RawDataPacket> packetOf(RawDataPacket::PacketIdentifier identifier, const QByteArray& payload)
{
    RawDataPacket::Header header;
    header.packetIdentifier = identifier;
    header.payloadSize = static_cast<quint32>(payload.size());
    return RawDataPacketFactory::createPacket(QByteArray(RawDataPacket::kHeaderSize, '\0') + payload, header);
}

bool areAlike(const AudioMetersDataPacket& a, const AudioMetersDataPacket& b)
{
    const auto alike = [](const auto& x, const auto& y) {
        return x == y || (std::isnan(x.value) && std::isnan(y.value) && x.channel == y.channel);
    };
    return a.getSequenceNumber() == b.getSequenceNumber()
        && a.getPairPresenceBits() == b.getPairPresenceBits()
        && a.getPairPresenceBitsLinkBOrAes() == b.getPairPresenceBitsLinkBOrAes()
        && std::equal(a.getMeterValues().begin(), a.getMeterValues().end(), b.getMeterValues().begin(),
                      b.getMeterValues().end(), alike);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    // Serialisable packets have a target of their own.
    constexpr auto kKinds = RawDataPacket::kLastPacketIdentifier - RawDataPacket::kFirstPacketIdentifier;
    const auto identifier = static_cast<RawDataPacket::PacketIdentifier>(RawDataPacket::kFirstPacketIdentifier
                                                                         + 1 + data[0] % kKinds);
    const QByteArray payload(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));

    const auto packet = packetOf(identifier, payload);
    FUZZ_CHECK(packet && packet->getPacketIdentifier() == identifier);
    const QByteArray written = packet->getSerialisedPayloadForTransmit();
    const auto again = packetOf(identifier, written);
    FUZZ_CHECK(again->getSerialisedPayloadForTransmit() == written);
    if (const auto meters = std::dynamic_pointer_cast<AudioMetersDataPacket>(packet)) {
        FUZZ_CHECK(static_cast<int>(meters->getMeterValues().size()) * 24 <= payload.size());
        FUZZ_CHECK(areAlike(*meters, *std::dynamic_pointer_cast<AudioMetersDataPacket>(again)));
    } else if (std::dynamic_pointer_cast<RegistrationRawDataPacket>(packet)) {
        FUZZ_CHECK(payload.size() < 8 || payload.startsWith(written));
    } else {
        FUZZ_CHECK(written == payload);
    }
    return 0;
}
