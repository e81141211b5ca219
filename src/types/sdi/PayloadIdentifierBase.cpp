#include "types/sdi/PayloadIdentifierBase.h"

#include "types/sdi/PayloadFieldDefinitions.h"
#include "types/sdi/RasterTiming.h"
#include "types/sdi/SdiUtility.h"

#include <algorithm>
#include <array>

namespace Velmora::Sdi {

using namespace PayloadId;

namespace {

constexpr PayloadIdentifierFieldMap kDefaultFields = PayloadFieldDefinitions::defaultFieldMap();

constexpr unsigned kStandardDefinitionByte1 = 0x81;

/// Shares a map that lives as long as the program: no owner, so that copies cost no counting.
std::shared_ptr<const PayloadIdentifierFieldMap> shareStatic(const PayloadIdentifierFieldMap* fields)
{
    return {std::shared_ptr<void>(), fields};
}

bool has12Bits(BitDepth depth)
{
    return depth == BitDepth::Bits12 || depth == BitDepth::Bits12FullRange;
}

QString linkNameOf(LinkNaming naming, unsigned channel)
{
    switch (naming) {
    case LinkNaming::None:
        return {};
    case LinkNaming::LinkLetter:
        if (channel > 1)
            return QStringLiteral("Link?");
        return channel == 0 ? QStringLiteral("LinkA") : QStringLiteral("LinkB");
    case LinkNaming::OneStreamPerLink:
        if (channel > 3)
            return QStringLiteral("DS?_Link?");
        return QStringLiteral("DS%1_Link%1").arg(channel + 1);
    case LinkNaming::TwoStreamsPerLink:
        if (channel > 7)
            return QStringLiteral("DS?_Link?");
        return QStringLiteral("DS%1_Link%2").arg(channel + 1).arg(channel / 2 + 1);
    case LinkNaming::LinkNumber:
        if (channel > 7)
            return QStringLiteral("Link?");
        return QStringLiteral("Link%1").arg(channel + 1);
    }
    return {};
}

} // namespace

PayloadIdentifierBase::PayloadIdentifierBase(std::uint32_t word)
    : PayloadIdentifierBase(word, &kDefaultFields)
{
}

PayloadIdentifierBase::PayloadIdentifierBase(std::uint32_t word, const FieldMap& fields)
    : m_word(word)
    , m_fields(std::make_shared<const FieldMap>(fields))
{
}

PayloadIdentifierBase::PayloadIdentifierBase(std::uint32_t word, const FieldMap* sharedFields)
    : m_word(word)
    , m_fields(shareStatic(sharedFields))
{
}

bool PayloadIdentifierBase::hasSameDefiningField(const PayloadIdentifierBase& other, FieldType type) const
{
    return getField(type) == other.getField(type);
}

bool PayloadIdentifierBase::compareForVideoStandard(const PayloadIdentifierBase& other, bool exact) const
{
    static constexpr std::array kAlways{
        FieldType::PayloadAndDigitalInterface,
        FieldType::PictureRate,
        FieldType::TransferCharacteristics,
        FieldType::PictureFormat,
        FieldType::SamplingStructure,
        FieldType::HorizontalPixelArraySize,
        FieldType::BitDepth,
        FieldType::Colourimetry,
    };
    static constexpr std::array kExactOnly{
        FieldType::AspectRatio,
        FieldType::LuminanceAndColourDifferenceSignal,
        FieldType::TransportFormat,
    };
    const auto same = [this, &other](FieldType type) { return hasSameDefiningField(other, type); };
    if (!std::all_of(kAlways.begin(), kAlways.end(), same))
        return false;
    if (exact)
        return std::all_of(kExactOnly.begin(), kExactOnly.end(), same);
    return getPicutreInterlacedProgressivePsf() == other.getPicutreInterlacedProgressivePsf();
}

std::optional<unsigned> PayloadIdentifierBase::getField(FieldType type) const
{
    if (!hasField(type))
        return std::nullopt;
    return rawField(type);
}

unsigned PayloadIdentifierBase::getPayloadAndDigitialInterface() const
{
    return m_word >> 24;
}

PictureRate PayloadIdentifierBase::getPictureRate() const
{
    return static_cast<PictureRate>(rawField(FieldType::PictureRate));
}

PictureFormat PayloadIdentifierBase::getPictureInterlaced() const
{
    return static_cast<PictureFormat>(rawField(FieldType::PictureFormat));
}

TransportFormat PayloadIdentifierBase::getTransportInterlaced() const
{
    if (hasField(FieldType::TransportFormat))
        return static_cast<TransportFormat>(rawField(FieldType::TransportFormat));
    return is720Line() ? TransportFormat::Progressive : TransportFormat::Interlaced;
}

SampleStructure PayloadIdentifierBase::getSampleStructure() const
{
    return static_cast<SampleStructure>(rawField(FieldType::SamplingStructure));
}

BitDepth PayloadIdentifierBase::getBitDepth() const
{
    return interpretBitDepthAppropriatelyForStandard(static_cast<int>(rawField(FieldType::BitDepth)));
}

AspectRatio PayloadIdentifierBase::getAspectRatio() const
{
    if (!hasField(FieldType::AspectRatio) && is720Line())
        return AspectRatio::SixteenByNine; // ST 296 knows no other
    return static_cast<AspectRatio>(rawField(FieldType::AspectRatio));
}

HorizontalPixelArraySize PayloadIdentifierBase::getHorizontalArraySize() const
{
    return static_cast<HorizontalPixelArraySize>(rawField(FieldType::HorizontalPixelArraySize));
}

TransferCurve PayloadIdentifierBase::getTransferCharacteristics() const
{
    return static_cast<TransferCurve>(rawField(FieldType::TransferCharacteristics));
}

LuminanceAndColourDifferenceSignal PayloadIdentifierBase::getLuminanceAndColourDifferenceSignal() const
{
    return static_cast<LuminanceAndColourDifferenceSignal>(
        rawField(FieldType::LuminanceAndColourDifferenceSignal));
}

unsigned PayloadIdentifierBase::getChannel() const
{
    return rawField(FieldType::Channel);
}

AudioCopyStatus PayloadIdentifierBase::getAudioCopyStatus() const
{
    return static_cast<AudioCopyStatus>(rawField(FieldType::AudioCopyStatus));
}

Colourimetry PayloadIdentifierBase::getColourimetry() const
{
    if (family() && family()->byte1 == kStandardDefinitionByte1)
        return Colourimetry::Rec601;
    return static_cast<Colourimetry>(rawField(FieldType::Colourimetry));
}

bool PayloadIdentifierBase::is720Line() const
{
    return family() && family()->height == 720;
}

bool PayloadIdentifierBase::hasCorrectpayloadAndDigitalInterface() const
{
    return family() && family()->byte1 == getPayloadAndDigitialInterface();
}

SubImagePixelMappingFormat PayloadIdentifierBase::getSubImagePixelMappingFormat() const
{
    return family() ? family()->mapping : SubImagePixelMappingFormat::None;
}

unsigned PayloadIdentifierBase::getNumPhysicalConnections() const
{
    return family() ? family()->links : 0;
}

SdiDataRate PayloadIdentifierBase::getDataRatePerPhysicalConnection() const
{
    return family() ? family()->linkRate : SdiDataRate::Unknown;
}

Level PayloadIdentifierBase::getLevel() const
{
    return family() ? family()->level : Level::None;
}

unsigned PayloadIdentifierBase::getNumSubImages() const
{
    return family() ? family()->subImages : 0;
}

InterlacedProgressivePsf PayloadIdentifierBase::getPicutreInterlacedProgressivePsf() const
{
    const bool progressivePicture = getPictureInterlaced() == PictureFormat::Progressive;
    const bool progressiveTransport = getTransportInterlaced() == TransportFormat::Progressive;
    if (family() && family()->byte1 == kStandardDefinitionByte1)
        return InterlacedProgressivePsf::Interlaced;
    if (is720Line()) // never segmented, whatever the transport bit says
        return progressivePicture ? InterlacedProgressivePsf::Progressive
                                  : InterlacedProgressivePsf::Interlaced;
    if (progressivePicture == progressiveTransport)
        return progressivePicture ? InterlacedProgressivePsf::Progressive
                                  : InterlacedProgressivePsf::Interlaced;
    if (!progressivePicture)
        return InterlacedProgressivePsf::Undefined;
    return isLineInterleaved() ? InterlacedProgressivePsf::Progressive : InterlacedProgressivePsf::Psf;
}

bool PayloadIdentifierBase::isLineInterleaved() const
{
    // ST 372 sends frames above 30 a second on interlaced 1.5G streams; at lower rates the same two bits mean
    // a segmented picture.
    return family() && family()->linesInterleaved && getTransportInterlaced() == TransportFormat::Interlaced
        && getPictureInterlaced() == PictureFormat::Progressive
        && contains(RateSets::kHigh | RateSets::kCinemaHigh, rawField(FieldType::PictureRate));
}

bool PayloadIdentifierBase::isTransportedInFields() const
{
    return family() && !is720Line() && getTransportInterlaced() == TransportFormat::Interlaced;
}

unsigned PayloadIdentifierBase::getSubImageWidthInPixels() const
{
    if (!family())
        return 0;
    const bool wide = rawField(FieldType::HorizontalPixelArraySize) != 0;
    return wide ? family()->wideWidth : family()->narrowWidth;
}

unsigned PayloadIdentifierBase::getSubImageHeightInPixels() const
{
    if (!family())
        return 0;
    // The rate is all that tells 525 lines from 625.
    if (family()->byte1 == kStandardDefinitionByte1 && getPictureRate() == PictureRate::Rate29_97)
        return 486;
    return family()->height;
}

unsigned PayloadIdentifierBase::getFieldActivePictureWidthInSamples() const
{
    return doubleActiveLineLengthIfTwoLocationsRequiredPerPixel(getSubImageWidthInPixels());
}

unsigned PayloadIdentifierBase::getFieldActivePictureHeight(bool secondField) const
{
    if (isTransportedInFields())
        return getSubImageHeightInPixels() / 2;
    return secondField ? 0 : getSubImageHeightInPixels();
}

std::vector<unsigned> PayloadIdentifierBase::getFieldHeights() const
{
    if (!family())
        return {};
    if (!isTransportedInFields())
        return {getFieldActivePictureHeight(false)};
    return {getFieldActivePictureHeight(false), getFieldActivePictureHeight(true)};
}

std::vector<unsigned> PayloadIdentifierBase::getFieldFirstLineNumbersOfActivePicture() const
{
    const FirstActiveLines lines = firstActiveLines(getSubImageHeightInPixels());
    if (!family())
        return {};
    if (!isTransportedInFields())
        return {lines.progressive};
    return {lines.field1, lines.field2};
}

bool PayloadIdentifierBase::isExtendedColourMode() const
{
    return getSampleStructure() != SampleStructure::YCbCr422 || has12Bits(getBitDepth());
}

unsigned PayloadIdentifierBase::doubleActiveLineLengthIfTwoLocationsRequiredPerPixel(unsigned length) const
{
    // 4:2:0 is mapped like 4:2:2.
    const bool oneLocation = getSampleStructure() == SampleStructure::YCbCr420 && !has12Bits(getBitDepth());
    const bool twoLocations =
        family() && family()->extendedNeedsTwoLocations && isExtendedColourMode() && !oneLocation;
    return twoLocations ? 2 * length : length;
}

unsigned PayloadIdentifierBase::getReconstructedImageWidthInPixels() const
{
    const bool interleaved = getSubImagePixelMappingFormat() != SubImagePixelMappingFormat::None;
    return getSubImageWidthInPixels() * (interleaved ? 2 : 1);
}

unsigned PayloadIdentifierBase::getReconstructedImageHeightInPixels() const
{
    const bool interleaved = getSubImagePixelMappingFormat() != SubImagePixelMappingFormat::None;
    return getSubImageHeightInPixels() * (interleaved ? 2 : 1);
}

unsigned PayloadIdentifierBase::getReconstructedImageHeightInPixelsForDisplay() const
{
    return getReconstructedImageHeightInPixels();
}

QStringList PayloadIdentifierBase::doSmpteValidationChecks() const
{
    if (!findPayloadFamily(getPayloadAndDigitialInterface()))
        return {QStringLiteral("Error packet does not match any supported type")};
    return makePayloadIdentifier(m_word)->doSmpteValidationChecks();
}

QStringList PayloadIdentifierBase::doReservedBitsChecks() const
{
    QStringList errors;
    const std::uint32_t wrong = m_word & ~m_fields->mask();
    for (unsigned byte = 0; byte < 4; ++byte) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            if (((wrong >> (8 * (3 - byte) + bit)) & 1U) != 0)
                errors += QStringLiteral("Reserved bit not 0, Byte %1, Bit %2").arg(byte).arg(bit);
        }
    }
    return errors;
}

