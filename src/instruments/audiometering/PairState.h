#pragma once

#include "instruments/audiometering/AudioMeterWidget.h"
#include "instruments/audiometering/MeteringLayout.h"
#include "types/audio/AudioChannelContent.h"

#include <QCoreApplication>
#include <QString>

#include <array>
#include <optional>

/// What is known of a pair of channels, and how much of it has been shown so far. A value.
struct PairState {
    Q_DECLARE_TR_FUNCTIONS(PairState)
public:
    using Content = Velmora::AudioTypes::AudioChannelContent;
    using Side = PairLayout::Side;

    struct Channel {
        float level = AudioMeterWidget::kLowest; ///< in dBFS, as hat and peak
        float hat = AudioMeterWidget::kLowest;
        float samplePeak = AudioMeterWidget::kLowest; ///< the highest one
        std::optional<int> levelNumber; ///< as it is shown
        std::optional<int> peakNumber;
        bool isPresent = true;
        bool isClipped = false;
        bool isMonitored = false;
        Content content{Velmora::AudioTypes::AudioDataType::Pcm};
        QString name;
    };

    std::array<Channel, 2> channels;
    QString title; ///< of channels without names
    std::optional<float> phase; ///< nothing where it means nothing
    std::optional<float> shownPhase;
    std::optional<int> dolbyELine; ///< the video line on which frames begin
    std::optional<int> dolbyEIdealLine;
    bool isDolbyELineRelative = true;
    bool isStale = false;

    Channel& channel(Side side) { return channels[static_cast<std::size_t>(side)]; }
    const Channel& channel(Side side) const { return channels[static_cast<std::size_t>(side)]; }

    /// Whether there is a level to be shown.
    bool isMetered(Side side) const;
    /// The names of the channels, or the title.
    QString shownTitle() const;
    /// "Line 23", "Ideal +2"; empty without Dolby E.
    QString dolbyELineText() const;
};
