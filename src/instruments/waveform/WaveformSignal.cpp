#include "instruments/waveform/WaveformSignal.h"

#include "datacore/nodes/DatacoreVideoStandard2110AndStatus.h"
#include "types/hdr/HdrTypes.h"
#include "types/sdi/RasterTiming.h"
#include "types/sdi/SdiUtility.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

#include <algorithm>

using namespace Velmora;
using Sdi::StandardFromPayloadIdentifier;
using Sdi::PayloadId::BitDepth;
using Sdi::PayloadId::SampleStructure;
using WaveformTypes::NitsScale;

namespace {

int bitsOf(BitDepth depth)
{
    switch (depth) {
    case BitDepth::Bits8:
        return 8;
    case BitDepth::Bits12:
    case BitDepth::Bits12FullRange:
        return 12;
    default:
        return 10;
    }
}

bool hasFourthComponent(SampleStructure structure)
{
    switch (structure) {
    case SampleStructure::YCbCrA4224:
    case SampleStructure::YCbCrA4444:
    case SampleStructure::RgbA4444:
    case SampleStructure::YCbCrD4224:
    case SampleStructure::YCbCrD4444:
    case SampleStructure::RgbD4444:
        return true;
    default:
        return false;
    }
}

/// Along a line of the whole picture, whose sub-images run side by side.
double lineSampleRate(const StandardFromPayloadIdentifier& standard, QSize picture)
{
    const double width = standard.getSubImageActiveWidth();
    const double height = standard.getSubImageActiveHeight();
    if (width <= 0.0 || height <= 0.0)
        return 0.0;
    return standard.getSubPicutureSampleRateInHz() * (picture.width() / width) * (picture.height() / height);
}

/// "YCbCr:422" and "10FR" read "YCbCr 4:2:2 10-bit full range".
QString samplingText(const QString& structure, int bits, bool isFullRange)
{
    QStringList ratio;
    for (const QChar digit : structure.section(QLatin1Char(':'), 1))
        ratio << QString(digit);
    return structure.section(QLatin1Char(':'), 0, 0) + QLatin1Char(' ') + ratio.join(QLatin1Char(':'))
        + QLatin1Char(' ') + QString::number(bits) + QLatin1String(isFullRange ? "-bit full range" : "-bit");
}

WaveformSignal::TransferCurve curveOf(IpTypes::TransferCurve2110 curve)
{
    switch (curve) {
    case IpTypes::TransferCurve2110::Hlg:
        return WaveformSignal::TransferCurve::Hlg;
    case IpTypes::TransferCurve2110::Pq:
        return WaveformSignal::TransferCurve::Pq;
    case IpTypes::TransferCurve2110::St2115LogS3:
        return WaveformSignal::TransferCurve::SLog3;
    default:
        return WaveformSignal::TransferCurve::SdrTv;
    }
}

WaveformSignal::Colourimetry colourimetryOf(IpTypes::Colorimetry2110 colorimetry)
{
    switch (colorimetry) {
    case IpTypes::Colorimetry2110::Bt601:
        return WaveformSignal::Colourimetry::Rec601;
    case IpTypes::Colorimetry2110::Bt709:
        return WaveformSignal::Colourimetry::Rec709;
    case IpTypes::Colorimetry2110::Bt2020:
    case IpTypes::Colorimetry2110::Bt2100:
        return WaveformSignal::Colourimetry::Rec2020;
    default:
        return WaveformSignal::Colourimetry::Unknown;
    }
}

int bitsOf(IpTypes::BitDepth2110 depth)
{
    // Deeper samples are looked at as 12 bits.
    return depth == IpTypes::BitDepth2110::Bits8 ? 8 : depth == IpTypes::BitDepth2110::Bits10 ? 10 : 12;
}

/// A format on the network has no clock along the line: that of SDI with the same raster is taken, and where
/// none has it, one without blanking.
double lineSampleRate(const IpTypes::VideoStandard2110Params& standard)
{
    for (int code = 2; code <= 15; ++code) {
        const auto rate = static_cast<Sdi::PayloadId::PictureRate>(code);
        if (Sdi::SdiUtility::convertPictureRateToFrameRate(rate) != standard.frameRate)
            continue;
        const auto raster = Sdi::rasterTiming(standard.width, standard.height, rate);
        if (raster.isKnown())
            return standard.frameRate.hertz() * raster.totalWidth * raster.totalLines;
    }
    return standard.frameRate.hertz() * standard.width * standard.height;
}

} // namespace

