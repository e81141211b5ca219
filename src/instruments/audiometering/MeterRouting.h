#pragma once

#include "instruments/audiometering/AudioMeterPairWidget.h"

#include "network/packets/MeterSet.h"

#include <QHash>

#include <array>
#include <vector>

/// Where the readings of the channels of the sources go: a table from the channels to the meters that show
/// them. It remembers which channels are there.
class MeterRouting {
public:
    using AudioInput = Velmora::Types::AudioInput;

    /// The embedded pairs of one SDI link; those of link B follow those of link A.
    static constexpr int kPairsPerLink = 16;
    static constexpr int kMostPairs = 32;

    MeterRouting() = default;
    /// @p program is the decoded programme, from 0, where these are the input.
    MeterRouting(AudioInput input, int program, const std::vector<AudioMeterPairWidget*>& pairs);

    /// Whether a pair of the embedded audio is one of link B, and its number there or in its source.
    static bool isOfLinkB(AudioInput input, int pair);
    static int numberInSource(AudioInput input, int pair);
    /// How many pairs of the input the packet speaks of.
    static int pairsIn(AudioInput input, const AudioMetersDataPacket& packet);

    /// Gives each reading of the packet to its meter. With the levels come and go the channels.
    void route(MeterSet::Kind kind, const AudioMetersDataPacket& packet);
    /// Whether any channel is there.
    bool hasPresentChannels() const { return m_hasPresentChannels; }
    /// Nothing has been seen yet.
    void forgetPresence();

private:
    struct Pair {
        AudioMeterPairWidget* widget;
        quint32 source; ///< of the meter values
        quint32 index; ///< within that source
        std::array<quint32, 2> lastSeen{}; ///< the moment at which each channel was there; 0 for never
    };
    struct Meter {
        std::size_t pair;
        PairLayout::Side side;
    };
    using Value = AudioProcessingRegisterApi::MeterValue<float>;

    static quint64 key(quint32 source, quint32 channel) { return quint64{source} << 32 | channel; }
    static void show(MeterSet::Kind kind, const Value& value, AudioMeterPairWidget& pair,
                     PairLayout::Side side);
    void showPresence(const AudioMetersDataPacket& packet);

    std::vector<Pair> m_pairs;
    QHash<quint64, Meter> m_meters;
    quint32 m_moment = 1; ///< counts the packets of levels
    bool m_hasPresentChannels = false;
};
