#pragma once

#include <cstddef>
#include <cstdint>

namespace Velmora::Server {

/// How the tone of a channel is interrupted, so that a listener or a meter shows which channel it is.
/// Channels count from 0 in pairs (0 left, 1 right, 2 left ...).
enum class IdentPattern {
    None,
    /// EBU stereo line-up tone (EBU R 49, Tech 3304): every 3 s the left channel pauses for 250 ms.
    EbuStereo,
    /// GLITS: every 4 s the left channel pauses once for 250 ms; 250 ms after that the right channel pauses
    /// twice for 250 ms, 250 ms apart.
    Glits,
    /// The multichannel ident of EBU Tech 3304, section 4.2, with its sequence expanded to 16 channels in the
    /// order of their numbers and no channel for low-frequency effects: 3 s of tone on all channels, 0.5 s of
    /// silence, then each channel alone for 0.5 s followed by 0.5 s of silence. Lasts 19.5 s.
    EbuMultichannel,
};

/// Whether the tone of @p channel (0 to 15) is on at sample @p position (48 kHz). Each pattern begins at
/// position 0.
bool identIsOn(IdentPattern pattern, std::size_t channel, std::uint64_t position);

} // namespace Velmora::Server
