#include "server/sources/VideoFormats.h"

#include "types/sdi/SdiUtility.h"
#include "types/sdi/VideoStandardCreator.h"

#include <array>
#include <cmath>

namespace Velmora::Server::VideoFormats {

using namespace Sdi;
using namespace Sdi::PayloadId;

namespace {

constexpr int kRateCodes = 16;

bool isHandled(SampleStructure sampling)
{
    switch (sampling) {
    case SampleStructure::YCbCr422:
    case SampleStructure::YCbCr444:
    case SampleStructure::Rgb444:
    case SampleStructure::YCbCrA4224:
    case SampleStructure::YCbCrA4444:
    case SampleStructure::RgbA4444:
        return true;
    default:
        return false;
    }
}

/// The code of a frame rate; None for those that SDI does not have.
PictureRate rateCodeOf(const VideoFormat& format)
{
    for (int code = 0; code < kRateCodes; ++code) {
        const FrameRate rate = SdiUtility::convertPictureRateToFrameRate(static_cast<PictureRate>(code));
        if (rate.numerator != 0
            && std::int64_t{format.rateNumerator} * rate.denominator
                == std::int64_t{format.rateDenominator} * rate.numerator)
            return static_cast<PictureRate>(code);
    }
    return PictureRate::None;
}

/// Which link families carry pictures of a height, those with the fewest and slowest links first.
struct Carrier {
    int height;
    VideoStandardCreator::Function create;
};
constexpr std::array kCarriers{
    Carrier{486, VideoStandardCreator::addSd_270m},   Carrier{576, VideoStandardCreator::addSd_270m},
    Carrier{720, VideoStandardCreator::add720_1g5},   Carrier{720, VideoStandardCreator::add720_3g},
    Carrier{1080, VideoStandardCreator::add1080_1g5}, Carrier{1080, VideoStandardCreator::add1080_3g},
    Carrier{2160, VideoStandardCreator::add2160_6g},  Carrier{2160, VideoStandardCreator::add2160_12g},
};

VideoStandardFields fieldsOf(const VideoFormat& format)
{
    const bool isWide = format.width == 2048 || format.width == 4096;
    const bool isSd = format.height <= 576;
    return {.transport = format.interlaced ? TransportFormat::Interlaced : TransportFormat::Progressive,
            .picture = format.interlaced ? PictureFormat::Interlaced : PictureFormat::Progressive,
            .rate = rateCodeOf(format),
            .sampling = format.sampling,
            .depth = format.depth,
            .aspect = isWide || isSd ? AspectRatio::FourByThreeOrUnknown : AspectRatio::SixteenByNine,
            .array = isWide ? HorizontalPixelArraySize::Size2048 : HorizontalPixelArraySize::Size1920,
            .colourimetry = format.colourimetry,
            .transfer = format.transfer};
}

/// Whether a standard is a valid one and carries the very pictures, colours and the order of fields aside.
bool carries(const StandardFromPayloadIdentifier& standard, const VideoFormat& wanted)
{
    if (!standard.getFirstPayloadIdentifier().doSmpteValidationChecks().isEmpty())
        return false;
    auto made = formatOf(standard);
    if (!made)
        return false;
    made->colourimetry = wanted.colourimetry;
    made->transfer = wanted.transfer;
    made->topFieldFirst = wanted.topFieldFirst;
    made->rateNumerator = wanted.rateNumerator;
    made->rateDenominator = wanted.rateDenominator;
    return *made == wanted && standard.getPictureRate() == rateCodeOf(wanted);
}

std::optional<StandardFromPayloadIdentifier> findStandard(VideoFormat format)
{
    // Of the 486 active lines of 525, coded pictures have 480.
    if (format.width == 720 && format.height == 480)
        format.height = 486;
    for (const Carrier& carrier : kCarriers) {
        if (carrier.height != format.height)
            continue;
        VideoStandardList made;
        carrier.create(made, fieldsOf(format));
        if (carries(*made.front(), format))
            return *made.front();
    }
    return std::nullopt;
}

} // namespace

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

bool isFullRange(BitDepth depth)
{
    return depth == BitDepth::Bits10FullRange || depth == BitDepth::Bits12FullRange;
}

bool isRgb(SampleStructure sampling)
{
    return sampling == SampleStructure::Rgb444 || sampling == SampleStructure::RgbA4444;
}

bool isChromaHalved(SampleStructure sampling)
{
    return sampling == SampleStructure::YCbCr422 || sampling == SampleStructure::YCbCrA4224;
}

bool hasAlpha(SampleStructure sampling)
{
    return sampling == SampleStructure::YCbCrA4224 || sampling == SampleStructure::YCbCrA4444
        || sampling == SampleStructure::RgbA4444;
}

std::chrono::nanoseconds timeOfFrame(const VideoFormat& format, std::uint64_t number)
{
    // Whole periods of the rate apart from the rest: the product of all would not fit 64 bits for long.
    const auto numerator = static_cast<std::uint64_t>(format.rateNumerator);
    const auto denominator = static_cast<std::uint64_t>(format.rateDenominator);
    const std::uint64_t seconds = number / numerator * denominator;
    const std::uint64_t rest = number % numerator * denominator;
    const std::uint64_t nanoseconds = rest % numerator * std::nano::den / numerator;
    return std::chrono::seconds(seconds + rest / numerator) + std::chrono::nanoseconds(nanoseconds);
}

std::optional<VideoFormat> formatOf(const StandardFromPayloadIdentifier& standard)
{
    const QSize size = standard.getReconsutructedImageDimensionsInPixels();
    const FrameRate rate = SdiUtility::convertPictureRateToFrameRate(standard.getPictureRate());
    const InterlacedProgressivePsf scan = standard.getScan();
    const bool isKnown = !size.isEmpty() && rate.numerator != 0 && scan != InterlacedProgressivePsf::Undefined
        && standard.getBitDepth() != BitDepth::Reserved;
    const bool isYCbCr =
        standard.getLuminanceAndColourDifferenceSignal() == LuminanceAndColourDifferenceSignal::YCbCr;
    if (!isKnown || !isYCbCr || !isHandled(standard.getSampleStructure()))
        return std::nullopt;
    VideoFormat format;
    format.width = size.width();
    format.height = size.height();
    format.rateNumerator = static_cast<int>(rate.numerator);
    format.rateDenominator = static_cast<int>(rate.denominator);
    format.interlaced = scan == InterlacedProgressivePsf::Interlaced;
    format.topFieldFirst = !standard.isSd525i();
    format.sampling = standard.getSampleStructure();
    format.depth = standard.getBitDepth();
    format.colourimetry = standard.getColourimetry();
    format.transfer = standard.getTransferCurve();
    return format;
}

std::optional<StandardFromPayloadIdentifier> standardOf(const VideoFormat& format)
{
    if (rateCodeOf(format) == PictureRate::None)
        return std::nullopt;
    auto standard = findStandard(format);
    if (!standard && format.depth == BitDepth::Bits8) {
        VideoFormat widened = format;
        widened.depth = BitDepth::Bits10;
        standard = findStandard(widened);
    }
    return standard;
}

QString toText(const VideoFormat& format)
{
    using namespace SdiUtility;
    const PictureRate code = rateCodeOf(format);
    const auto picture = format.interlaced ? PictureFormat::Interlaced : PictureFormat::Progressive;
    const double hertz = static_cast<double>(format.rateNumerator) / format.rateDenominator;
    const QString rate = code != PictureRate::None
        ? convertPictureRateToString(code, picture)
        : QString::number(std::round(hertz * (format.interlaced ? 200 : 100)) / 100);
    return QStringLiteral("%1x%2%3%4 %5:%6 %7 %8")
        .arg(QString::number(format.width), QString::number(format.height),
             QLatin1String(format.interlaced ? "i" : "p"), rate,
             convertSampleStructureToString(format.sampling), convertBitDepthToString(format.depth),
             convertTransferCurveToString(format.transfer), convertColourimetryToString(format.colourimetry));
}

} // namespace Velmora::Server::VideoFormats
