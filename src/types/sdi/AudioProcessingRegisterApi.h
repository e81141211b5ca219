#pragma once

#include <array>
#include <cstdint>

/// Values as the instrument's audio processing delivers them.
namespace Velmora::AudioProcessingRegisterApi {

/// One captured AES3 channel status block.
struct ChannelStatus {
    /// The 24 bytes: byte 4k in bits 24 to 31 of word k, byte 4k + 3 in bits 0 to 7. Within a byte, AES3 bit
    /// n has the weight 2^n.
    std::array<std::uint32_t, 6> words{};
    /// 1 when the block is valid.
    std::uint32_t validity = 0;
    bool crcError = false;

    friend bool operator==(const ChannelStatus&, const ChannelStatus&) = default;
};

} // namespace Velmora::AudioProcessingRegisterApi
