#pragma once

#include "instruments/audiolevels/MeterBackdrop.h"
#include "instruments/audiolevels/MeterFigures.h"
#include "instruments/audiolevels/MeterLayout.h"

#include "network/packets/MeterSet.h"

#include <QElapsedTimer>
#include <QWidget>

#include <array>
#include <optional>

class WzCustomStyle;

/// The meters of sixteen channels in pairs: bars with hats, read-outs, phase and clip lamps. A new reading
/// repaints only what it changes.
class MeterView : public QWidget {
    Q_OBJECT
public:
    MeterView(const WzCustomStyle& style, QWidget* parent);

    const MeterLayout& meterLayout() const { return m_layout; }
    const MeterSet& shownMeters() const { return m_shown; }

    void showMeters(const MeterSet& meters);
    /// Nothing is known: bars and read-outs are empty.
    void clearMeters();
    /// The readings are overdue by so many seconds: they are dimmed, their age stands beside them, and soon
    /// they are taken away. 0 when they are not.
    void setStaleSeconds(int seconds);
    /// The lamps have been looked at.
    void releaseClipLamps();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Channel {
        MeterLayout::Bar bar;
        std::optional<int> tenths;
        bool clipped = false;
    };

    void rebuild();
    void showPresence(const MeterSet& meters);
    void showBars(const MeterSet& meters);
    void showClips(const MeterSet& meters);
    void showReadOuts(const MeterSet& meters);
    void showPhases(const MeterSet& meters);
    void forgetValues();

    void paintBackdrop(QPainter& painter, const QRegion& region) const;
    void paintBar(QPainter& painter, int channel, const QRect& dirty) const;
    void paintReadOut(QPainter& painter, int channel) const;
    void paintPhase(QPainter& painter, int pair) const;
    QRect litLamp(int channel) const;

    Channel& channel(int index) { return m_channels[static_cast<std::size_t>(index)]; }
    const Channel& channel(int index) const { return m_channels[static_cast<std::size_t>(index)]; }

    const WzCustomStyle& m_style;
    const int m_clipWordWidth;
    MeterLayout m_layout;
    MeterPairs m_present = MeterPairs().set(); ///< until a reading tells otherwise
    std::array<Channel, MeterLayout::kChannels> m_channels;
    std::array<std::optional<float>, MeterLayout::kPairs> m_phases;
    MeterSet m_shown; ///< the last one, which a change of size lays out anew
    int m_staleSeconds = 0;
    QElapsedTimer m_sinceReadOuts;

    QPixmap m_backdrop;
    QPixmap m_clipLamp;
    MeterFigures m_figures;
    MeterFigures m_clippedFigures;
    MeterFigures m_staleFigures;
    QFont m_ageFont;
    QString m_age;
};
