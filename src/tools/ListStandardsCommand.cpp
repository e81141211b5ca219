#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "types/sdi/SupportedVideoStandards.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Velmora::Sdi;

namespace {

QStringList wordsOf(const StandardFromPayloadIdentifier& standard)
{
    QStringList words;
    for (const std::uint32_t word : standard.getPayloadIdentifierWords())
        words << QString::number(word, 16).toUpper().rightJustified(8, QLatin1Char('0'));
    return words;
}

QJsonObject toJson(const StandardFromPayloadIdentifier& standard)
{
    const StandardComponents parts = standard.getStandardAsComponents();
    return {{QStringLiteral("name"), standard.getStandardAsShortText()},
            {QStringLiteral("reference"), standard.getStandardAsReferenceString()},
            {QStringLiteral("words"), QJsonArray::fromStringList(wordsOf(standard))},
            {QStringLiteral("size"), parts.size},
            {QStringLiteral("scan"), parts.scan},
            {QStringLiteral("rate"), parts.rate},
            {QStringLiteral("sampling"), parts.sampling},
            {QStringLiteral("bitDepth"), parts.bitDepth},
            {QStringLiteral("links"), static_cast<int>(standard.getNumberOfPhysicalLinks())},
            {QStringLiteral("dataRate"), parts.dataRate},
            {QStringLiteral("level"), parts.level},
            {QStringLiteral("mapping"), parts.mapping},
            {QStringLiteral("luminance"), parts.luminance},
            {QStringLiteral("transferCurve"), parts.transferCurve},
            {QStringLiteral("colourimetry"), parts.colourimetry}};
}

} // namespace

/// Prints the standards that the analyser knows, or those that the generator makes: the first identifier and
/// the name, in catalogue order.
int ToolCommands::listStandards(const ToolContext& context)
{
    const SupportedVideoStandards supported;
    const auto& standards = context.generator ? supported.getSupportedGeneratorStandards()
                                              : supported.getSupportedAnalyserStandards();
    if (context.json) {
        QJsonArray array;
        for (const auto* standard : standards)
            array << toJson(*standard);
        return ToolOutput::printLine(array) ? 0 : 1;
    }
    QByteArray text;
    for (const auto* standard : standards)
        text += QString(wordsOf(*standard).first() + QLatin1Char(' ') + standard->getStandardAsShortText()
                        + QLatin1Char('\n'))
                    .toUtf8();
    return ToolOutput::write(text) ? 0 : 1;
}