WaveformSignal WaveformSignal::ofSdiStandard(const QStringList& items)
{
    std::vector<StandardFromPayloadIdentifier::Identifier> identifiers;
    for (const QString& word : items.mid(1))
        identifiers.push_back(Sdi::makePayloadIdentifier(word.toUInt(nullptr, 16)));
    WaveformSignal signal;
    if (identifiers.empty())
        return signal;
    const auto standard = StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(
        std::move(identifiers), items.first() == QLatin1String("true"));
    const QSize picture = standard.getReconsutructedImageDimensionsInPixels();
    if (picture.isEmpty())
        return signal;
    const auto components = standard.getStandardAsComponents();
    signal.isPresent = true;
    signal.transferCurve = standard.getTransferCurve();
    signal.colourimetry = standard.getColourimetry();
    signal.bits = bitsOf(standard.getBitDepth());
    signal.isFullRange = standard.getBitDepth() == BitDepth::Bits10FullRange
        || standard.getBitDepth() == BitDepth::Bits12FullRange;
    signal.hasAlpha = hasFourthComponent(standard.getSampleStructure());
    signal.width = picture.width();
    signal.height = picture.height();
    signal.sampleRate = lineSampleRate(standard, picture);
    signal.format = QString::number(picture.height()) + components.scan + components.rate;
    signal.sampling = samplingText(components.sampling, signal.bits, signal.isFullRange);
    return signal;
}

WaveformSignal WaveformSignal::of2110Standard(const QStringList& items)
{
    ItemReader reader(items);
    VideoStandard2110AndStatusValue value;
    VideoStandard2110AndStatusValue::visit(reader, value);
    WaveformSignal signal;
    const auto& standard = value.standard;
    if (!reader.isDone() || !value.isReceived || !standard.areConsistent())
        return signal;
    signal.isPresent = true;
    signal.transferCurve = curveOf(standard.transfer);
    signal.colourimetry = colourimetryOf(standard.colorimetry);
    signal.bits = bitsOf(standard.depth);
    signal.isFullRange = standard.range != IpTypes::Range2110::Narrow;
    signal.width = static_cast<int>(standard.width);
    signal.height = static_cast<int>(standard.height);
    signal.sampleRate = lineSampleRate(standard);
    signal.format = standard.getStandardAsShortText().section(QLatin1Char(' '), 0, 0);
    signal.sampling = standard.getStandardAsShortText().section(QLatin1Char(' '), 1, 1);
    return signal;
}

WaveformTypes::CodeScale WaveformSignal::codeScale(WaveformTypes::FullRangeMode mode,
                                                   bool colourDifference) const
{
    return {bits, isFullRange ? CodeScale::fullRange(mode) : CodeScale::Range::Narrow, colourDifference};
}

NitsScale WaveformSignal::nitsScale(SLog3Mode mode) const
{
    return NitsScale(transferCurve, mode, isFullRange);
}

QString getHdrStandardString(WaveformSignal::TransferCurve curve, WaveformSignal::SLog3Mode mode)
{
    if (curve == WaveformSignal::TransferCurve::SLog3)
        return HdrTypes::convertSLog3ModeToString(static_cast<HdrTypes::SLog3Mode>(mode));
    return Sdi::SdiUtility::convertTransferCurveToString(curve);
}
