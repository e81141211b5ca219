#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

#include <memory>
#include <vector>

class QMouseEvent;
class QRubberBand;
class QWidget;
class WzMdiArea;
class WzSubWindow;

/// Moves and sizes windows by finger or mouse. A drag by the title line moves, one by an edge or a corner
/// sizes. It begins after some pixels, shows where the window will land, and is carried out on release;
/// Escape, a second finger or the way back to where it began cancel it.
///
/// A press near an edge may be meant for the content that reaches there, so it is held back and given to the
/// content when no drag comes of it.
class WindowDrag : public QObject {
    Q_OBJECT
public:
    static constexpr int kStartDistance = 12;
    static constexpr int kEdgeReach = 24;
    static constexpr int kCornerReach = 44;

    explicit WindowDrag(WzMdiArea& area);
    ~WindowDrag() override;

    bool isDragging() const { return m_dragging; }
    /// The window under a press that may become a drag, or is one; null at other times.
    const WzSubWindow* window() const;
    /// Takes a mouse event of @p receiver, which lies in a sub-window. True when it is used up.
    bool filterMouseEvent(QWidget* receiver, QMouseEvent* event);
    /// The window stays where it was.
    void cancel();

    /// Which edges a press at @p position would grab in a window of that size; none in the middle.
    static Qt::Edges edgesAt(const QPoint& position, const QSize& window);
    /// @p start with these edges moved by @p delta.
    static QRect sizedBy(const QRect& start, Qt::Edges edges, const QPoint& delta);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Neighbour {
        QPointer<WzSubWindow> window;
        QRect start;
        Qt::Edges edges;
    };

    bool press(QWidget* receiver, const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    void begin();
    void findNeighbours();
    QRect target(const QPoint& delta) const;
    QPoint movedBy(const QRect& bounds) const;
    QRect withinNeighbours(QRect bounds) const;
    void finish(const QRect& bounds);
    void replayPress();
    void send(const QMouseEvent& event);
    void reset();

    WzMdiArea& m_area;
    QPointer<WzSubWindow> m_window;
    QMetaObject::Connection m_windowGone;
    QPointer<QWidget> m_receiver;
    std::unique_ptr<QMouseEvent> m_heldPress;
    QBasicTimer m_holdTimer;
    std::unique_ptr<QRubberBand> m_preview;
    std::vector<Neighbour> m_neighbours;
    Qt::Edges m_edges;
    QPoint m_pressedAt; ///< global
    QRect m_start;
    QRect m_target;
    bool m_dragging = false;
    bool m_replaying = false;
};
