#pragma once

#include "instruments/waveform/WaveformDisplay.h"

#include <QColor>
#include <QRect>
#include <QString>

#include <vector>

class QPainter;

/// The horizontal markers of a waveform, made ready for painting: those of the user, the reference level and
/// the peak white.
class WaveformMarkers {
public:
    /// A marker of the user, in percent of the scale: Cb and Cr have their zero at 50.
    struct UserMarker {
        double percent = 0.0;
        QColor colour;
        bool enabled = false;

        friend bool operator==(const UserMarker&, const UserMarker&) = default;
    };
    struct UserMarkers {
        std::array<UserMarker, 2> lumaRgb;
        std::array<UserMarker, 2> cbCr;

        friend bool operator==(const UserMarkers&, const UserMarkers&) = default;
    };

    WaveformMarkers() = default;
    /// @p picture is where the picture stands.
    WaveformMarkers(const WaveformDisplay& display, const UserMarkers& userMarkers, QPoint picture);

    void paint(QPainter& painter) const;

    /// The levels of those of the user and of the reference, for cursors to snap to.
    const std::vector<double>& levels() const { return m_levels; }

private:
    enum class Look { Solid, Dashed };
    struct Line {
        std::vector<QRect> segments; ///< one pixel high
        QColor colour;
        Look look;
        QString text;
        QRect label;
    };

    void addUserMarkers(const UserMarkers& markers);
    void addReferenceLevel();
    void addPeakWhite();
    void add(double percent, bool colourDifference, const QColor& colour, Look look, const QString& text,
             const QString& shortText = {});
    std::vector<QRect> segmentsAt(double percent, bool colourDifference) const;
    QRect placeForLabel(const QRect& line, const QString& text) const;
    QString readingOf(double percent, bool colourDifference) const;

    WaveformDisplay m_display;
    std::vector<QRect> m_cells;
    int m_fontPixels = 0;
    bool m_labelsAtLeft = false;
    std::vector<double> m_levels;
    std::vector<Line> m_lines;
};
