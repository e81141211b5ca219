#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/waveform/WaveformGeometry.h"
#include "types/waveform/WaveformTypes.h"

#include <array>
#include <optional>

namespace Velmora::Server {

/// Everything that can be set about a waveform. The defaults give the picture of a new window.
struct WaveformSettings {
    WaveformTypes::DisplayMode displayMode = WaveformTypes::DisplayMode::YCbCr;
    WaveformTypes::CustomChannels customChannels{};
    WaveformTypes::Presentation presentation = WaveformTypes::Presentation::Parade;
    bool fullWidth = false;
    WaveformTypes::WaveformView view;
    WaveformTypes::Filter filter = WaveformTypes::Filter::Technical;
    WaveformTypes::ColourMode colourMode = WaveformTypes::ColourMode::Colour;
    /// By channel, about 0 % and the zero of Cb and Cr.
    std::array<double, WaveformTypes::kChannels> gains{1.0, 1.0, 1.0, 1.0};

    /// 0 to 1. In the middle a level that half of all lines have is at full light; the range is 1 : 100.
    double brightness = 0.5;
    /// Light grows with the share of the lines that have a level, to this power: the smaller, the better rare
    /// levels can be seen.
    double gamma = 0.3;
    /// How fast light comes and goes: the time after which 63 % of a change is done; 0 is at once.
    double attackSeconds = 0.0;
    double decaySeconds = 0.0;

    /// The only line that is shown, counted from 0 from the top of the picture; a number behind the last line
    /// shows that.
    std::optional<int> singleLine;
    WaveformTypes::FullRangeMode fullRangeMode = WaveformTypes::FullRangeMode::Rp2077;
    WaveformTypes::OnVideoLoss onVideoLoss = WaveformTypes::OnVideoLoss::Clear;
    /// In place of what the signal says of itself.
    std::optional<Sdi::PayloadId::Colourimetry> colourimetry;

    friend bool operator==(const WaveformSettings&, const WaveformSettings&) = default;
};

} // namespace Velmora::Server
