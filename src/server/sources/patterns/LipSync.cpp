#include "server/sources/patterns/LipSync.h"

#include "server/sources/patterns/BurntInText.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Velmora::Server {

namespace {

constexpr std::size_t kDigits = 3;
constexpr double kClickHz = 1000.0;
constexpr double kClickDbfs = -18.0;

BurntInText counterOf(const PictureCanvas& canvas)
{
    return {canvas.width() / 8, canvas.height() / 2, std::max(canvas.height() / 36, 1)};
}

void paintBlack(PictureCanvas& canvas, std::uint64_t sinceFlash)
{
    canvas.fill(canvas.codes().grey(0.0));
    const int dot = std::max(canvas.height() / 72, 1);
    BurntInText(canvas.width() / 8, canvas.height() / 4, dot).paint(canvas, "LIP SYNC");
    counterOf(canvas).paint(canvas, BurntInText::number(sinceFlash, kDigits));
}

} // namespace

unsigned LipSync::period(const VideoFormat& format)
{
    const auto rate = std::lround(static_cast<double>(format.rateNumerator) / format.rateDenominator);
    return static_cast<unsigned>(std::max(rate, 2L));
}

void LipSync::paint(PictureCanvas& canvas) const
{
    canvas.fill(canvas.codes().grey(1.0));
}

void LipSync::advance(PictureCanvas& canvas, std::uint64_t number) const
{
    const std::uint64_t sinceFlash = number % period(canvas.format());
    if (sinceFlash == 0)
        paint(canvas);
    else if (sinceFlash == 1)
        paintBlack(canvas, sinceFlash);
    else
        counterOf(canvas).repaint(canvas, BurntInText::number(sinceFlash - 1, kDigits),
                                  BurntInText::number(sinceFlash, kDigits));
}

ClickTrack::ClickTrack(const VideoFormat& format)
    : m_frameRateNumerator(static_cast<std::uint64_t>(format.rateNumerator))
    , m_frameRateDenominator(static_cast<std::uint64_t>(format.rateDenominator))
    , m_period(LipSync::period(format))
{
}

AudioBlock ClickTrack::read(const AudioPlanes& planes)
{
    AudioBlock block;
    block.frames = planes.frames;
    block.position = m_position;
    for (std::size_t frame = 0; frame < planes.frames; ++frame) {
        const float sample = sampleAt(m_position++);
        for (float* const plane : planes.channels) {
            if (plane)
                plane[frame] = sample;
        }
    }
    std::copy(planes.channels.begin(), planes.channels.end(), block.channels.begin());
    return block;
}

float ClickTrack::sampleAt(std::uint64_t position) const
{
    // In units of which a video frame has kAudioSampleRate x denominator and a sample has numerator.
    const std::uint64_t frame = m_frameRateDenominator * kAudioSampleRate;
    const std::uint64_t sincePeriod =
        position % (m_period * frame) * m_frameRateNumerator % (m_period * frame);
    if (sincePeriod >= frame)
        return 0.0F;
    const auto sample = static_cast<double>(sincePeriod / m_frameRateNumerator);
    const double amplitude = std::pow(10.0, kClickDbfs / 20.0);
    return static_cast<float>(amplitude
                              * std::sin(2.0 * std::numbers::pi * kClickHz * sample / kAudioSampleRate));
}

} // namespace Velmora::Server
