#include "types/sdi/RasterTiming.h"

#include <algorithm>
#include <array>
#include <optional>

namespace Velmora::Sdi {

using namespace PayloadId;

namespace {

/// Rates that differ by 1000/1001 only share a raster.
enum class NominalRate { Of24, Of25, Of30, Of48, Of50, Of60 };

std::optional<NominalRate> nominalRate(PictureRate rate)
{
    switch (rate) {
    case PictureRate::Rate23_98:
    case PictureRate::Rate24:
        return NominalRate::Of24;
    case PictureRate::Rate25:
        return NominalRate::Of25;
    case PictureRate::Rate29_97:
    case PictureRate::Rate30:
        return NominalRate::Of30;
    case PictureRate::Rate47_95:
    case PictureRate::Rate48:
        return NominalRate::Of48;
    case PictureRate::Rate50:
        return NominalRate::Of50;
    case PictureRate::Rate59_94:
    case PictureRate::Rate60:
        return NominalRate::Of60;
    default:
        return std::nullopt;
    }
}

struct RasterRow {
    NominalRate rate;
    RasterTiming timing;
};

constexpr std::array kRasters{
    // ST 125 and BT.656
    RasterRow{NominalRate::Of30, {858, 720, 16, 525, 486}},
    RasterRow{NominalRate::Of25, {864, 720, 12, 625, 576}},
    // ST 296
    RasterRow{NominalRate::Of60, {1650, 1280, 110, 750, 720}},
    RasterRow{NominalRate::Of50, {1980, 1280, 440, 750, 720}},
    RasterRow{NominalRate::Of30, {3300, 1280, 1760, 750, 720}},
    RasterRow{NominalRate::Of25, {3960, 1280, 2420, 750, 720}},
    RasterRow{NominalRate::Of24, {4125, 1280, 2585, 750, 720}},
    // ST 274; 48 frames with 1920 samples are not in it but in use
    RasterRow{NominalRate::Of60, {2200, 1920, 88, 1125, 1080}},
    RasterRow{NominalRate::Of50, {2640, 1920, 528, 1125, 1080}},
    RasterRow{NominalRate::Of48, {2750, 1920, 638, 1125, 1080}},
    RasterRow{NominalRate::Of30, {2200, 1920, 88, 1125, 1080}},
    RasterRow{NominalRate::Of25, {2640, 1920, 528, 1125, 1080}},
    RasterRow{NominalRate::Of24, {2750, 1920, 638, 1125, 1080}},
    // ST 2048-2. The format has no analogue form, so that no standard places 0H. Unconfirmed: half of the
    // CTA-861 timing of 4096x2160 is taken.
    RasterRow{NominalRate::Of60, {2200, 2048, 44, 1125, 1080}},
    RasterRow{NominalRate::Of50, {2640, 2048, 484, 1125, 1080}},
    RasterRow{NominalRate::Of48, {2750, 2048, 510, 1125, 1080}},
    RasterRow{NominalRate::Of30, {2200, 2048, 44, 1125, 1080}},
    RasterRow{NominalRate::Of25, {2640, 2048, 484, 1125, 1080}},
    RasterRow{NominalRate::Of24, {2750, 2048, 510, 1125, 1080}},
};

constexpr RasterTiming doubled(const RasterTiming& timing)
{
    return {2 * timing.totalWidth, 2 * timing.activeWidth, 2 * timing.frontPorch, 2 * timing.totalLines,
            2 * timing.activeLines};
}

} // namespace

FirstActiveLines firstActiveLines(unsigned activeHeight)
{
    switch (activeHeight) {
    case 486:
        return {.progressive = 0, .field1 = 21, .field2 = 283};
    case 576:
        return {.progressive = 0, .field1 = 23, .field2 = 336};
    case 720:
        return {.progressive = 26};
    case 1080:
        return {.progressive = 42, .field1 = 21, .field2 = 584};
    case 2160:
        return {.progressive = 2 * (42 - 1) + 1};
    default:
        return {};
    }
}

RasterTiming rasterTiming(unsigned activeWidth, unsigned activeHeight, PictureRate rate)
{
    if (activeHeight == 2160)
        return doubled(rasterTiming(activeWidth / 2, activeHeight / 2, rate));
    const auto nominal = nominalRate(rate);
    const auto row = std::find_if(kRasters.begin(), kRasters.end(), [&](const RasterRow& candidate) {
        return candidate.rate == nominal && candidate.timing.activeWidth == activeWidth
            && candidate.timing.activeLines == activeHeight;
    });
    return row == kRasters.end() ? RasterTiming{} : row->timing;
}

} // namespace Velmora::Sdi
