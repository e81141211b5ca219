#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QString>

#include <vector>

class WzCustomStyle;

/// The rows of the presets panel. Only those in sight are painted, so that thousands cost nothing. A row is
/// dragged by its grip at the right, elsewhere a finger scrolls.
class PresetList : public QAbstractScrollArea {
    Q_OBJECT
public:
    static constexpr int kRowHeight = 64;
    /// At the right edge of a row.
    static constexpr int kGripWidth = 56;

    struct Row {
        QString name;
        QString secondary;
        QString mark; ///< beside the name, with a tick: "loaded"

        bool operator==(const Row&) const = default;
    };

    PresetList(const WzCustomStyle& style, QWidget* parent);

    /// The selected name stays selected; if it has gone, the one that takes its place is.
    void setRows(std::vector<Row> rows);
    const std::vector<Row>& rows() const { return m_rows; }
    /// What stands in place of rows where there are none.
    void setEmptyText(const QString& text);
    void setMovable(bool movable);

    /// Empty when there are no rows.
    QString selected() const;
    int selectedRow() const { return m_selected; }
    /// A name that is not there yet is selected as soon as it comes.
    void select(const QString& name);
    void moveSelected(int rows);
    /// In coordinates of the viewport.
    QRect rowRect(int row) const;

signals:
    void selectionChanged();
    /// Touched while it was selected already.
    void activated();
    void contextMenuWanted(const QPoint& globalPosition);
    void orderChosen(const QStringList& names);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool isRow(int row) const { return row >= 0 && row < static_cast<int>(m_rows.size()); }
    int rowAt(int y) const;
    bool isGrip(const QPoint& position) const;
    void selectRow(int row);
    void showSelected();
    void updateRange();
    /// Before which row the one that is dragged would land.
    int targetAt(int y) const;
    void dragTo(int y);
    void endDrag(bool isKept);
    void moveRow(int from, int before);
    void searchFor(const QString& typed);
    void paintRow(QPainter& painter, int row) const;
    void paintTexts(QPainter& painter, const QRect& area, const Row& row) const;
    void paintGrip(QPainter& painter, const QRect& area) const;
    void paintTarget(QPainter& painter) const;

    const WzCustomStyle& m_style;
    std::vector<Row> m_rows;
    QString m_emptyText;
    QString m_awaited; ///< to be selected when it comes
    QString m_searched;
    QElapsedTimer m_sinceTyped;
    QElapsedTimer m_sincePress;
    QPoint m_pressedAt;
    int m_selected = -1;
    int m_pressed = -1; ///< the row under the finger
    int m_dragged = -1;
    int m_target = -1;
    bool m_isMovable = true;
    QBasicTimer m_scrollTimer; ///< while a row is held at an end
};