bool PayloadIdentifierBase::checkThatPayloadIdentifierFieldsDoNotOverlap() const
{
    return m_fields->isFreeOfOverlap();
}

QString PayloadIdentifierBase::getLinkName() const
{
    return family() ? linkNameOf(family()->naming, getChannel()) : QString();
}

QString PayloadIdentifierBase::toHumanReadable(bool asStandard) const
{
    using namespace SdiUtility;
    if (m_word == 0)
        return QStringLiteral("No payload identifier");

    const InterlacedProgressivePsf scan = getPicutreInterlacedProgressivePsf();
    QString text = QString::number(getReconstructedImageWidthInPixels()) + QLatin1Char('x')
        + QString::number(getReconstructedImageHeightInPixelsForDisplay()) + convertScanToString(scan)
        + convertPictureRateToString(getPictureRate(), scan) + QLatin1Char(' ')
        + convertSampleStructureToString(getSampleStructure()) + QLatin1Char(':')
        + convertBitDepthToString(getBitDepth()) + QLatin1Char(' ')
        + convertLinkCountToString(getNumPhysicalConnections())
        + convertSdiRateToString(getDataRatePerPhysicalConnection());

    const auto append = [&text](const QString& part) {
        if (!part.isEmpty())
            text += QLatin1Char(' ') + part;
    };
    append(convertLevelToString(getLevel()));
    append(convertSubImagePixelMappingFormatToString(getSubImagePixelMappingFormat()));
    if (!asStandard)
        append(getLinkName());
    if (getLuminanceAndColourDifferenceSignal() != LuminanceAndColourDifferenceSignal::YCbCr)
        append(convertLuminanceSignalToString(getLuminanceAndColourDifferenceSignal()));
    if (getTransferCharacteristics() != TransferCurve::SdrTv)
        append(convertTransferCurveToString(getTransferCharacteristics()));
    append(convertColourimetryToString(getColourimetry()));
    return text;
}

BitDepth PayloadIdentifierBase::interpretBitDepthAppropriatelyForStandard(int code) const
{
    const BitDepthCoding coding = family() ? family()->depthCoding : BitDepthCoding::General;
    if (code < 0 || code > (coding == BitDepthCoding::OneBit ? 1 : 3))
        return BitDepth::Reserved;
    if (coding == BitDepthCoding::General)
        return static_cast<BitDepth>(code);
    static constexpr std::array kS292_1{BitDepth::Bits8, BitDepth::Bits10, BitDepth::Reserved,
                                        BitDepth::Bits10FullRange};
    return kS292_1[static_cast<std::size_t>(code)]; // the one-bit coding is its first half
}

} // namespace Velmora::Sdi
