#pragma once

#include "instruments/eventlog/EventRows.h"

#include "gui/style/WzPalette.h"

#include <QAbstractScrollArea>
#include <QFont>
#include <QPixmap>

#include <array>

class EventLogModel;
class WzCustomStyle;

/// The rows of the event log. It looks at the log when told to and paints what can be seen, so that the
/// number of entries costs nothing. While it shows the newest it stays there; scrolled away it keeps its
/// place.
class EventLogList : public QAbstractScrollArea {
    Q_OBJECT
public:
    EventLogList(const EventLogModel& model, const WzCustomStyle& style, QWidget* parent);

    const EventRows& rows() const { return m_rows; }
    /// What is shown: the log, or the copy of it that is held.
    const EventRing& shownEntries() const;

    void setFilter(const EventKindFilter& filter, const QString& searchedText);
    /// Holds what is shown while the log goes on.
    void setHeld(bool held);
    /// Shows what came and went.
    void refresh();
    /// Large rows also tell date and kind.
    void setLargeRows(bool large);
    void updateColours();
    /// What stands in place of rows where there are none.
    void setEmptyText(const QString& text);

    void jumpToNewest();
    /// New rows above what is shown.
    int rowsAbove() const;

signals:
    void rowsAboveChanged(int rows);
    /// The user did something with the list.
    void used();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    int rowHeight() const;
    int rowAt(int y) const;
    void updateRange();
    void paintRow(QPainter& painter, const QRect& area, int row) const;
    QString toolTipOf(const EventEntry& entry) const;

    const EventLogModel& m_model;
    const WzCustomStyle& m_style;
    EventRows m_rows;
    EventRing m_held;
    bool m_isHeld = false;
    bool m_largeRows = false;
    int m_toldAbove = 0;
    QString m_emptyText;

    WzPalette m_colours;
    QColor m_seenText;
    QFont m_timeFont;
    QFont m_textFont;
    std::array<QPixmap, 4> m_icons; ///< by severity
};
