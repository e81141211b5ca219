#include "types/sdi/AudioChannelStatusDecoder.h"

namespace Velmora {

namespace {

constexpr unsigned kCrccByte = 23;

std::uint8_t byteOf(const std::uint32_t* cs, unsigned number)
{
    return static_cast<std::uint8_t>(cs[number / 4] >> (8 * (3 - number % 4)));
}

QString unknownCode()
{
    return QStringLiteral("?");
}

struct CodeText {
    unsigned code;
    const char* text;
};

template<typename Table>
QString textOf(const Table& table, unsigned code)
{
    for (const CodeText& row : table) {
        if (row.code == code)
            return QString::fromUtf8(row.text);
    }
    return unknownCode();
}

struct CodeFrequency {
    unsigned code;
    double kiloHertz;
};

/// The frequency of @p code, 0 when the table lacks it.
template<typename Table>
double frequencyOf(const Table& table, unsigned code)
{
    for (const CodeFrequency& row : table) {
        if (row.code == code)
            return row.kiloHertz;
    }
    return 0;
}

QString frequencyText(double kiloHertz)
{
    return QString::number(kiloHertz, 'g', 6);
}

/// An encoded length by its code: in audio samples of up to 20 bits and of up to 24.
struct CodeLength {
    unsigned code;
    int ofMaximum20;
    int ofMaximum24;
};

/// The two forms of the word length text. @p maximum is 20 or 24, or 0 when no length applies; @p assumed is
/// the length taken when none is indicated.
template<typename Table>
QString wordLengthText(const Table& table, unsigned code, int maximum, const QString& assumed,
                       const QString& maximumText)
{
    if (code == 0)
        return QLatin1String("Default (") + assumed + QLatin1String(")/") + maximumText;
    QString length = unknownCode();
    for (const CodeLength& row : table) {
        if (row.code == code && maximum != 0)
            length = QString::number(maximum == 24 ? row.ofMaximum24 : row.ofMaximum20);
    }
    return length + QLatin1Char('/') + maximumText;
}

QString charactersOf(const std::uint32_t* cs, unsigned firstByte)
{
    QString text;
    for (unsigned i = 0; i < 4; ++i) {
        const QChar character = QLatin1Char(static_cast<char>(byteOf(cs, firstByte + i)));
        text += character.isPrint() ? character : QChar(QLatin1Char(' '));
    }
    return text;
}

QString hexOf(const std::uint32_t* cs, unsigned byte)
{
    return QStringLiteral("%1").arg(byteOf(cs, byte), 2, 16, QLatin1Char('0'));
}

} // namespace

AudioChannelStatusDecoder::DecodedCs AudioChannelStatusDecoder::decodeAll(const ChannelStatus& cs)
{
    return (byteOf(cs.words.data(), 0) & 1) != 0 ? decodeAllProfessional(cs) : decodeAllConsumer(cs);
}

AudioChannelStatusDecoder::DecodedCs AudioChannelStatusDecoder::decodeAllProfessional(const ChannelStatus& cs)
{
    const std::uint32_t* words = cs.words.data();
    DecodedCs decoded;
    decodeChar0Professional(words, decoded.char0);
    decoded.channelMode = getChannelModeFromCSBytesProfessional(words);
    decoded.wordLength = getWordLengthFromCSBytesProfessional(words);
    decoded.alignmentLevel = getAlignmentLevelFromCSBytes(words);
    decoded.origin = getOriginFromCSBytes(words);
    decoded.destination = getDestinationFromCSBytes(words);
    decoded.sampleAddress = getSampleAddrFromCSBytes(words);
    decoded.timeOfDay = getSamplesSinceMidnightFromCSBytes(words);
    decoded.reliability = getReliabilityFromCSBytes(words);
    decoded.status = getStatus(cs, true);
    return decoded;
}

AudioChannelStatusDecoder::DecodedCs AudioChannelStatusDecoder::decodeAllConsumer(const ChannelStatus& cs)
{
    const std::uint32_t* words = cs.words.data();
    const QString notApplicable = QStringLiteral("N/A");
    DecodedCs decoded;
    decoded.char0.format = QStringLiteral("Consumer");
    decoded.char0.dataType = getDataTypeFromCSBytes(words);
    decoded.char0.emphasis = getPreemphasisFromCSBytesConsumer(words);
    decoded.char0.sourceLock = notApplicable;
    decoded.char0.frequency = getFrequencyFromCSBytesConsumer(words);
    decoded.channelMode = getChannelModeFromCSBytesConsumer(words);
    decoded.wordLength = getWordLengthFromCSBytesConsumer(words);
    decoded.alignmentLevel = notApplicable;
    decoded.origin = notApplicable;
    decoded.destination = notApplicable;
    decoded.sampleAddress = notApplicable;
    decoded.timeOfDay = notApplicable;
    decoded.reliability = notApplicable;
    decoded.status = getStatus(cs, false);
    return decoded;
}

void AudioChannelStatusDecoder::decodeChar0Professional(const std::uint32_t* cs, DecodedCs::Char0& char0)
{
    char0.format = QStringLiteral("Pro");
    char0.dataType = getDataTypeFromCSBytes(cs);
    char0.emphasis = getPreemphasisFromCSBytesProfessional(cs);
    char0.sourceLock = getSourceLockFromCSBytes(cs);
    char0.frequency = getFrequencyFromCSBytesProfessional(cs);
}

QString AudioChannelStatusDecoder::getDataTypeFromCSBytes(const std::uint32_t* cs)
{
    return (byteOf(cs, 0) & 2) != 0 ? QStringLiteral("Non-PCM") : QStringLiteral("PCM");
}

QString AudioChannelStatusDecoder::getPreemphasisFromCSBytesProfessional(const std::uint32_t* cs)
{
    static constexpr CodeText kTable[]{
        {0, "Unknown"}, {4, "None"}, {12, "50/15 \u00B5s"}, {28, "ITU-T J.17"}};
    return textOf(kTable, byteOf(cs, 0) & 28U);
}

QString AudioChannelStatusDecoder::getPreemphasisFromCSBytesConsumer(const std::uint32_t* cs)
{
    static constexpr CodeText kTable[]{{0, "None"}, {8, "50/15 \u00B5s"}};
    return textOf(kTable, byteOf(cs, 0) & 56U);
}

QString AudioChannelStatusDecoder::getSourceLockFromCSBytes(const std::uint32_t* cs)
{
    return (byteOf(cs, 0) & 32) != 0 ? QStringLiteral("Unlocked") : QStringLiteral("Locked");
}

QString AudioChannelStatusDecoder::getFrequencyFromCSBytesProfessional(const std::uint32_t* cs)
{
    static constexpr CodeFrequency kByte0[]{{128, 48}, {64, 44.1}, {192, 32}};
    // AES3 codes the frequency in bits 3 to 6. Bit 2 is looked at as well, so that a block which uses it
    // reads "Unspecified"; keep the mask.
    static constexpr CodeFrequency kByte4[]{{8, 24},     {16, 96},   {24, 192},
                                            {72, 22.05}, {80, 88.2}, {88, 176.4}};

    const unsigned byte4 = byteOf(cs, 4);
    double kiloHertz = frequencyOf(kByte0, byteOf(cs, 0) & 192U);
    if (kiloHertz == 0)
        kiloHertz = frequencyOf(kByte4, byte4 & 124U);
    if (kiloHertz == 0)
        return QStringLiteral("Unspecified");
    return frequencyText((byte4 & 128U) != 0 ? kiloHertz * 1000 / 1001 : kiloHertz);
}

QString AudioChannelStatusDecoder::getFrequencyFromCSBytesConsumer(const std::uint32_t* cs)
{
    static constexpr CodeFrequency kTable[]{{0, 44.1}, {2, 48}, {3, 32}};
    const double kiloHertz = frequencyOf(kTable, byteOf(cs, 3) & 15U);
    return kiloHertz == 0 ? unknownCode() : frequencyText(kiloHertz);
}

QString AudioChannelStatusDecoder::getChannelModeFromCSBytesProfessional(const std::uint32_t* cs)
{
    static constexpr CodeText kTable[]{{0, "Unknown"},   {8, "2 Channel"}, {4, "1 Channel"},
                                       {12, "Pri-Sec"},  {2, "Stereo"},    {14, "1 Ch 2xFs"},
                                       {1, "1 Ch 2xFs"}, {9, "1 Ch 2xFs"}, {15, "Multichannel"}};
    return textOf(kTable, byteOf(cs, 1) & 15U);
}

QString AudioChannelStatusDecoder::getChannelModeFromCSBytesConsumer(const std::uint32_t* cs)
{
    return (byteOf(cs, 0) & 192) == 0 ? QStringLiteral("Mode 0") : unknownCode();
}

QString AudioChannelStatusDecoder::getWordLengthFromCSBytesProfessional(const std::uint32_t* cs)
{
    struct Maximum {
        unsigned code;
        int bits;
        const char* assumed;
        const char* text;
    };
    // AES3 byte 2, bits 0 to 2 and 3 to 5. With a user-defined maximum no length applies.
    static constexpr Maximum kMaxima[]{
        {0, 20, "20", "Default (20)"}, {4, 24, "24", "24"}, {2, 20, "20", "20"}, {6, 0, "User", "User"}};
    static constexpr CodeLength kLengths[]{
        {32, 19, 23}, {16, 18, 22}, {48, 17, 21}, {8, 16, 20}, {40, 20, 24}};

    const unsigned byte2 = byteOf(cs, 2);
    Maximum maximum{0, 0, "?", "?"};
    for (const Maximum& row : kMaxima) {
        if (row.code == (byte2 & 7U))
            maximum = row;
    }
    return wordLengthText(kLengths, byte2 & 56U, maximum.bits, QString::fromLatin1(maximum.assumed),
                          QString::fromLatin1(maximum.text));
}

QString AudioChannelStatusDecoder::getWordLengthFromCSBytesConsumer(const std::uint32_t* cs)
{
    // IEC 60958-3 byte 4, bit 0 and bits 1 to 3.
    static constexpr CodeLength kLengths[]{{2, 16, 20}, {4, 18, 22}, {8, 19, 23}, {10, 20, 24}, {12, 17, 21}};
    const unsigned byte4 = byteOf(cs, 4);
    const int maximum = (byte4 & 1U) != 0 ? 24 : 20;
    return wordLengthText(kLengths, byte4 & 14U, maximum, QString::number(maximum), QString::number(maximum));
}

QString AudioChannelStatusDecoder::getAlignmentLevelFromCSBytes(const std::uint32_t* cs)
{
    static constexpr CodeText kTable[]{{0, "Unknown"}, {128, "-20"}, {64, "-18.06"}};
    return textOf(kTable, byteOf(cs, 2) & 192U);
}

QString AudioChannelStatusDecoder::getOriginFromCSBytes(const std::uint32_t* cs)
{
    return charactersOf(cs, 6);
}

QString AudioChannelStatusDecoder::getDestinationFromCSBytes(const std::uint32_t* cs)
{
    return charactersOf(cs, 10);
}

QString AudioChannelStatusDecoder::getSampleAddrFromCSBytes(const std::uint32_t* cs)
{
    return hexOf(cs, 14) + hexOf(cs, 15) + hexOf(cs, 16) + hexOf(cs, 17);
}

QString AudioChannelStatusDecoder::getSamplesSinceMidnightFromCSBytes(const std::uint32_t* cs)
{
    const QLatin1Char colon(':');
    return hexOf(cs, 18) + colon + hexOf(cs, 19) + colon + hexOf(cs, 20) + colon + hexOf(cs, 21);
}

QString AudioChannelStatusDecoder::getReliabilityFromCSBytes(const std::uint32_t* cs)
{
    static constexpr CodeText kGroups[]{{16, "Si"}, {32, "Ch"}, {64, "Sa"}, {128, "Ti"}};
    const unsigned unreliable = byteOf(cs, 22) & 240U;
    if (unreliable == 0)
        return QStringLiteral("All Ok");
    if (unreliable == 240)
        return QStringLiteral("All Bad");
    QString text;
    for (const CodeText& group : kGroups) {
        if ((unreliable & group.code) == 0)
            text += QLatin1String(group.text);
    }
    return text + QLatin1String(" - Ok");
}

QString AudioChannelStatusDecoder::getStatus(const ChannelStatus& cs, bool professional)
{
    if (cs.validity != 1)
        return QStringLiteral("Invalid");
    if (!professional)
        return QStringLiteral("No CRC");
    return cs.crcError ? QStringLiteral("CRCC Bad") : QStringLiteral("CRCC Ok");
}

std::uint8_t AudioChannelStatusDecoder::calculateCrcc(const std::uint32_t* cs)
{
    unsigned remainder = 0xFF;
    for (unsigned byte = 0; byte < kCrccByte; ++byte) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            const bool feedback = (((byteOf(cs, byte) >> bit) ^ remainder) & 1U) != 0;
            remainder >>= 1;
            if (feedback)
                remainder ^= 0xB8; // the polynomial, lowest power first
        }
    }
    return static_cast<std::uint8_t>(remainder);
}

} // namespace Velmora
