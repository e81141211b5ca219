#pragma once

#include <QtGlobal>

#include <array>

/// What is heard on the monitor output, as the instrument says. Channels count from 0. A value.
struct MonitorChoice {
    quint32 pair = 0; ///< counts from 1
    bool isMuted = true;
    quint32 soloChannel = 0; ///< counts from 1; 0 for none
    std::array<quint32, 2> mix{}; ///< for the left and the right side of the output, one bit a channel

    bool isMixed(quint32 channel, std::size_t output) const;
    bool isHeard(quint32 channel) const;
    /// The mix of a side with the channel, or without it.
    quint32 withMixed(quint32 channel, std::size_t output, bool mixed) const;
};
