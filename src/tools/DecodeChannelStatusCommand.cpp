#include "tools/FactSheet.h"
#include "tools/HexArgument.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "types/sdi/AudioChannelStatusDecoder.h"

#include <QtEndian>

using Velmora::AudioChannelStatusDecoder;

namespace {

constexpr std::uint32_t kProfessionalBit = 0x01000000; // byte 0 bit 0, in the first word
constexpr std::uint32_t kCrccMask = 0xFF; // byte 23, in the last one

using ChannelStatus = AudioChannelStatusDecoder::ChannelStatus;

QString hexOf(unsigned byte)
{
    return QString::number(byte, 16).rightJustified(2, QLatin1Char('0'));
}

ChannelStatus blockOf(const QByteArray& bytes)
{
    ChannelStatus block;
    for (size_t i = 0; i < block.words.size(); ++i)
        block.words[i] = qFromBigEndian<quint32>(bytes.constData() + 4 * i);
    block.validity = 1;
    return block;
}

} // namespace

/// Explains a channel status block.
int ToolCommands::decodeChannelStatus(const ToolContext& context)
{
    ChannelStatus block =
        blockOf(HexArgument::read(context.arguments.first(), static_cast<int>(sizeof(ChannelStatus::words))));
    const bool professional = (block.words.front() & kProfessionalBit) != 0;
    const unsigned received = block.words.back() & kCrccMask;
    const unsigned calculated = AudioChannelStatusDecoder::calculateCrcc(block.words.data());
    block.crcError = received != calculated;

    const auto decoded = AudioChannelStatusDecoder::decodeAll(block);
    FactSheet sheet;
    sheet.add(QStringLiteral("format"), decoded.char0.format);
    sheet.add(QStringLiteral("dataType"), decoded.char0.dataType);
    sheet.add(QStringLiteral("emphasis"), decoded.char0.emphasis);
    sheet.add(QStringLiteral("sourceLock"), decoded.char0.sourceLock);
    sheet.add(QStringLiteral("frequency"), decoded.char0.frequency);
    sheet.add(QStringLiteral("channelMode"), decoded.channelMode);
    sheet.add(QStringLiteral("wordLength"), decoded.wordLength);
    sheet.add(QStringLiteral("alignmentLevel"), decoded.alignmentLevel);
    sheet.add(QStringLiteral("origin"), decoded.origin);
    sheet.add(QStringLiteral("destination"), decoded.destination);
    sheet.add(QStringLiteral("sampleAddress"), decoded.sampleAddress);
    sheet.add(QStringLiteral("timeOfDay"), decoded.timeOfDay);
    sheet.add(QStringLiteral("reliability"), decoded.reliability);
    sheet.add(QStringLiteral("status"), decoded.status);
    if (professional) {
        sheet.add(QStringLiteral("crccReceived"), hexOf(received));
        sheet.add(QStringLiteral("crccCalculated"), hexOf(calculated));
    }
    const bool printed =
        context.json ? ToolOutput::printLine(sheet.toJson()) : ToolOutput::write(sheet.toText().toUtf8());
    return printed ? 0 : 1;
}
