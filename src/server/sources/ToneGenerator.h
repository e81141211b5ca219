#pragma once

#include "server/sources/AudioSource.h"
#include "server/sources/BurstProgramme.h"
#include "server/sources/ChannelIdent.h"
#include "server/sources/PinkNoise.h"

#include <optional>

namespace Velmora::Server {

enum class ToneSignal { Silence, Sine, Sweep, PinkNoise, Bursts };

/// What one channel of the tone generator sends. Values out of range are limited, not numbers (NaN) replaced
/// by the default.
struct ToneChannel {
    static constexpr double kLowestHz = 1.0;
    static constexpr double kHighestHz = kAudioSampleRate / 2.0 - 1.0;
    static constexpr double kHighestDbfs = 24.0;

    ToneSignal signal = ToneSignal::Sine;
    /// Of the sine and the bursts; where the sweep begins.
    double frequencyHz = 1000.0;
    /// Peak level of a sine; for noise, r.m.s. level of the sine of that level. Up to +24; below -200 is
    /// silence.
    double levelDbfs = -18.0;
    /// Advance against the other channels, for the phase of a pair.
    double phaseDegrees = 0.0;

    /// The sweep moves logarithmically from frequencyHz to here, then begins anew without a break in phase.
    double sweepEndHz = 20000.0;
    double sweepSeconds = 10.0;

    BurstProgramme burstProgramme = BurstProgramme::TypeI;
    /// Length and repetition of BurstProgramme::Single.
    double burstSeconds = 0.010;
    double burstPeriodSeconds = BurstTimer::kSlotSeconds;

    IdentPattern ident = IdentPattern::None;
    bool muted = false;

    bool operator==(const ToneChannel&) const = default;
};

/// Sine, sweep, pink noise and tone bursts, different ones on each of up to 16 channels.
///
/// Phases are 64-bit fractions of a cycle: no drift, and no dependence on the block size. Channels of the
/// same frequency that were set up alike, or changed between the same two reads, stay coherent. A change of
/// settings acts from the next sample to be read: frequency changes keep the phase; a change of signal, or of
/// the figures of a sweep or burst programme, begins the signal anew; muted channels go on running silently.
class ToneGenerator : public AudioSource {
public:
    /// @p channelCount (0 to 16) channels are present, each with 1 kHz at -18 dBFS (EBU R 68 alignment
    /// level). The same @p seed gives the same noise; its channels are independent of each other.
    explicit ToneGenerator(std::size_t channelCount = kAudioChannels, std::uint64_t seed = 1);

    std::size_t channelCount() const { return m_channelCount; }
    /// The settings of a channel (0 to 15) with their limits applied.
    const ToneChannel& channel(std::size_t channel) const { return m_channels.at(channel).settings; }
    /// Channels beyond channelCount() can be set, without effect.
    void setChannel(std::size_t channel, const ToneChannel& settings);
    void setAllChannels(const ToneChannel& settings);

    [[nodiscard]] AudioBlock read(const AudioPlanes& planes) override;
    std::uint64_t position() const override { return m_position; }

private:
    struct Channel {
        ToneChannel settings;
        std::uint64_t phase = 0;
        std::uint64_t startPosition = 0;
        double sweepHz = 0.0;
        std::optional<PinkNoise> noise;
    };

    void restart(Channel& channel, std::size_t index);
    void render(std::size_t index, float* out, std::size_t frames);
    static void renderSine(Channel& channel, float* out, std::size_t frames);
    void renderSweep(Channel& channel, float* out, std::size_t frames) const;
    static void renderNoise(Channel& channel, float* out, std::size_t frames);
    void renderBursts(Channel& channel, float* out, std::size_t frames) const;
    void interrupt(std::size_t index, float* out, std::size_t frames) const;

    std::size_t m_channelCount;
    std::uint64_t m_seed;
    std::uint64_t m_position = 0;
    std::array<Channel, kAudioChannels> m_channels;
};

} // namespace Velmora::Server
