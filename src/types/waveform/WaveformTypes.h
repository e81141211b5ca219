#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// What both ends say about a waveform.
namespace Velmora::WaveformTypes {

enum class Component : std::uint8_t { Y, Cb, Cr, Red, Green, Blue, Alpha };
inline constexpr std::size_t kComponents = 7;
/// In the place of a component: none.
inline constexpr unsigned kNoComponent = kComponents;

/// Cb and Cr have zero in the middle of their scale.
constexpr bool isColourDifference(Component component)
{
    return component == Component::Cb || component == Component::Cr;
}

/// The sets of components, in the order of their menu.
enum class DisplayMode : std::uint8_t { YCbCr, YCbCrA, Rgb, Gbr, Yrgb, Ygbr, Rgba, Gbra, Custom };

/// The cells of a waveform: side by side, one above the other, or all in one.
enum class Presentation : std::uint8_t { Parade, Stacked, Overlay };

enum class Filter : std::uint8_t { Technical, Production, LowPass, Raw };

enum class ColourMode : std::uint8_t { Colour, Highlight, Monochrome };

/// Which codes of a full-range signal are 0 and 100 %.
enum class FullRangeMode : std::uint8_t { Rp2077, SdiProtected };

/// What the left scale counts in.
enum class VerticalScale : std::uint8_t { Percent, Hex, Decimal, Millivolts };

enum class HorizontalScale : std::uint8_t { PercentOfLine, Pixels };

/// Where the scale of luminance stands.
enum class NitsScaleSide : std::uint8_t { Right, Left };

/// How S-Log3 is understood: where its reference white stands.
enum class SLog3Mode : std::uint8_t { SLog3, SrLive };

/// What a waveform shows while there is no signal.
enum class OnVideoLoss : std::uint8_t { Clear, Hold };

inline constexpr std::size_t kChannels = 4;

/// A channel of the custom display mode shows a component or nothing.
struct CustomChannel {
    bool shown = false;
    Component component = Component::Y;

    friend bool operator==(const CustomChannel&, const CustomChannel&) = default;
};
using CustomChannels = std::array<CustomChannel, kChannels>;

/// What one cell shows. The number of the channel selects the gain.
struct Channel {
    std::size_t number = 0;
    Component component = Component::Y;

    friend bool operator==(const Channel&, const Channel&) = default;
};

/// The channels that a mode shows, in the order of their cells; @p custom counts for DisplayMode::Custom
/// only.
std::vector<Channel> channelsOf(DisplayMode mode, const CustomChannels& custom);

} // namespace Velmora::WaveformTypes
