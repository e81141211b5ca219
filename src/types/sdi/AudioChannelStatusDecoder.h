#pragma once

#include "types/sdi/AudioProcessingRegisterApi.h"

#include <QString>

#include <cstdint>

namespace Velmora {

/// Turns AES3 channel status blocks, professional (AES3) and consumer (IEC 60958-3), into short texts.
///
/// Stateless; no block makes it fail. Each field function takes the six words of
/// AudioProcessingRegisterApi::ChannelStatus. The tables are closed: a code without a row gives "?", also
/// where later editions of the standards give it a meaning.
class AudioChannelStatusDecoder {
public:
    /// One block as texts.
    struct DecodedCs {
        /// What byte 0 tells.
        struct Char0 {
            QString format; ///< "Pro" or "Consumer"
            QString dataType;
            QString emphasis;
            QString sourceLock;
            QString frequency; ///< in kHz, without unit
        };
        Char0 char0;
        QString channelMode;
        QString wordLength;
        QString alignmentLevel;
        QString origin;
        QString destination;
        QString sampleAddress;
        QString timeOfDay;
        QString reliability;
        QString status;
    };

    using ChannelStatus = AudioProcessingRegisterApi::ChannelStatus;

    /// By byte 0 bit 0: professional when set, otherwise consumer.
    static DecodedCs decodeAll(const ChannelStatus& cs);
    static DecodedCs decodeAllProfessional(const ChannelStatus& cs);
    /// Fields that the consumer format lacks read "N/A".
    static DecodedCs decodeAllConsumer(const ChannelStatus& cs);
    static void decodeChar0Professional(const std::uint32_t* cs, DecodedCs::Char0& char0);

    static QString getDataTypeFromCSBytes(const std::uint32_t* cs);
    static QString getPreemphasisFromCSBytesProfessional(const std::uint32_t* cs);
    static QString getPreemphasisFromCSBytesConsumer(const std::uint32_t* cs);
    static QString getSourceLockFromCSBytes(const std::uint32_t* cs);
    /// Nominal frequency in kHz with six significant digits, 1000/1001 of it when byte 4 bit 7 is set.
    static QString getFrequencyFromCSBytesProfessional(const std::uint32_t* cs);
    static QString getFrequencyFromCSBytesConsumer(const std::uint32_t* cs);
    static QString getChannelModeFromCSBytesProfessional(const std::uint32_t* cs);
    static QString getChannelModeFromCSBytesConsumer(const std::uint32_t* cs);
    /// "encoded/maximum", or "Default (length)/maximum" when the encoded length is not indicated.
    static QString getWordLengthFromCSBytesProfessional(const std::uint32_t* cs);
    static QString getWordLengthFromCSBytesConsumer(const std::uint32_t* cs);
    static QString getAlignmentLevelFromCSBytes(const std::uint32_t* cs);
    /// Bytes 6 to 9 as four characters; control codes read as blanks.
    static QString getOriginFromCSBytes(const std::uint32_t* cs);
    /// Bytes 10 to 13, as the origin.
    static QString getDestinationFromCSBytes(const std::uint32_t* cs);
    /// Bytes 14 to 17 in the order of the block. AES3 sends the least significant byte first, so this is not
    /// the address as one number.
    static QString getSampleAddrFromCSBytes(const std::uint32_t* cs);
    /// Bytes 18 to 21 in the order of the block, in hexadecimal, "01:02:03:04".
    static QString getSamplesSinceMidnightFromCSBytes(const std::uint32_t* cs);
    static QString getReliabilityFromCSBytes(const std::uint32_t* cs);

    /// The state of the block from its validity and its CRC error flag; does not compute the CRCC.
    static QString getStatus(const ChannelStatus& cs, bool professional);

    /// The CRCC that belongs into byte 23 of a professional block with these bytes 0 to 22 (AES3: x^8 + x^4 +
    /// x^3 + x^2 + 1, preset to ones, bit 0 of a byte first).
    static std::uint8_t calculateCrcc(const std::uint32_t* cs);
};

} // namespace Velmora
