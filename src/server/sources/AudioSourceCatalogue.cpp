#include "server/sources/AudioSourceCatalogue.h"

#include "server/sources/ToneGenerator.h"

#include <algorithm>

namespace Velmora::Server::AudioSourceCatalogue {

namespace {

/// Between the levels of neighbouring channels of "levels".
constexpr double kLevelStepDb = 3.0;

/// A generator whose channels @p configure sets up from the default, given their numbers from 0.
template<typename Configure>
std::unique_ptr<AudioSource> generator(std::uint64_t seed, Configure&& configure)
{
    auto source = std::make_unique<ToneGenerator>(kAudioChannels, seed);
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        ToneChannel settings;
        configure(settings, channel);
        source->setChannel(channel, settings);
    }
    return source;
}

std::unique_ptr<AudioSource> makeLevels(std::uint64_t seed)
{
    return generator(seed, [](ToneChannel& tone, std::size_t channel) {
        tone.levelDbfs = -kLevelStepDb * static_cast<double>(channel);
        // Every other pair is out of phase, so that a phase meter has something to show.
        tone.phaseDegrees = channel % 4 == 3 ? 180.0 : 0.0;
    });
}

std::unique_ptr<AudioSource> makeTone(std::uint64_t seed)
{
    return generator(seed, [](ToneChannel&, std::size_t) {});
}

template<ToneSignal Signal>
std::unique_ptr<AudioSource> makeSignal(std::uint64_t seed)
{
    return generator(seed, [](ToneChannel& tone, std::size_t) {
        tone.signal = Signal;
        if (Signal == ToneSignal::Sweep)
            tone.frequencyHz = 20.0;
    });
}

template<BurstProgramme Programme>
std::unique_ptr<AudioSource> makeBursts(std::uint64_t seed)
{
    return generator(seed, [](ToneChannel& tone, std::size_t) {
        tone.signal = ToneSignal::Bursts;
        tone.burstProgramme = Programme;
    });
}

std::unique_ptr<AudioSource> makeIdent(std::uint64_t seed)
{
    return generator(seed,
                     [](ToneChannel& tone, std::size_t) { tone.ident = IdentPattern::EbuMultichannel; });
}

} // namespace

const std::vector<Entry>& entries()
{
    static const std::vector<Entry> list{
        {"levels", "1 kHz, from 0 dBFS on channel 1 in steps of 3 dB down; every other pair out of phase",
         makeLevels},
        {"tone", "1 kHz at -18 dBFS on all channels", makeTone},
        {"ident", "1 kHz at -18 dBFS, each channel interrupted in its own pattern (EBU Tech 3304)",
         makeIdent},
        {"sweep", "20 Hz to 20 kHz in 10 s at -18 dBFS", makeSignal<ToneSignal::Sweep>},
        {"pink-noise", "pink noise at -18 dBFS, independent channels", makeSignal<ToneSignal::PinkNoise>},
        {"bursts-type-i", "the bursts that test a PPM Type I (IEC 60268-10)",
         makeBursts<BurstProgramme::TypeI>},
        {"bursts-type-ii", "the bursts that test a PPM Type II (IEC 60268-10)",
         makeBursts<BurstProgramme::TypeII>},
        {"silence", "silence on all channels", makeSignal<ToneSignal::Silence>},
    };
    return list;
}

std::unique_ptr<AudioSource> make(std::string_view name, std::uint64_t seed)
{
    const auto& all = entries();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Entry& entry) { return entry.name == name; });
    return found == all.end() ? nullptr : found->make(seed);
}

} // namespace Velmora::Server::AudioSourceCatalogue
