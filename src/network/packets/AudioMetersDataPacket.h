#pragma once

#include "network/RawDataPacket.h"
#include "network/packets/MeterValue.h"

#include <vector>

/// Base of the five meter packets, which share one payload (big-endian):
///
/// | offset  | width | field                                                    |
/// |---------|-------|----------------------------------------------------------|
/// | 0       | 4     | sequence number                                          |
/// | 4       | 4     | pair presence bits, bit 0 the first pair                 |
/// | 8       | 4     | pair presence bits of link B or of the AES inputs        |
/// | 12      | 4     | count of meter values                                    |
/// | 16      | 24    | each value: channel, pair, source and flags as 32-bit    |
/// |         |       | integers, then the reading as a 64-bit IEEE double       |
///
/// A payload that ends before its values do has no values, and is not whole.
class AudioMetersDataPacket : public RawDataPacket {
public:
    using MeterValues = std::vector<AudioProcessingRegisterApi::MeterValue<float>>;

    AudioMetersDataPacket(const QByteArray& frame, const Header& header);
    AudioMetersDataPacket(MeterValues values, quint32 pairPresenceBits, quint32 pairPresenceBitsLinkBOrAes,
                          quint32 sequenceNumber);

    /// Whether the payload held what it announced; a packet to be sent always does.
    bool isWhole() const { return m_isWhole; }
    quint32 getSequenceNumber() const { return m_sequenceNumber; }
    quint32 getPairPresenceBits() const { return m_pairPresenceBits; }
    quint32 getPairPresenceBitsLinkBOrAes() const { return m_pairPresenceBitsLinkBOrAes; }
    const MeterValues& getMeterValues() const { return m_values; }

    QByteArray getSerialisedPayloadForTransmit() const override;

private:
    quint32 m_sequenceNumber = 0;
    quint32 m_pairPresenceBits = 0;
    quint32 m_pairPresenceBitsLinkBOrAes = 0;
    MeterValues m_values;
    bool m_isWhole = true;
};

/// The meter packet of one identifier.
template<RawDataPacket::PacketIdentifier Identifier>
class AudioMetersDataPacketOf : public AudioMetersDataPacket {
public:
    static constexpr PacketIdentifier kPacketIdentifier = Identifier;

    using AudioMetersDataPacket::AudioMetersDataPacket;

    PacketIdentifier getPacketIdentifier() const override { return Identifier; }
};
