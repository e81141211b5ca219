#include "server/measure/DolbyELine.h"

#include "server/sources/AudioBlock.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Velmora::Server::DolbyELine {

namespace {

struct Raster {
    int activeLines;
    int totalLines;
};
/// ST 125, BT.656, ST 296, ST 274, and twice that.
constexpr std::array<Raster, 5> kRasters{{{486, 525}, {576, 625}, {720, 750}, {1080, 1125}, {2160, 2250}}};

struct Ideal {
    int totalLines;
    int framesPerSecond; ///< rounded up
    int line;
};
constexpr std::array<Ideal, 4> kIdealLines{{{625, 25, 12}, {1125, 25, 21}, {525, 30, 14}, {1125, 30, 24}}};

/// For other rasters: seconds from the start of the frame, as the lines above have it in the middle.
constexpr double kIdeal25 = 757e-6;
constexpr double kIdeal30 = 711e-6;

std::optional<int> totalLinesOf(const VideoFormat& format)
{
    const auto* const found = std::find_if(kRasters.begin(), kRasters.end(), [&](const Raster& raster) {
        return raster.activeLines == format.height;
    });
    return found == kRasters.end() || format.rateNumerator <= 0 ? std::nullopt
                                                                : std::optional(found->totalLines);
}

} // namespace

std::optional<int> lineAt(std::uint64_t position, const VideoFormat& format)
{
    const auto lines = totalLinesOf(format);
    if (!lines)
        return std::nullopt;
    // In units of one sample over the rate's numerator, in which both frames and samples are whole.
    const auto frame =
        static_cast<std::uint64_t>(kAudioSampleRate) * static_cast<std::uint64_t>(format.rateDenominator);
    const std::uint64_t within = position % frame * static_cast<std::uint64_t>(format.rateNumerator) % frame;
    return static_cast<int>(within * static_cast<std::uint64_t>(*lines) / frame) + 1;
}

std::optional<int> idealLine(const VideoFormat& format)
{
    const auto lines = totalLinesOf(format);
    if (!lines)
        return std::nullopt;
    const double rate = static_cast<double>(format.rateNumerator) / format.rateDenominator;
    const int rounded = static_cast<int>(std::ceil(rate));
    const auto* const found = std::find_if(kIdealLines.begin(), kIdealLines.end(), [&](const Ideal& ideal) {
        return format.interlaced && ideal.totalLines == *lines && ideal.framesPerSecond == rounded;
    });
    if (found != kIdealLines.end())
        return found->line;
    const double offset = rounded % 30 == 0 ? kIdeal30 : kIdeal25;
    return static_cast<int>(std::lround(offset * rate * *lines));
}

} // namespace Velmora::Server::DolbyELine
