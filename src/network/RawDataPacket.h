#pragma once

#include <QByteArray>

class QDataStream;
class QIODevice;

/// One packet on the wire: a 16-byte header, a payload and a 4-byte trailer, all numbers big-endian.
///
/// | offset           | width | field                                                    |
/// |------------------|-------|----------------------------------------------------------|
/// | 0                | 8     | magic, always 0xCAFEBA6E1F00D321                         |
/// | 8                | 2     | packetIdentifier                                         |
/// | 10               | 2     | sourceInstanceIdentifier                                 |
/// | 12               | 4     | payloadSize, bytes of payload that follow                |
/// | 16               | ...   | payload, its layout is the packet class's own            |
/// | 16 + payloadSize | 4     | trailer, always DE AD BE EF                              |
///
/// A subclass names its identifier and serialises its payload for sending; what it received is kept here.
class RawDataPacket {
public:
    /// The kind of a packet. 0x1010 to 0x102B travel on the wire, the first two are results of peekHeader().
    enum PacketIdentifier : quint16 {
        PID_INVALID = 0, ///< no frame begins here
        PID_INCOMPLETE = 1, ///< a frame begins here and its end has not arrived
        PID_SERIALISABLE_DATA = 0x1010,
        PID_EYE_VERTICAL_HISTOGRAM = 0x1011,
        PID_EYE_HORIZONTAL_HISTOGRAM = 0x1012,
        PID_PPM_METERS = 0x1013,
        PID_PEAK_HOLD_METERS = 0x1014,
        PID_PHASE_METERS = 0x1015,
        PID_INSTANT_PEAK_DB_METERS = 0x1016,
        PID_INSTANT_PEAK_LINEAR_METERS = 0x1017,
        PID_ST337_DOLBY_DETECT = 0x1018,
        PID_RAW_SDI_SAMPLE_GRID = 0x1019,
        PID_RAW_SDI_JITTER_SPECTRUM = 0x101A,
        PID_JITTER_VERTICAL_HISTOGRAM = 0x101B,
        PID_VIDEO_PIT_HISTOGRAM = 0x101C,
        PID_AUDIO_PIT_HISTOGRAM = 0x101D,
        PID_ANC_PIT_HISTOGRAM = 0x101E,
        PID_ANCILLARY_STATUS = 0x101F,
        PID_AUDIO_CHANNEL_STATUS = 0x1020,
        PID_AES_PRESENCE = 0x1021,
        PID_TELETEXT = 0x1022,
        PID_EYE_WINDOWED_VERTICAL_HISTOGRAM = 0x1023,
        PID_VIDEO_IP_2110_21 = 0x1024,
        PID_PTP_MEDIA_LATENCY = 0x1025,
        PID_CAPTIONS_608_BYTE_PAIRS = 0x1026,
        PID_REF_VS_PTP = 0x1027,
        PID_SCTE104 = 0x1028,
        PID_LOUDNESS_ENGINE = 0x1029,
        PID_REGISTER_RAW_DATA = 0x102A,
        PID_DEREGISTER_RAW_DATA = 0x102B,
    };
    static constexpr quint16 kFirstPacketIdentifier = PID_SERIALISABLE_DATA;
    static constexpr quint16 kLastPacketIdentifier = PID_DEREGISTER_RAW_DATA;

    static constexpr quint64 kMagic = 0xCAFEBA6E1F00D321;
    static constexpr int kHeaderSize = 16;
    static constexpr int kTrailerSize = 4;
    static constexpr char kTrailer[kTrailerSize + 1] = "\xDE\xAD\xBE\xEF";

    struct Header {
        quint64 magic = kMagic;
        PacketIdentifier packetIdentifier = PID_INVALID;
        quint16 sourceInstanceIdentifier = 0;
        quint32 payloadSize = 0; ///< bytes

        /// Bytes of the whole frame, header and trailer included; beyond 32 bits for a size near their end.
        qint64 frameSize() const { return qint64{kHeaderSize} + payloadSize + kTrailerSize; }
    };

    RawDataPacket() = default;
    /// A received packet: keeps @p header and a copy of the payloadSize bytes behind it in @p frame (of as
    /// many as there are, should the frame be shorter).
    RawDataPacket(const QByteArray& frame, const Header& header);
    virtual ~RawDataPacket();

    virtual PacketIdentifier getPacketIdentifier() const = 0;
    virtual quint16 getSourceInstanceIdentifier() const;
    /// The payload to send, made from the packet's present values.
    virtual QByteArray getSerialisedPayloadForTransmit() const = 0;

    /// The header as received; for a packet made here the default one.
    Header getHeaderFromPacket() const { return m_header; }
    /// The payload as received; empty for a packet made here.
    QByteArray getPayloadFromPacket() const { return m_payload; }

    static bool isPacketIdentifier(quint16 value)
    {
        return value >= kFirstPacketIdentifier && value <= kLastPacketIdentifier;
    }

    static Header readHeaderFromStream(QDataStream& stream);
    static void writeHeaderToDataStream(const Header& header, QDataStream& stream);

    /// Reads the header at the start of @p buffer. Its identifier becomes PID_INVALID when the magic is wrong
    /// or the identifier out of range, else PID_INCOMPLETE when the buffer ends before the frame does.
    static Header peekHeader(const QByteArray& buffer);
    /// The same on @p size bytes at @p data, which are only looked at.
    static Header peekHeader(const char* data, qint64 size);

    QByteArray generatePacketHeaderForPayload(const QByteArray& payload) const;
    /// Writes header, payload and trailer as three writes and returns the sum of their results. The caller
    /// flushes.
    qint64 serialisePacketAndWriteToDevice(QIODevice& device) const;
    /// Appends the whole frame to @p target, for those who send it as one piece.
    void appendFrameTo(QByteArray& target) const;

protected:
    RawDataPacket(const RawDataPacket&) = default;
    RawDataPacket(RawDataPacket&&) = default;
    RawDataPacket& operator=(const RawDataPacket&) = default;
    RawDataPacket& operator=(RawDataPacket&&) = default;

    const QByteArray& payload() const { return m_payload; }

private:
    Header m_header;
    QByteArray m_payload;
};
