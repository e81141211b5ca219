#pragma once

#include "instruments/audiolevels/MeterScale.h"

#include <QRect>
#include <QSize>

/// Where everything stands in the window of the audio levels, in pixels of its content.
struct MeterLayout {
    static constexpr int kChannels = 16;
    static constexpr int kPairs = kChannels / 2;
    static constexpr int kHatHeight = 3;
    static constexpr int kPhaseOverhang = 2; ///< of the marker above and below the phase bar
    static constexpr int kPhaseMarkerWidth = 4;

    /// What the window has room for.
    enum class Detail {
        Narrow, ///< no read-outs, labels on one side, a cross for the clip lamp
        Normal,
        Large,
    };

    /// A bar as it is shown: the uppermost row that is lit, and the upper row of the hat.
    struct Bar {
        int row = 0;
        int hatRow = 0;

        bool operator==(const Bar&) const = default;
    };

    Detail detail = Detail::Normal;
    MeterScale scale;
    int left = 0; ///< where the first pair's cell begins
    int pitch = 0; ///< from one pair to the next
    int barWidth = 0;
    int barGap = 0;
    int titleBaseline = 0;
    int levelBaseline = 0; ///< of the read-outs
    int phaseTop = 0;
    int phaseHeight = 0;
    int lampTop = 0;
    int lampHeight = 0;

    static MeterLayout forSize(const QSize& content);

    bool hasReadOuts() const { return detail != Detail::Narrow; }
    int right() const { return left + kPairs * pitch; }
    QRect cell(int pair) const;
    QRect bar(int channel) const;
    QRect clipLamp(int channel) const;
    /// The lamp with its word, which reaches over the bar where that is narrower.
    QRect litClipLamp(int channel, int wordWidth) const;
    /// Right end of the read-out.
    int levelRight(int channel) const;
    QRect levelArea(int channel) const;
    QRect phaseTrack(int pair) const;
    QRect phaseArea(int pair) const;
    /// Left edge of the marker, whose middle stands at the value, -1 to +1.
    int phaseMarkerLeft(int pair, float phase) const;

    Bar barFor(float levelDb, float hatDb) const;
    QRect hat(int channel, const Bar& bar) const;
    /// What has to be painted anew when a bar goes from one to the other; empty when they are equal.
    QRect changed(int channel, const Bar& from, const Bar& to) const;
    /// The channel in whose column a point stands, -1 for none.
    int channelAt(const QPoint& point) const;
};
