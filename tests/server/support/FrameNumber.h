#pragma once

#include "feed/PictureView.h"
#include "server/sources/patterns/FrameCounterStrip.h"
#include "types/waveform/WaveformGeometry.h"

#include <cstdint>
#include <optional>

/// The number of the frame that a picture of the waveform was made of: the strip of the frame counter, read
/// back from the luma of its first cell. Nothing when there is no strip to be seen.
inline std::optional<std::uint32_t> frameNumberOf(const Velmora::Feed::PictureView& view,
                                                  const Velmora::WaveformTypes::WaveformGeometry& geometry)
{
    using Strip = Velmora::Server::FrameCounterStrip;
    const QRect image = geometry.imageRect();
    if (view.width != image.width() || view.height != image.height())
        return std::nullopt;
    const QRect cell = geometry.cells().front();
    const auto light = [&](int field, double percent) {
        const int column = geometry.column((field + 0.5) / Strip::kFields);
        return view.pixels[(cell.y() + geometry.row(percent)) * view.stride + cell.x() + column] >> 24;
    };
    std::uint32_t number = 0;
    for (int field = 0; field < Strip::kFields; ++field) {
        const auto white = light(field, 100.0);
        const auto black = light(field, 0.0);
        const bool isEnd = field == 0 || field == Strip::kFields - 1;
        if (white == black || (isEnd && white < black))
            return std::nullopt;
        if (!isEnd)
            number = number << 1 | (white > black ? 1U : 0U);
    }
    return number;
}
