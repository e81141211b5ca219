#pragma once

#include "instruments/audiometering/MonitorChoice.h"

#include <QStringList>

#include <optional>
#include <vector>

class AudioDataNotifier;
class AudioMeterPairWidget;

/// What the instrument says of the channels of the embedded audio beside their levels, and how pairs show it.
/// A value.
struct ChannelFacts {
    using Pairs = std::vector<AudioMeterPairWidget*>;

    QStringList names;
    QStringList dolbyELines; ///< one item a pair
    std::optional<int> dolbyEIdealLine;
    MonitorChoice monitor;

    /// Nothing where the text is no number of a line.
    static std::optional<int> toLine(const QString& text);

    void showNames(const Pairs& pairs) const;
    void showContents(const Pairs& pairs, const AudioDataNotifier& contents) const;
    void showMonitor(const Pairs& pairs) const;
};
