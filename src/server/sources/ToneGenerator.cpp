#include "server/sources/ToneGenerator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Velmora::Server {

namespace {

constexpr std::size_t kPieceFrames = 256;

/// The part of a cycle that a frequency advances per sample, in 2^-64 cycles.
std::uint64_t increment(double hz)
{
    return static_cast<std::uint64_t>(std::ldexp(hz / kAudioSampleRate, 64));
}

std::uint64_t phaseOf(double degrees)
{
    const double turns = degrees / 360.0;
    // Less than one, except that a tiny negative angle rounds up to it.
    const double fraction = std::fmod(turns - std::floor(turns), 1.0);
    return static_cast<std::uint64_t>(std::ldexp(fraction, 64));
}

double sineAt(std::uint64_t phase)
{
    return std::sin(std::ldexp(static_cast<double>(static_cast<std::int64_t>(phase)), -63)
                    * std::numbers::pi);
}

double amplitude(const ToneChannel& settings)
{
    constexpr double kSilenceDbfs = -200.0;
    return settings.levelDbfs < kSilenceDbfs ? 0.0 : std::pow(10.0, settings.levelDbfs / 20.0);
}

double limited(double value, double lowest, double highest, double fallback)
{
    return std::isnan(value) ? fallback : std::clamp(value, lowest, highest);
}

ToneChannel limited(ToneChannel settings)
{
    const ToneChannel fallback;
    constexpr double kDay = 24.0 * 3600.0;
    constexpr double kOneSample = 1.0 / kAudioSampleRate;
    const auto limit = [&](double ToneChannel::*figure, double lowest, double highest) {
        settings.*figure = limited(settings.*figure, lowest, highest, fallback.*figure);
    };
    limit(&ToneChannel::frequencyHz, ToneChannel::kLowestHz, ToneChannel::kHighestHz);
    limit(&ToneChannel::levelDbfs, -1000.0, ToneChannel::kHighestDbfs);
    limit(&ToneChannel::phaseDegrees, -36000.0, 36000.0);
    limit(&ToneChannel::sweepEndHz, ToneChannel::kLowestHz, ToneChannel::kHighestHz);
    limit(&ToneChannel::sweepSeconds, kOneSample, kDay);
    limit(&ToneChannel::burstSeconds, 0.0, kDay);
    limit(&ToneChannel::burstPeriodSeconds, kOneSample, kDay);
    return settings;
}

std::uint64_t sweepFrames(const ToneChannel& settings)
{
    return std::max<std::uint64_t>(
        static_cast<std::uint64_t>(std::llround(settings.sweepSeconds * kAudioSampleRate)), 1);
}

/// Whether going from one setting to the other begins the signal anew.
bool needsRestart(const ToneChannel& from, const ToneChannel& to)
{
    if (from.signal != to.signal)
        return true;
    switch (to.signal) {
    case ToneSignal::Sweep:
        return from.frequencyHz != to.frequencyHz || from.sweepEndHz != to.sweepEndHz
            || from.sweepSeconds != to.sweepSeconds;
    case ToneSignal::Bursts:
        return from.burstProgramme != to.burstProgramme || from.burstSeconds != to.burstSeconds
            || from.burstPeriodSeconds != to.burstPeriodSeconds;
    case ToneSignal::Silence:
    case ToneSignal::Sine:
    case ToneSignal::PinkNoise:
        break;
    }
    return false;
}

} // namespace

ToneGenerator::ToneGenerator(std::size_t channelCount, std::uint64_t seed)
    : m_channelCount(std::min(channelCount, kAudioChannels))
    , m_seed(seed)
{
}

void ToneGenerator::setChannel(std::size_t index, const ToneChannel& settings)
{
    auto& channel = m_channels.at(index);
    const auto wanted = limited(settings);
    const bool anew = needsRestart(channel.settings, wanted);
    channel.settings = wanted;
    if (anew)
        restart(channel, index);
}

void ToneGenerator::setAllChannels(const ToneChannel& settings)
{
    for (std::size_t index = 0; index < kAudioChannels; ++index)
        setChannel(index, settings);
}

