#include "server/sources/CodeValues.h"

#include "server/sources/VideoFormats.h"

#include <algorithm>
#include <cmath>

namespace Velmora::Server {

using Sdi::PayloadId::Colourimetry;

namespace {

struct Weights {
    double red;
    double blue;
};

Weights weightsOf(Colourimetry colourimetry)
{
    switch (colourimetry) {
    case Colourimetry::Rec601:
        return {0.299, 0.114};
    case Colourimetry::Rec2020:
        return {0.2627, 0.0593};
    default:
        return {0.2126, 0.0722};
    }
}

} // namespace

CodeValues::CodeValues(const VideoFormat& format)
    : m_bits(VideoFormats::bitsOf(format.depth))
    , m_isFullRange(VideoFormats::isFullRange(format.depth))
    , m_isRgb(VideoFormats::isRgb(format.sampling))
    , m_redWeight(weightsOf(format.colourimetry).red)
    , m_blueWeight(weightsOf(format.colourimetry).blue)
{
}

std::uint16_t CodeValues::level(double level) const
{
    const double code =
        m_isFullRange ? ((1 << m_bits) - 1) * level : std::ldexp(219.0 * level + 16.0, m_bits - 8);
    return limited(code);
}

std::uint16_t CodeValues::difference(double difference) const
{
    const double code = m_isFullRange ? ((1 << m_bits) - 1) * difference + (1 << (m_bits - 1))
                                      : std::ldexp(224.0 * difference + 128.0, m_bits - 8);
    return limited(code);
}

double CodeValues::levelOf(double code) const
{
    return m_isFullRange ? code / ((1 << m_bits) - 1) : (std::ldexp(code, 8 - m_bits) - 16.0) / 219.0;
}

std::uint16_t CodeValues::fromTenBits(int code) const
{
    return limited(std::ldexp(code, m_bits - 10));
}

Colour CodeValues::colour(const Rgb& rgb) const
{
    if (m_isRgb)
        return {level(rgb[0]), level(rgb[1]), level(rgb[2])};
    const double luma =
        m_redWeight * rgb[0] + (1.0 - m_redWeight - m_blueWeight) * rgb[1] + m_blueWeight * rgb[2];
    return {level(luma), difference((rgb[2] - luma) / (2.0 * (1.0 - m_blueWeight))),
            difference((rgb[0] - luma) / (2.0 * (1.0 - m_redWeight)))};
}

Colour CodeValues::greyCode(std::uint16_t code) const
{
    const std::uint16_t other = m_isRgb ? code : difference(0.0);
    return {code, other, other};
}

std::uint16_t CodeValues::limited(double code) const
{
    return static_cast<std::uint16_t>(std::clamp(std::floor(code + 0.5), 0.0, std::ldexp(1.0, m_bits) - 1));
}

} // namespace Velmora::Server
