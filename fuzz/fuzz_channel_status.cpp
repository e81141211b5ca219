// Any channel status block is decoded as it says and as both formats. Empty texts end the run like crashes.

#include "types/sdi/AudioChannelStatusDecoder.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using Velmora::AudioChannelStatusDecoder;
using Velmora::AudioProcessingRegisterApi::ChannelStatus;

namespace {

void requireTexts(const AudioChannelStatusDecoder::DecodedCs& decoded)
{
    const auto& char0 = decoded.char0;
    for (const QString* text :
         {&char0.format, &char0.dataType, &char0.emphasis, &char0.sourceLock, &char0.frequency,
          &decoded.channelMode, &decoded.wordLength, &decoded.alignmentLevel, &decoded.origin,
          &decoded.destination, &decoded.sampleAddress, &decoded.timeOfDay, &decoded.reliability,
          &decoded.status}) {
        if (text->isEmpty())
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ChannelStatus cs;
    std::memcpy(cs.words.data(), data, std::min(size, sizeof cs.words));
    if (size > sizeof cs.words) {
        cs.validity = data[sizeof cs.words] & 3U;
        cs.crcError = (data[sizeof cs.words] & 4U) != 0;
    }
    requireTexts(AudioChannelStatusDecoder::decodeAll(cs));
    requireTexts(AudioChannelStatusDecoder::decodeAllProfessional(cs));
    requireTexts(AudioChannelStatusDecoder::decodeAllConsumer(cs));

    // A block whose last byte is its own CRCC keeps it.
    const std::uint8_t crcc = AudioChannelStatusDecoder::calculateCrcc(cs.words.data());
    cs.words[5] = (cs.words[5] & ~0xFFU) | crcc;
    if (AudioChannelStatusDecoder::calculateCrcc(cs.words.data()) != crcc)
        std::abort();
    return 0;
}
