#pragma once

#include "instruments/audiometering/FixedScale.h"

#include <QRect>
#include <QSize>

/// Where everything of one pair stands, in pixels of its widget.
struct PairLayout {
    static constexpr int kPhaseOverhang = 2; ///< of the marker above and below the phase bar
    static constexpr int kPhaseMarkerWidth = 4;

    /// What there is room for.
    enum class Detail {
        Tiny, ///< figures of the title stand above each other
        Narrow, ///< low: a cross for the clip lamp, levels at most below the bars
        Medium, ///< the levels of a pair stand above each other
        Normal,
        Large,
    };
    enum Side { Left, Right };

    Detail detail = Detail::Normal;
    QSize size;
    int fieldLeft = 0; ///< the share of the pair in the row, without the margin of the window
    int pitch = 0; ///< its width
    int barWidth = 0;
    int barGap = 0;
    int titleBaseline = 0;
    int levelBaseline = 0; ///< 0 without levels in figures
    int peakBaseline = 0; ///< 0 without peaks in figures
    int phaseTop = 0;
    int phaseHeight = 0;
    int lampTop = 0;
    int lampHeight = 0;
    int buttonsTop = 0;
    int typeBaseline = 0; ///< of the audio type; 0 without
    int fontPixels = 15;
    bool hasFullTitles = true;
    bool hasButtons = false; ///< whether there is room for those that are wanted
    FixedScale scale;

    bool hasLabels() const { return detail != Detail::Tiny && detail != Detail::Narrow; }
    QRect field() const { return {fieldLeft, 0, pitch, size.height()}; }
    QRect bar(Side side) const;
    QRect bars() const { return bar(Left) | bar(Right); }
    QRect clipLamp(Side side) const;
    /// The lamp with its word, which reaches over the bar where that is narrower.
    QRect litClipLamp(Side side, int wordWidth) const;
    /// Right end and lower end of a figure that belongs to a bar.
    QPoint levelEnd(Side side) const;
    QRect levelArea(Side side) const { return figureArea(levelEnd(side)); }
    QPoint peakEnd(Side side) const;
    QRect peakArea(Side side) const { return figureArea(peakEnd(side)); }
    QRect phaseTrack() const;
    QRect phaseArea() const;
    /// Left edge of the marker, whose middle stands at the value, -1 to +1.
    int phaseMarkerLeft(float phase) const;
    /// The buttons stand in rows below the lamps; @p columns of them beside each other.
    QRect button(int row, int column, int columns) const;

private:
    /// Whether a figure has room over its bar.
    bool hasWideBars() const { return 10 * barWidth >= 33 * fontPixels; }
    int figureRight(Side side) const;
    QRect figureArea(const QPoint& end) const;
};

/// Where the pairs of a window stand: in one row, or in more where that leaves each pair more room.
struct MeteringLayout {
    static constexpr int kButtonHeight = 56;

    int rows = 1;
    int columns = 1;
    int pitch = 0;
    int left = 0; ///< of the first pair's field
    int margin = 0; ///< beside the row, for names and scale
    int rightMargin = 0;
    int rowHeight = 0;
    PairLayout pair; ///< of a pair that stands neither first nor last in its row

    static MeteringLayout forContent(const QSize& content, int pairs, const MeterScale& scale,
                                     int buttonRows);

    bool isFirst(int index) const { return index % columns == 0; }
    bool isLast(int index, int pairs) const { return index % columns == columns - 1 || index == pairs - 1; }
    /// In the content. The first and the last pair of a row have the margins.
    QRect cell(int index, int pairs) const;
    PairLayout layoutOf(int index, int pairs) const;
};
