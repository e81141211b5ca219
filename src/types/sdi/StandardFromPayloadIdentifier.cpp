#include "types/sdi/StandardFromPayloadIdentifier.h"

#include "types/sdi/PayloadFamilies.h"
#include "types/sdi/SdiUtility.h"

#include <algorithm>
#include <utility>

namespace Velmora::Sdi {

using namespace PayloadId;

namespace {

constexpr unsigned kQuadrants = 4;

/// Nominal serial rates of ST 259, ST 292-1, ST 424, ST 2081-1 and ST 2082-1.
double bitsPerSecond(SdiDataRate rate)
{
    switch (rate) {
    case SdiDataRate::Rate12G:
        return 11.88e9;
    case SdiDataRate::Rate6G:
        return 5.94e9;
    case SdiDataRate::Rate3G:
        return 2.97e9;
    case SdiDataRate::Rate1G5:
        return 1.485e9;
    case SdiDataRate::Rate270M:
        return 270e6;
    default:
        return 0;
    }
}

QSize sizeOf(unsigned width, unsigned height)
{
    return {static_cast<int>(width), static_cast<int>(height)};
}

} // namespace

StandardFromPayloadIdentifier
StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(std::vector<Identifier> identifiers,
                                                                   bool quadrantMode)
{
    return StandardFromPayloadIdentifier(std::move(identifiers), quadrantMode);
}

StandardFromPayloadIdentifier::StandardFromPayloadIdentifier(std::vector<Identifier> identifiers,
                                                             bool quadrantMode)
    : m_identifiers(std::move(identifiers))
    , m_quadrantMode(quadrantMode)
{
    if (m_identifiers.empty())
        m_identifiers.push_back(makePayloadIdentifier(0)); // reads "No payload identifier"
}

bool operator==(const StandardFromPayloadIdentifier& a, const StandardFromPayloadIdentifier& b)
{
    return std::equal(a.m_identifiers.begin(), a.m_identifiers.end(), b.m_identifiers.begin(),
                      b.m_identifiers.end(), [](const auto& x, const auto& y) { return *x == *y; });
}

QSize StandardFromPayloadIdentifier::getReconsutructedImageDimensionsInPixels() const
{
    const auto& first = getFirstPayloadIdentifier();
    const unsigned factor = m_quadrantMode ? 2 : 1;
    return sizeOf(factor * first.getReconstructedImageWidthInPixels(),
                  factor * first.getReconstructedImageHeightInPixels());
}

unsigned StandardFromPayloadIdentifier::getReconstructedImageHeightInPixelsForDisplay() const
{
    return getFirstPayloadIdentifier().getReconstructedImageHeightInPixelsForDisplay()
        * (m_quadrantMode ? 2 : 1);
}

TransportFormat StandardFromPayloadIdentifier::getTransportFormat() const
{
    return getFirstPayloadIdentifier().getTransportInterlaced();
}

PictureFormat StandardFromPayloadIdentifier::getPictureFormat() const
{
    return getFirstPayloadIdentifier().getPictureInterlaced();
}

InterlacedProgressivePsf StandardFromPayloadIdentifier::getScan() const
{
    return getFirstPayloadIdentifier().getPicutreInterlacedProgressivePsf();
}

PictureRate StandardFromPayloadIdentifier::getPictureRate() const
{
    return getFirstPayloadIdentifier().getPictureRate();
}

SampleStructure StandardFromPayloadIdentifier::getSampleStructure() const
{
    return getFirstPayloadIdentifier().getSampleStructure();
}

BitDepth StandardFromPayloadIdentifier::getBitDepth() const
{
    return getFirstPayloadIdentifier().getBitDepth();
}

AspectRatio StandardFromPayloadIdentifier::getAspectRatio() const
{
    return getFirstPayloadIdentifier().getAspectRatio();
}

Colourimetry StandardFromPayloadIdentifier::getColourimetry() const
{
    return getFirstPayloadIdentifier().getColourimetry();
}

TransferCurve StandardFromPayloadIdentifier::getTransferCurve() const
{
    return getFirstPayloadIdentifier().getTransferCharacteristics();
}

LuminanceAndColourDifferenceSignal
StandardFromPayloadIdentifier::getLuminanceAndColourDifferenceSignal() const
{
    return getFirstPayloadIdentifier().getLuminanceAndColourDifferenceSignal();
}

CombinedFormat StandardFromPayloadIdentifier::getCombinedFormat() const
{
    const QSize size = getReconsutructedImageDimensionsInPixels();
    return SdiUtility::convertToCombinedFormat(static_cast<unsigned>(size.width()),
                                               static_cast<unsigned>(size.height()), getScan());
}

unsigned StandardFromPayloadIdentifier::getPixelsPerFrame() const
{
    const QSize size = getReconsutructedImageDimensionsInPixels();
    return static_cast<unsigned>(size.width()) * static_cast<unsigned>(size.height());
}

bool StandardFromPayloadIdentifier::isStandardDefinition() const
{
    return getFirstPayloadIdentifier().family() == &PayloadFamilies::kSd_270m;
}

bool StandardFromPayloadIdentifier::isSd525i() const
{
    return isStandardDefinition() && getPictureRate() == PictureRate::Rate29_97;
}

bool StandardFromPayloadIdentifier::isSd625i() const
{
    return isStandardDefinition() && getPictureRate() == PictureRate::Rate25;
}

bool StandardFromPayloadIdentifier::isChromaHalved() const
{
    switch (getSampleStructure()) {
    case SampleStructure::YCbCr422:
    case SampleStructure::YCbCr420:
    case SampleStructure::YCbCrA4224:
    case SampleStructure::YCbCrD4224:
        return true;
    default:
        return false;
    }
}

bool StandardFromPayloadIdentifier::hasAlphaChannel() const
{
    switch (getSampleStructure()) {
    case SampleStructure::YCbCrA4224:
    case SampleStructure::YCbCrA4444:
    case SampleStructure::RgbA4444:
        return true;
    default:
        return false;
    }
}

bool StandardFromPayloadIdentifier::isExtendedColourMode() const
{
    return getFirstPayloadIdentifier().isExtendedColourMode();
}

unsigned StandardFromPayloadIdentifier::getNumberOfPhysicalLinks() const
{
    return m_quadrantMode ? kQuadrants : getFirstPayloadIdentifier().getNumPhysicalConnections();
}

std::vector<SdiDataRate> StandardFromPayloadIdentifier::getPhysicalLinksDataRates() const
{
    return std::vector<SdiDataRate>(getNumberOfPhysicalLinks(),
                                    getFirstPayloadIdentifier().getDataRatePerPhysicalConnection());
}

double StandardFromPayloadIdentifier::getTotalDataRate() const
{
    const double nominal = bitsPerSecond(getFirstPayloadIdentifier().getDataRatePerPhysicalConnection())
        * getNumberOfPhysicalLinks();
    return nominal * 1000.0 / getClockDivisor();
}

Level StandardFromPayloadIdentifier::getLinkLevel() const
{
    return getFirstPayloadIdentifier().getLevel();
}

bool StandardFromPayloadIdentifier::linksAreLevelB() const
{
    return getLinkLevel() == Level::B;
}

bool StandardFromPayloadIdentifier::isDualLink1G5() const
{
    return getFirstPayloadIdentifier().family() == &PayloadFamilies::k1080_DualLink1g5;
}

bool StandardFromPayloadIdentifier::processedAsLevelB() const
{
    return linksAreLevelB() || isDualLink1G5();
}

bool StandardFromPayloadIdentifier::isDualLink3gLevelBdualStream4k() const
{
    return getFirstPayloadIdentifier().family() == &PayloadFamilies::k2160_DualLinkLevelb3g;
}

bool StandardFromPayloadIdentifier::isLevelBLineInterleaved() const
{
    return getFirstPayloadIdentifier().isLineInterleaved();
}

bool StandardFromPayloadIdentifier::physicalLinksHaveTwoPayloadIdentifiersPerSubImage(SdiDataRate rate) const
{
    // Dual stream has two identifiers per link as well, but each describes a sub-image of its own.
    return rate == SdiDataRate::Rate3G && linksAreLevelB() && !isDualLink3gLevelBdualStream4k();
}

bool StandardFromPayloadIdentifier::isSingleLinkOfMultiLinkStandard() const
{
    const PayloadFamily* family = getFirstPayloadIdentifier().family();
    return family && family->receivedAsSingleLinkOnly;
}

bool StandardFromPayloadIdentifier::getClockIs1001Not1000() const
{
    return SdiUtility::isPictureRate1001(getPictureRate()) && !isStandardDefinition();
}

unsigned StandardFromPayloadIdentifier::getClockDivisor() const
{
    return getClockIs1001Not1000() ? 1001 : 1000;
}

unsigned StandardFromPayloadIdentifier::getSubImageCount() const
{
    return m_quadrantMode ? kQuadrants : getFirstPayloadIdentifier().getNumSubImages();
}

SubImagePixelMappingFormat StandardFromPayloadIdentifier::getSubimagePixelMappingFormat() const
{
    return m_quadrantMode ? SubImagePixelMappingFormat::SquareDivision
                          : getFirstPayloadIdentifier().getSubImagePixelMappingFormat();
}

HorizontalPixelArraySize StandardFromPayloadIdentifier::getSubImageHorizontalPixelArraySize() const
{
    return getFirstPayloadIdentifier().getHorizontalArraySize();
}

RasterTiming StandardFromPayloadIdentifier::subImageRaster() const
{
    return rasterTiming(getSubImageActiveWidth(), getSubImageActiveHeight(), getPictureRate());
}

unsigned StandardFromPayloadIdentifier::getFirstLineOfActivePicture() const
{
    const FirstActiveLines lines = firstActiveLines(getSubImageActiveHeight());
    return getScan() == InterlacedProgressivePsf::Progressive ? lines.progressive : lines.field1;
}

unsigned StandardFromPayloadIdentifier::getSubImageFrameHeight() const
{
    return subImageRaster().totalLines;
}

unsigned StandardFromPayloadIdentifier::getSubImageFrameWidth() const
{
    return subImageRaster().totalWidth;
}

unsigned StandardFromPayloadIdentifier::getSubImageActiveWidth() const
{
    return getFirstPayloadIdentifier().getSubImageWidthInPixels();
}

unsigned StandardFromPayloadIdentifier::getSubImageActiveHeight() const
{
    return getFirstPayloadIdentifier().getSubImageHeightInPixels();
}

unsigned StandardFromPayloadIdentifier::getNumberOfPixelsFromStartOfLine1To0H() const
{
    return subImageRaster().frontPorch;
}

double StandardFromPayloadIdentifier::getSubPicutureSampleRateInHz() const
{
    const RasterTiming raster = subImageRaster();
    const FrameRate rate = SdiUtility::convertPictureRateToFrameRate(getPictureRate());
    return static_cast<double>(raster.totalWidth) * raster.totalLines * rate.numerator / rate.denominator;
}

double StandardFromPayloadIdentifier::getLevelBLinkSampleRateInHz() const
{
    if (!processedAsLevelB())
        return 0;
    // Two line-interleaved streams share the picture's samples; otherwise each stream keeps the picture's
    // raster.
    return getSubPicutureSampleRateInHz() / (isLevelBLineInterleaved() ? 2 : 1);
}

unsigned StandardFromPayloadIdentifier::getReconstructedPictureHorizontalblankingSize() const
{
    const RasterTiming raster = subImageRaster();
    const bool fourSubImages = getSubimagePixelMappingFormat() != SubImagePixelMappingFormat::None;
    return raster.isKnown() ? (raster.totalWidth - raster.activeWidth) * (fourSubImages ? 2 : 1) : 0;
}

QSize StandardFromPayloadIdentifier::getWidthAndHeightOfSubImageFrameForTimingCalculations() const
{
    return sizeOf(getSubImageFrameWidth(), getSubImageFrameHeight());
}

std::vector<StandardFromPayloadIdentifier::Identifier>
StandardFromPayloadIdentifier::getPayloadIdentifiersForSubImage(unsigned subImage) const
{
    const std::size_t subImages = getSubImageCount();
    if (subImage >= subImages)
        return {};
    const std::size_t count = m_identifiers.size();
    if (count < subImages) // 6G and 12G: one identifier stands for several sub-images
        return {m_identifiers[subImage * count / subImages]};
    const std::size_t each = count / subImages;
    const auto begin = m_identifiers.begin() + static_cast<std::ptrdiff_t>(subImage * each);
    return {begin, begin + static_cast<std::ptrdiff_t>(each)};
}

std::vector<std::uint32_t> StandardFromPayloadIdentifier::getPayloadIdentifierWords() const
{
    std::vector<std::uint32_t> words;
    words.reserve(m_identifiers.size());
    for (const Identifier& identifier : m_identifiers)
        words.push_back(identifier->getWord());
    return words;
}

QString StandardFromPayloadIdentifier::getStandardAsShortText() const
{
    if (!m_quadrantMode)
        return getFirstPayloadIdentifier().toHumanReadable(true);
    const StandardComponents parts = getStandardAsComponents();
    QString text = parts.size + parts.scan + parts.rate + QLatin1Char(' ') + parts.sampling + QLatin1Char(':')
        + parts.bitDepth + QLatin1Char(' ') + SdiUtility::convertLinkCountToString(getNumberOfPhysicalLinks())
        + parts.dataRate;
    if (!parts.level.isEmpty())
        text += QLatin1Char(' ') + parts.level;
    text += QLatin1String(" SQ");
    if (getLuminanceAndColourDifferenceSignal() != LuminanceAndColourDifferenceSignal::YCbCr)
        text += QLatin1Char(' ') + parts.luminance;
    if (getTransferCurve() != TransferCurve::SdrTv)
        text += QLatin1Char(' ') + parts.transferCurve;
    text += QLatin1Char(' ') + parts.colourimetry;
    return text;
}

StandardComponents StandardFromPayloadIdentifier::getStandardAsComponents() const
{
    using namespace SdiUtility;
    const auto& first = getFirstPayloadIdentifier();
    const int width = getReconsutructedImageDimensionsInPixels().width();
    const unsigned height = getReconstructedImageHeightInPixelsForDisplay();
    return {
        .size = QString::number(width) + QLatin1Char('x') + QString::number(height),
        .scan = convertScanToString(getScan()),
        .rate = convertPictureRateToString(getPictureRate(), getScan()),
        .sampling = convertSampleStructureToString(getSampleStructure()),
        .bitDepth = convertBitDepthToString(getBitDepth()),
        .links = convertLinkCountToString(getNumberOfPhysicalLinks()).trimmed(),
        .dataRate = convertSdiRateToString(first.getDataRatePerPhysicalConnection()),
        .level = convertLevelToString(getLinkLevel()),
        // A quadrant standard says "SQ", where one identifier's mapping would read "SqDv".
        .mapping = m_quadrantMode
            ? QStringLiteral("SQ")
            : convertSubImagePixelMappingFormatToString(getSubimagePixelMappingFormat()),
        .luminance = convertLuminanceSignalToString(getLuminanceAndColourDifferenceSignal()),
        .transferCurve = convertTransferCurveToString(getTransferCurve()),
        .colourimetry = convertColourimetryToString(getColourimetry()),
    };
}

QString StandardFromPayloadIdentifier::getStandardAsReferenceString() const
{
    const StandardComponents parts = getStandardAsComponents();
    QString link = QString::number(getNumberOfPhysicalLinks()) + QLatin1Char('x') + parts.dataRate;
    for (const QString& part : {parts.level, parts.mapping}) {
        if (!part.isEmpty())
            link += QLatin1Char('-') + part;
    }
    const QString word =
        QStringLiteral("%1").arg(getFirstPayloadIdentifier().getWord(), 8, 16, QLatin1Char('0')).toUpper();
    return QStringList{parts.size + parts.scan + parts.rate,
                       parts.sampling + QLatin1Char(':') + parts.bitDepth,
                       link,
                       parts.luminance,
                       parts.transferCurve,
                       parts.colourimetry,
                       word}
        .join(QLatin1Char('/'));
}

} // namespace Velmora::Sdi
