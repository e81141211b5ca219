#include "types/waveform/WaveformTypes.h"

#include <initializer_list>

namespace Velmora::WaveformTypes {

namespace {

std::initializer_list<Component> componentsOf(DisplayMode mode)
{
    using enum Component;
    static constexpr std::initializer_list<Component> kYCbCr{Y, Cb, Cr};
    static constexpr std::initializer_list<Component> kYCbCrA{Y, Cb, Cr, Alpha};
    static constexpr std::initializer_list<Component> kRgb{Red, Green, Blue};
    static constexpr std::initializer_list<Component> kGbr{Green, Blue, Red};
    static constexpr std::initializer_list<Component> kYrgb{Y, Red, Green, Blue};
    static constexpr std::initializer_list<Component> kYgbr{Y, Green, Blue, Red};
    static constexpr std::initializer_list<Component> kRgba{Red, Green, Blue, Alpha};
    static constexpr std::initializer_list<Component> kGbra{Green, Blue, Red, Alpha};
    switch (mode) {
    case DisplayMode::YCbCr:
        return kYCbCr;
    case DisplayMode::YCbCrA:
        return kYCbCrA;
    case DisplayMode::Rgb:
        return kRgb;
    case DisplayMode::Gbr:
        return kGbr;
    case DisplayMode::Yrgb:
        return kYrgb;
    case DisplayMode::Ygbr:
        return kYgbr;
    case DisplayMode::Rgba:
        return kRgba;
    case DisplayMode::Gbra:
        return kGbra;
    case DisplayMode::Custom:
        break;
    }
    return {};
}

} // namespace

std::vector<Channel> channelsOf(DisplayMode mode, const CustomChannels& custom)
{
    std::vector<Channel> channels;
    if (mode == DisplayMode::Custom) {
        for (std::size_t i = 0; i < kChannels; ++i)
            if (custom[i].shown)
                channels.push_back({i, custom[i].component});
    }
    for (const Component component : componentsOf(mode))
        channels.push_back({channels.size(), component});
    return channels;
}

} // namespace Velmora::WaveformTypes
