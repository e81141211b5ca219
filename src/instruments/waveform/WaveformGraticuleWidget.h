#pragma once

#include "instruments/waveform/CursorReadOut.h"
#include "instruments/waveform/HeldTrace.h"
#include "instruments/waveform/MeasurementCursorSettings.h"
#include "instruments/waveform/WaveformCursorPainter.h"
#include "instruments/waveform/WaveformDisplay.h"
#include "instruments/waveform/WaveformMarkers.h"

#include <QPixmap>
#include <QWidget>

#include <optional>

class FeedPicture;
class WzCustomStyle;

/// The picture of a waveform on its graticule, with markers, and with measurement cursors that can be
/// dragged.
///
/// There are three layers: what stays the same is drawn once and kept, the picture comes over it as often as
/// there is a newer one, markers and cursors over both. Positions on axes are thousandths of a percent, as
/// those of cursors are.
class WaveformGraticuleWidget : public QWidget {
    Q_OBJECT
public:
    using Axis = MeasurementCursors::Axis;
    using Cursor = MeasurementCursors::Cursor;
    using UserMarker = WaveformMarkers::UserMarker;
    using UserMarkers = WaveformMarkers::UserMarkers;

    WaveformGraticuleWidget(FeedPicture& picture, const WzCustomStyle& style, QWidget* parent);

    /// @p picture is where the picture stands in the widget.
    void setDisplay(const WaveformDisplay& display, QPoint picture);
    void setUserMarkers(const UserMarkers& markers);
    void setCursors(const MeasurementCursors& cursors, const CursorScale& scale);
    /// The live picture stops, and the trace is shown in its place, which may be none; or it goes on.
    void hold(const HeldTrace& trace);
    void goOn();
    /// What is shown now.
    HeldTrace shownTrace();
    /// Shown below the picture; null for none.
    void setReferenceTrace(const HeldTrace& trace);
    /// Dims the picture and tells its age; 0 when it is live.
    void setStaleSeconds(int seconds);
    /// Words in the middle, in place of a picture; empty for none.
    void setNotice(const QString& words);

    const WaveformDisplay& display() const { return m_display; }

    // Between positions on the axes and pixels of the widget. A position has a pixel in each cell, and a
    // pixel outside the cells counts for the nearest one.

    int xAxisPosToScreenPos(int position, int cell = 0) const;
    int yAxisPosToScreenPos(int position, int cell = 0) const;
    /// Of the active line.
    double screenXToPercent(int x) const;
    /// Of the left scale, on which Cb and Cr have their zero at 50 %.
    double screenYToPercent(int y) const;
    int yPercentToScreenY(double percent, int cell = 0) const;

    /// What stands at a point of the picture, in all units, for a tool tip.
    QString levelsAt(QPoint point) const;
    CursorReadOut readOut() const;
    /// Whether the handle of a cursor is there, by which it is dragged.
    bool isHandle(QPoint point) const { return !m_cells.empty() && cursorPainter().isHandle(point); }

signals:
    /// The user has moved a cursor of the present axis.
    void cursorMoved(MeasurementCursors::Cursor cursor, int position);
    /// The wheel was turned over the picture, by so many notches.
    void zoomed(int steps);
    /// The figures of the cursors are to stand there.
    void cornerChosen(Qt::Corner corner);
    /// A finger holds a cursor, and wants all moves for itself.
    void holdingChanged(bool holds);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void renderLayer();
    void paintPicture(QPainter& painter, const QRect& dirty);
    void paintLayer(QPainter& painter, const QRect& dirty) const;
    void paintPictureCursor(QPainter& painter) const;
    void paintWords(QPainter& painter) const;

    WaveformCursorPainter cursorPainter() const { return {m_geometry, m_cells, m_cursors}; }
    MeasurementCursorLabels labels() const;
    QRect readOutRect() const;
    int cellNearest(QPoint point) const;
    const QRect& cellAt(int index) const { return m_cells.at(static_cast<std::size_t>(index)); }
    int positionAt(QPoint point) const;
    int snapped(int position) const;
    std::vector<int> snapPositions() const;
    void release();
    void stepCursor(int steps, bool isCoarse);

    FeedPicture& m_picture;
    const WzCustomStyle& m_style;

    WaveformDisplay m_display;
    WaveformDisplay::WaveformGeometry m_geometry;
    QPoint m_picturePlace;
    std::vector<QRect> m_cells;
    UserMarkers m_userMarkers;
    WaveformMarkers m_markers;
    HeldTrace m_referenceTrace;
    QPixmap m_layer; ///< null when it is to be drawn anew

    std::optional<HeldTrace> m_held; ///< while the picture stops
    int m_staleSeconds = 0;
    QString m_notice;

    MeasurementCursors m_cursors;
    CursorScale m_cursorScale;
    Cursor m_active = Cursor::Reference;
    bool m_isHeld = false; ///< the active cursor, by a finger
    QPoint m_grip; ///< from the finger to the cursor
    QPoint m_finger;
    int m_wheelAngle = 0;
};