void ToneGenerator::restart(Channel& channel, std::size_t index)
{
    const auto& settings = channel.settings;
    channel.startPosition = m_position;
    // A sine starts where it would be if it had always run: coherent with its fellows on other channels.
    channel.phase = settings.signal == ToneSignal::Sine ? increment(settings.frequencyHz) * m_position : 0;
    channel.noise.reset();
    if (settings.signal == ToneSignal::PinkNoise)
        channel.noise.emplace(m_seed * kAudioChannels + index);
}

AudioBlock ToneGenerator::read(const AudioPlanes& planes)
{
    AudioBlock block;
    block.frames = planes.frames;
    block.position = m_position;
    for (std::size_t index = 0; index < m_channelCount; ++index)
        block.channels[index] = planes.channels[index];

    for (std::size_t done = 0; done < planes.frames;) {
        const auto frames = std::min(kPieceFrames, planes.frames - done);
        for (std::size_t index = 0; index < m_channelCount; ++index) {
            float unwanted[kPieceFrames];
            float* const plane = planes.channels[index];
            render(index, plane ? plane + done : unwanted, frames);
        }
        m_position += frames;
        done += frames;
    }
    return block;
}

void ToneGenerator::render(std::size_t index, float* out, std::size_t frames)
{
    auto& channel = m_channels[index];
    switch (channel.settings.signal) {
    case ToneSignal::Silence:
        std::fill_n(out, frames, 0.0F);
        break;
    case ToneSignal::Sine:
        renderSine(channel, out, frames);
        break;
    case ToneSignal::Sweep:
        renderSweep(channel, out, frames);
        break;
    case ToneSignal::PinkNoise:
        renderNoise(channel, out, frames);
        break;
    case ToneSignal::Bursts:
        renderBursts(channel, out, frames);
        break;
    }
    if (channel.settings.muted)
        std::fill_n(out, frames, 0.0F);
    else if (channel.settings.ident != IdentPattern::None)
        interrupt(index, out, frames);
}

void ToneGenerator::renderSine(Channel& channel, float* out, std::size_t frames)
{
    const double peak = amplitude(channel.settings);
    const auto step = increment(channel.settings.frequencyHz);
    const auto offset = phaseOf(channel.settings.phaseDegrees);
    for (std::size_t i = 0; i < frames; ++i, channel.phase += step)
        out[i] = static_cast<float>(peak * sineAt(channel.phase + offset));
}

void ToneGenerator::renderSweep(Channel& channel, float* out, std::size_t frames) const
{
    const auto& settings = channel.settings;
    const double peak = amplitude(settings);
    const auto offset = phaseOf(settings.phaseDegrees);
    const auto length = sweepFrames(settings);
    const double ratio =
        std::pow(settings.sweepEndHz / settings.frequencyHz, 1.0 / static_cast<double>(length));
    auto elapsed = (m_position - channel.startPosition) % length;
    for (std::size_t i = 0; i < frames; ++i) {
        if (elapsed == 0)
            channel.sweepHz = settings.frequencyHz; // also ends the growth of rounding errors
        out[i] = static_cast<float>(peak * sineAt(channel.phase + offset));
        channel.phase += increment(channel.sweepHz);
        channel.sweepHz *= ratio;
        elapsed = elapsed + 1 == length ? 0 : elapsed + 1;
    }
}

void ToneGenerator::renderNoise(Channel& channel, float* out, std::size_t frames)
{
    const double level = amplitude(channel.settings);
    for (std::size_t i = 0; i < frames; ++i)
        out[i] = static_cast<float>(level * channel.noise->next());
}

void ToneGenerator::renderBursts(Channel& channel, float* out, std::size_t frames) const
{
    const auto& settings = channel.settings;
    const double peak = amplitude(settings);
    const auto step = increment(settings.frequencyHz);
    const auto offset = phaseOf(settings.phaseDegrees);
    const BurstTimer timer(settings.burstProgramme, settings.burstSeconds, settings.burstPeriodSeconds);
    for (std::size_t i = 0; i < frames; ++i) {
        const auto moment = timer.at(m_position - channel.startPosition + i);
        out[i] = moment.on ? static_cast<float>(peak * sineAt(step * moment.sinceStart + offset)) : 0.0F;
    }
}

void ToneGenerator::interrupt(std::size_t index, float* out, std::size_t frames) const
{
    const auto pattern = m_channels[index].settings.ident;
    for (std::size_t i = 0; i < frames; ++i)
        if (!identIsOn(pattern, index, m_position + i))
            out[i] = 0.0F;
}

} // namespace Velmora::Server
