// What the client pays for its catalogue of video standards: time and memory at start-up, time per look-up.

#include "types/sdi/PayloadIdentifierFamilies.h"
#include "types/sdi/SupportedVideoStandards.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <malloc.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Velmora::Sdi;

namespace {

/// The figures of one start-up.
struct StartUp {
    double catalogueSeconds = 0;
    double identifiersSeconds = 0;
    double standards = 0;
    double identifiers = 0;
    double catalogueBytes = 0;
    double identifiersBytes = 0;
};

/// The words of every identifier object of the catalogues; the links of a quadrant standard share theirs.
std::vector<std::uint32_t> wordsOf(const SupportedVideoStandards& standards)
{
    std::vector<std::uint32_t> words;
    for (const auto* list :
         {&standards.getSupportedAnalyserStandards(), &standards.getSupportedGeneratorStandards()}) {
        for (const auto* standard : *list) {
            const auto all = standard->getPayloadIdentifierWords();
            const std::size_t distinct = all.size() / (standard->isQuadrantMode() ? 4 : 1);
            words.insert(words.end(), all.begin(), all.begin() + static_cast<std::ptrdiff_t>(distinct));
        }
    }
    return words;
}

std::vector<StandardFromPayloadIdentifier::Identifier>
makeIdentifiers(const std::vector<std::uint32_t>& words)
{
    std::vector<StandardFromPayloadIdentifier::Identifier> identifiers;
    identifiers.reserve(words.size());
    for (const std::uint32_t word : words)
        identifiers.push_back(makePayloadIdentifier(word));
    return identifiers;
}

double heapInUse()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Builds the catalogue and then as many identifier objects alone, keeping both as a client would.
StartUp measureStartUp()
{
    using Clock = std::chrono::steady_clock;
    StartUp result;
    double heap = heapInUse();
    auto start = Clock::now();
    const auto standards = std::make_unique<const SupportedVideoStandards>();
    result.catalogueSeconds = std::chrono::duration<double>(Clock::now() - start).count();
    result.catalogueBytes = heapInUse() - heap;
    result.standards = static_cast<double>(standards->getSupportedAnalyserStandards().size()
                                           + standards->getSupportedGeneratorStandards().size());

    const auto words = wordsOf(*standards);
    heap = heapInUse();
    start = Clock::now();
    const auto identifiers = makeIdentifiers(words);
    result.identifiersSeconds = std::chrono::duration<double>(Clock::now() - start).count();
    result.identifiersBytes = heapInUse() - heap;
    result.identifiers = static_cast<double>(identifiers.size());
    return result;
}

/// measureStartUp() in a process of its own, whose heap is as fresh as a starting client's. In a loop inside
/// one process, the allocator's tidying up after the round before would be counted as well.
std::optional<StartUp> measureInFreshProcess()
{
    int ends[2];
    if (pipe(ends) != 0)
        return std::nullopt;
    const pid_t child = fork();
    if (child == 0) {
        const StartUp result = measureStartUp();
        const bool written = write(ends[1], &result, sizeof result) == sizeof result;
        _exit(written ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    close(ends[1]);
    StartUp result;
    const bool received = child > 0 && read(ends[0], &result, sizeof result) == sizeof result;
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    return received ? std::optional(result) : std::nullopt;
}

/// "ratio" is to stay at 3 or below: the catalogue over its identifier objects alone.
void startUp(benchmark::State& state)
{
    StartUp sum;
    StartUp last;
    for (auto _ : state) {
        const auto result = measureInFreshProcess();
        if (!result) {
            state.SkipWithError("no child process");
            break;
        }
        last = *result;
        sum.catalogueSeconds += last.catalogueSeconds;
        sum.identifiersSeconds += last.identifiersSeconds;
        state.SetIterationTime(last.catalogueSeconds);
    }
    state.counters["ratio"] = sum.catalogueSeconds / sum.identifiersSeconds;
    state.counters["standards"] = last.standards;
    state.counters["identifiers"] = last.identifiers;
    state.counters["bytes/standard"] = last.catalogueBytes / last.standards;
    state.counters["bytes/identifier"] = last.identifiersBytes / last.identifiers; // with its place in a list
    state.counters["sizeof(identifier)"] = sizeof(PayloadIdentifier1080_3g);
    state.counters["sizeof(field map)"] = sizeof(PayloadIdentifierBase::FieldMap); // one for each family
}
BENCHMARK(startUp)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

void lookUpByIdentifier(benchmark::State& state)
{
    static const SupportedVideoStandards supported;
    const auto& standards = supported.getSupportedAnalyserStandards();
    const auto& index = supported.getAnalyserStandardsIndex();
    std::size_t next = 0;
    for (auto _ : state) {
        const auto* standard = standards[next];
        next = (next + 7919) % standards.size(); // a prime, so that neighbours do not follow each other
        benchmark::DoNotOptimize(index.findMatchingStandardList(standard->getFirstPayloadIdentifier(),
                                                                standard->getNumberOfPhysicalLinks()));
    }
}
BENCHMARK(lookUpByIdentifier);

void decodeAndName(benchmark::State& state)
{
    std::uint32_t word = 0x984A2021U;
    for (auto _ : state) {
        benchmark::DoNotOptimize(word);
        benchmark::DoNotOptimize(makePayloadIdentifier(word)->toHumanReadable(true));
    }
}
BENCHMARK(decodeAndName);

} // namespace
