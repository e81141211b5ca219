#pragma once

#include "instruments/audiometering/MeteringLayout.h"

#include <QCoreApplication>

class QPainter;
class QRegion;
struct MeterLook;
struct PairState;

/// Paints all of a pair but its bars and its background: title, figures, phase, clip lamps and scales, and
/// what stands in the place of bars where there is nothing to meter.
class PairPainter {
    Q_DECLARE_TR_FUNCTIONS(PairPainter)
public:
    /// Which of its outer scales have ticks and labels; the others are lines only, so that a row of pairs is
    /// labelled at its ends.
    enum class ScaleDisplayPriority { LinesOnly, Left, Right, LeftAndRight };

    /// All of them have to stay as long as this does. @p decimals are those of the figures.
    PairPainter(const PairState& state, const PairLayout& layout, const MeterLook& look,
                ScaleDisplayPriority priority, int decimals)
        : m_state(state)
        , m_layout(layout)
        , m_look(look)
        , m_priority(priority)
        , m_decimals(decimals)
    {
    }

    void paint(QPainter& painter, const QRegion& region) const;

private:
    using Side = PairLayout::Side;

    void paintTitle(QPainter& painter) const;
    void paintSeparator(QPainter& painter) const;
    void paintRowNames(QPainter& painter) const;
    void paintScales(QPainter& painter) const;
    void paintInsteadOfBars(QPainter& painter) const;
    void paintBox(QPainter& painter, const QRect& box, const QString& text, bool isData) const;
    void paintFigures(QPainter& painter, Side side, const QRect& dirty) const;
    void paintLamp(QPainter& painter, Side side) const;
    void paintPhase(QPainter& painter) const;
    void paintAudioTypes(QPainter& painter) const;
    QRect litLamp(Side side) const;
    QString fittingTitle() const;

    const PairState& m_state;
    const PairLayout& m_layout;
    const MeterLook& m_look;
    const ScaleDisplayPriority m_priority;
    const int m_decimals;
};
