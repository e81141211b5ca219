#include "server/measure/AudioMeters.h"
#include "server/sources/ToneGenerator.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Velmora::Server;

namespace {

constexpr std::size_t kFrames = AudioMeters::kFramesPerReading * 50;
constexpr float kDecay = 0.99997F;

const AudioBuffer& programme()
{
    static const AudioBuffer buffer = [] {
        AudioBuffer made(kFrames);
        ToneGenerator generator;
        ToneChannel noise;
        noise.signal = ToneSignal::PinkNoise;
        generator.setAllChannels(noise);
        (void)generator.read(made.planes());
        return made;
    }();
    return buffer;
}

void countSamples(benchmark::State& state)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kFrames * kAudioChannels));
}

/// The measure: a bare peak envelope per detector, as many as there are ballistics, one plane after the
/// other.
void bareEnvelopes(benchmark::State& state)
{
    const auto& buffer = programme();
    float envelopes[kBallisticsCount][kAudioChannels] = {};
    for (auto _ : state) {
        for (auto& detector : envelopes) {
            for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
                const float* const plane = buffer.plane(channel);
                float envelope = detector[channel];
                for (std::size_t i = 0; i < kFrames; ++i)
                    envelope = std::max(std::abs(plane[i]), envelope * kDecay);
                detector[channel] = envelope;
            }
        }
        benchmark::DoNotOptimize(envelopes);
        benchmark::ClobberMemory();
    }
    countSamples(state);
}
BENCHMARK(bareEnvelopes);

/// A stricter measure: the same envelopes on samples that already lie channel beside channel, and in
/// vector instructions.
void bareEnvelopesVectorised(benchmark::State& state)
{
    const auto& buffer = programme();
    std::vector<Lanes> frames(kFrames);
    for (std::size_t i = 0; i < kFrames; ++i)
        for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
            frames[i].setChannel(channel, buffer.plane(channel)[i]);
    Lanes envelopes[kBallisticsCount] = {};
    for (auto _ : state) {
        for (auto& detector : envelopes) {
            Lanes envelope = detector;
            for (const auto& frame : frames)
                envelope = greater(magnitude(frame), envelope * kDecay);
            detector = envelope;
        }
        benchmark::DoNotOptimize(envelopes);
        benchmark::ClobberMemory();
    }
    countSamples(state);
}
BENCHMARK(bareEnvelopesVectorised);

void measure(benchmark::State& state, AudioMeters::Banks banks)
{
    AudioMeters meters(banks);
    const auto block = programme().block();
    float last = 0.0F;
    for (auto _ : state) {
        meters.process(block, [&](const AudioMeterReading& reading) { last = reading.levelDb()[0]; });
        benchmark::DoNotOptimize(last);
    }
    countSamples(state);
}
BENCHMARK_CAPTURE(measure, allBallistics, AudioMeters::Banks::All);
BENCHMARK_CAPTURE(measure, selectedOnly, AudioMeters::Banks::SelectedOnly);

void generate(benchmark::State& state, ToneSignal signal)
{
    ToneGenerator generator;
    ToneChannel settings;
    settings.signal = signal;
    generator.setAllChannels(settings);
    AudioBuffer buffer(kFrames);
    for (auto _ : state) {
        benchmark::DoNotOptimize(generator.read(buffer.planes()));
        benchmark::ClobberMemory();
    }
    countSamples(state);
}
BENCHMARK_CAPTURE(generate, sine, ToneSignal::Sine);
BENCHMARK_CAPTURE(generate, pinkNoise, ToneSignal::PinkNoise);

} // namespace

BENCHMARK_MAIN();
