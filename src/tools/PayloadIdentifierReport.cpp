#include "tools/PayloadIdentifierReport.h"

#include "types/sdi/PayloadIdentifierBase.h"
#include "types/sdi/SdiUtility.h"
#include "types/sdi/SupportedVideoStandards.h"

#include <algorithm>

using namespace Velmora::Sdi;

namespace {

using FieldType = PayloadIdentifierFieldType;

constexpr unsigned kQuadLinks = 4;

QString hexOf(unsigned number, int digits)
{
    return QString::number(number, 16).toUpper().rightJustified(digits, QLatin1Char('0'));
}

QString scanName(bool progressive)
{
    return progressive ? QStringLiteral("progressive") : QStringLiteral("interlaced");
}

QString aspectName(const PayloadIdentifierBase& identifier)
{
    if (identifier.getAspectRatio() == PayloadId::AspectRatio::SixteenByNine)
        return QStringLiteral("16:9");
    return identifier.getColourimetry() == PayloadId::Colourimetry::Rec601
        ? QStringLiteral("4:3")
        : QStringLiteral("not 16:9, or unknown");
}

struct FieldName {
    FieldType type;
    const char* key;
    QString (*text)(const PayloadIdentifierBase&);
};

constexpr FieldName kFields[] = {
    {FieldType::PayloadAndDigitalInterface, "payloadAndDigitalInterface",
     [](const PayloadIdentifierBase& id) {
         return QString::fromLatin1(id.family() ? id.family()->carries : "not supported");
     }},
    {FieldType::PictureRate, "pictureRate",
     [](const PayloadIdentifierBase& id) {
         return SdiUtility::convertPictureRateToString(id.getPictureRate(),
                                                       PayloadId::PictureFormat::Progressive);
     }},
    {FieldType::TransferCharacteristics, "transferCharacteristics",
     [](const PayloadIdentifierBase& id) {
         return SdiUtility::convertTransferCurveToString(id.getTransferCharacteristics());
     }},
    {FieldType::PictureFormat, "pictureFormat",
     [](const PayloadIdentifierBase& id) {
         return scanName(id.getPictureInterlaced() == PayloadId::PictureFormat::Progressive);
     }},
    {FieldType::TransportFormat, "transportFormat",
     [](const PayloadIdentifierBase& id) {
         return scanName(id.getTransportInterlaced() == PayloadId::TransportFormat::Progressive);
     }},
    {FieldType::SamplingStructure, "samplingStructure",
     [](const PayloadIdentifierBase& id) {
         return SdiUtility::convertSampleStructureToString(id.getSampleStructure());
     }},
    {FieldType::HorizontalPixelArraySize, "horizontalPixelArraySize",
     [](const PayloadIdentifierBase& id) {
         return id.family() ? QStringLiteral("%1 pixels").arg(id.getSubImageWidthInPixels()) : QString();
     }},
    {FieldType::BitDepth, "bitDepth",
     [](const PayloadIdentifierBase& id) { return SdiUtility::convertBitDepthToString(id.getBitDepth()); }},
    {FieldType::LuminanceAndColourDifferenceSignal, "luminanceAndColourDifferenceSignal",
     [](const PayloadIdentifierBase& id) {
         return SdiUtility::convertLuminanceSignalToString(id.getLuminanceAndColourDifferenceSignal());
     }},
    {FieldType::Channel, "channel", [](const PayloadIdentifierBase& id) { return id.getLinkName(); }},
    {FieldType::Colourimetry, "colourimetry",
     [](const PayloadIdentifierBase& id) {
         return SdiUtility::convertColourimetryToString(id.getColourimetry());
     }},
    {FieldType::AspectRatio, "aspectRatio", &aspectName},
    {FieldType::AudioCopyStatus, "audioCopyStatus",
     [](const PayloadIdentifierBase& id) {
         return id.getAudioCopyStatus() == PayloadId::AudioCopyStatus::CopyOfFirstLink
             ? QStringLiteral("copy of the first link's")
             : QStringLiteral("additional");
     }},
};

void addFields(FactSheet& sheet, const PayloadIdentifierBase& identifier)
{
    sheet.startSection(QStringLiteral("fields"));
    for (const FieldName& field : kFields) {
        const auto code = identifier.getField(field.type);
        if (!code)
            continue;
        const QString text = field.text(identifier);
        const QString number = field.type == FieldType::PayloadAndDigitalInterface
            ? QLatin1String("0x") + hexOf(*code, 2)
            : QString::number(*code);
        const QJsonObject value{{QStringLiteral("code"), static_cast<int>(*code)},
                                {QStringLiteral("text"), text}};
        sheet.add(QString::fromLatin1(field.key), value, number.leftJustified(5) + text);
    }
}

void addNumbers(FactSheet& sheet, const QString& key, const std::vector<unsigned>& numbers)
{
    QJsonArray array;
    QStringList texts;
    for (const unsigned number : numbers) {
        array << static_cast<int>(number);
        texts << QString::number(number);
    }
    sheet.add(key, array, texts.join(QStringLiteral(", ")));
}

void addSize(FactSheet& sheet, const QString& key, unsigned width, unsigned height)
{
    const QJsonObject value{{QStringLiteral("width"), static_cast<int>(width)},
                            {QStringLiteral("height"), static_cast<int>(height)}};
    sheet.add(key, value, QString::number(width) + QLatin1Char('x') + QString::number(height));
}

void addGeometry(FactSheet& sheet, const PayloadIdentifierBase& identifier)
{
    sheet.startSection(QStringLiteral("geometry"));
    addSize(sheet, QStringLiteral("image"), identifier.getReconstructedImageWidthInPixels(),
            identifier.getReconstructedImageHeightInPixels());
    sheet.add(QStringLiteral("scan"),
              SdiUtility::convertScanToString(identifier.getPicutreInterlacedProgressivePsf()));
    sheet.add(QStringLiteral("links"), identifier.getNumPhysicalConnections());
    sheet.add(QStringLiteral("linkDataRate"),
              SdiUtility::convertSdiRateToString(identifier.getDataRatePerPhysicalConnection()));
    if (identifier.getLevel() != Level::None)
        sheet.add(QStringLiteral("level"), SdiUtility::convertLevelToString(identifier.getLevel()));
    sheet.add(QStringLiteral("subImages"), identifier.getNumSubImages());
    if (identifier.getSubImagePixelMappingFormat() != SubImagePixelMappingFormat::None)
        sheet.add(QStringLiteral("pixelMapping"),
                  SdiUtility::convertSubImagePixelMappingFormatToString(
                      identifier.getSubImagePixelMappingFormat()));
    addSize(sheet, QStringLiteral("subImage"), identifier.getSubImageWidthInPixels(),
            identifier.getSubImageHeightInPixels());
    sheet.add(QStringLiteral("activeLineSamples"), identifier.getFieldActivePictureWidthInSamples());
    addNumbers(sheet, QStringLiteral("fieldHeights"), identifier.getFieldHeights());
    addNumbers(sheet, QStringLiteral("firstActiveLines"),
               identifier.getFieldFirstLineNumbersOfActivePicture());
}

/// On the links that the identifier names, and as a quadrant, which it does not tell.
QStringList matchingStandards(const PayloadIdentifierBase& identifier, const VideoStandardIndex& index)
{
    QStringList names;
    for (const unsigned links : {identifier.getNumPhysicalConnections(), kQuadLinks}) {
        for (const auto* standard : index.findMatchingStandardList(identifier, links))
            names << standard->getStandardAsShortText();
    }
    names.removeDuplicates();
    return names;
}

} // namespace

FactSheet PayloadIdentifierReport::of(std::uint32_t word, const SupportedVideoStandards& supported)
{
    const auto identifier = makePayloadIdentifier(word);
    FactSheet sheet;
    sheet.add(QStringLiteral("word"), hexOf(word, 8));
    sheet.add(QStringLiteral("text"), identifier->toHumanReadable(false));
    sheet.add(QStringLiteral("standard"), identifier->toHumanReadable(true));
    sheet.add(QStringLiteral("faults"),
              identifier->doSmpteValidationChecks() + identifier->doReservedBitsChecks(),
              QStringLiteral("none"));
    sheet.add(QStringLiteral("matchingStandards"),
              matchingStandards(*identifier, supported.getAnalyserStandardsIndex()), QStringLiteral("none"));
    addFields(sheet, *identifier);
    if (identifier->family())
        addGeometry(sheet, *identifier);
    return sheet;
}
