#include "gui/framework/WindowDrag.h"

#include "gui/framework/ApplicationState.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/framework/WzTitleLine.h"
#include "gui/style/WzCustomStyle.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QScopedValueRollback>

namespace {

/// A press that is held this long is no drag any more: the content gets it, for its long press.
constexpr int kHoldMs = 300;

class DragPreview : public QRubberBand {
public:
    DragPreview(const WzCustomStyle& style, QWidget* parent)
        : QRubberBand(QRubberBand::Rectangle, parent)
        , m_colour(style.colour(ColourRole::Accent))
    {
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QColor fill = m_colour;
        fill.setAlpha(40);
        painter.fillRect(rect(), fill);
        painter.setPen(QPen(m_colour, 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
    void resizeEvent(QResizeEvent*) override
    {
        // The base would cut a mask, without the translucent inside.
    }

private:
    const QColor m_colour;
};

bool isOfContent(const WzSubWindow& window, const QPoint& globalPosition)
{
    const WzSubwindowContent* const content = window.content();
    return content && content->ownsPressAt(content->mapFromGlobal(globalPosition));
}

bool isFree(const WzSubWindow& window)
{
    return window.content() && window.content()->isScalable() && !window.isSubWindowFullScreen();
}

} // namespace

WindowDrag::WindowDrag(WzMdiArea& area)
    : QObject(&area)
    , m_area(area)
{
}

WindowDrag::~WindowDrag() = default;

const WzSubWindow* WindowDrag::window() const
{
    return m_window;
}

Qt::Edges WindowDrag::edgesAt(const QPoint& position, const QSize& window)
{
    const auto near = [&position, &window](int reach) {
        Qt::Edges edges;
        edges.setFlag(Qt::LeftEdge, position.x() < reach);
        edges.setFlag(Qt::RightEdge, position.x() >= window.width() - reach);
        edges.setFlag(Qt::TopEdge, position.y() < reach);
        edges.setFlag(Qt::BottomEdge, position.y() >= window.height() - reach);
        return edges;
    };
    const Qt::Edges corner = near(kCornerReach);
    const bool isCorner =
        (corner & (Qt::LeftEdge | Qt::RightEdge)) && (corner & (Qt::TopEdge | Qt::BottomEdge));
    return isCorner ? corner : near(kEdgeReach);
}

QRect WindowDrag::sizedBy(const QRect& start, Qt::Edges edges, const QPoint& delta)
{
    return start.adjusted(
        edges.testFlag(Qt::LeftEdge) ? delta.x() : 0, edges.testFlag(Qt::TopEdge) ? delta.y() : 0,
        edges.testFlag(Qt::RightEdge) ? delta.x() : 0, edges.testFlag(Qt::BottomEdge) ? delta.y() : 0);
}

bool WindowDrag::filterMouseEvent(QWidget* receiver, QMouseEvent* event)
{
    if (m_replaying)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(receiver, *event);
    case QEvent::MouseMove:
        return move(*event);
    case QEvent::MouseButtonRelease:
        return release(*event);
    default:
        return false;
    }
}

bool WindowDrag::press(QWidget* receiver, const QMouseEvent& event)
{
    const bool isSecondButton = event.buttons() != event.button();
    const bool wasEngaged = m_window != nullptr;
    // Also what is left of a press whose release never came.
    reset();
    if (wasEngaged && isSecondButton)
        return true;
    WzSubWindow* const window = WzSubWindow::holding(receiver);
    if (!window || event.button() != Qt::LeftButton || window->isSubWindowFullScreen()
        || m_area.applicationState().isLayoutLocked())
        return false;
    const QPoint position = window->mapFromGlobal(event.globalPos());
    const bool onTitle = qobject_cast<WzTitleLine*>(receiver) != nullptr;
    // The whole title line moves the window; it would be too slim if its upper part sized it.
    const Qt::Edges edges = onTitle ? Qt::Edges() : edgesAt(position, window->size());
    if (!onTitle && (!edges || isOfContent(*window, event.globalPos())))
        return false;
    m_window = window;
    m_windowGone = connect(window, &QObject::destroyed, this, &WindowDrag::reset);
    m_receiver = receiver;
    m_edges = edges;
    m_pressedAt = event.globalPos();
    m_start = window->geometry();
    m_target = m_start;
    if (onTitle)
        return false;
    m_heldPress = std::make_unique<QMouseEvent>(event);
    m_holdTimer.start(kHoldMs, this);
    return true;
}

bool WindowDrag::move(const QMouseEvent& event)
{
    if (!m_window || !event.buttons().testFlag(Qt::LeftButton))
        return false;
    const QPoint delta = event.globalPos() - m_pressedAt;
    if (!m_dragging) {
        if (delta.manhattanLength() < kStartDistance)
            return m_heldPress != nullptr;
        begin();
    }
    // Near where it began the drag is taken back.
    m_target = delta.manhattanLength() < kStartDistance ? m_start : target(delta);
    m_preview->setGeometry(m_target);
    return true;
}

bool WindowDrag::release(const QMouseEvent& event)
{
    if (!m_window)
        return false;
    if (m_dragging) {
        finish(m_target);
        return true;
    }
    const bool held = m_heldPress != nullptr;
    if (held) {
        replayPress();
        send(event);
    }
    reset();
    return held;
}

void WindowDrag::begin()
{
    m_dragging = true;
    m_holdTimer.stop();
    m_heldPress.reset();
    m_preview = std::make_unique<DragPreview>(*m_area.getWzStyle(), m_area.viewport());
    m_preview->setGeometry(m_start);
    m_preview->show();
    m_window->raise();
    m_preview->raise();
    m_neighbours.clear();
    if (m_edges && isFree(*m_window))
        findNeighbours();
}

/// The gap between two scalable windows moves both.
void WindowDrag::findNeighbours()
{
    for (WzSubWindow* const other : m_area.wzSubWindows()) {
        if (other == m_window || !other->isVisible() || !isFree(*other))
            continue;
        const QRect rect = other->geometry();
        const bool beside = rect.top() <= m_start.bottom() && rect.bottom() >= m_start.top();
        const bool above = rect.left() <= m_start.right() && rect.right() >= m_start.left();
        Qt::Edges edges;
        edges.setFlag(Qt::LeftEdge,
                      m_edges.testFlag(Qt::RightEdge) && beside && rect.left() == m_start.right() + 1);
        edges.setFlag(Qt::RightEdge,
                      m_edges.testFlag(Qt::LeftEdge) && beside && rect.right() == m_start.left() - 1);
        edges.setFlag(Qt::TopEdge,
                      m_edges.testFlag(Qt::BottomEdge) && above && rect.top() == m_start.bottom() + 1);
        edges.setFlag(Qt::BottomEdge,
                      m_edges.testFlag(Qt::TopEdge) && above && rect.bottom() == m_start.top() - 1);
        if (edges)
            m_neighbours.push_back({other, rect, edges});
    }
}

QRect WindowDrag::target(const QPoint& delta) const
{
    if (!m_edges)
        return m_window->permittedBounds(m_start.translated(delta));
    const QRect wanted = sizedBy(m_start, m_edges, delta);
    QRect permitted = m_window->permittedBounds(QRect(m_start.topLeft(), wanted.size()));
    // The opposite edges stay where they are.
    if (m_edges.testFlag(Qt::LeftEdge))
        permitted.moveRight(m_start.right());
    if (m_edges.testFlag(Qt::TopEdge))
        permitted.moveBottom(m_start.bottom());
    return withinNeighbours(ScreenGrid::constrainedTo(m_area.instrumentArea(), permitted));
}

QPoint WindowDrag::movedBy(const QRect& bounds) const
{
    return {
        m_edges.testFlag(Qt::LeftEdge) ? bounds.left() - m_start.left() : bounds.right() - m_start.right(),
        m_edges.testFlag(Qt::TopEdge) ? bounds.top() - m_start.top() : bounds.bottom() - m_start.bottom()};
}

/// What a neighbour cannot give or take stays where it is.
QRect WindowDrag::withinNeighbours(QRect bounds) const
{
    for (const Neighbour& neighbour : m_neighbours) {
        if (!neighbour.window)
            continue;
        const QSize wanted = sizedBy(neighbour.start, neighbour.edges, movedBy(bounds)).size();
        const QSize lack = neighbour.window->permittedSize(wanted) - wanted;
        if (neighbour.edges.testFlag(Qt::LeftEdge))
            bounds.setRight(bounds.right() - lack.width());
        if (neighbour.edges.testFlag(Qt::RightEdge))
            bounds.setLeft(bounds.left() + lack.width());
        if (neighbour.edges.testFlag(Qt::TopEdge))
            bounds.setBottom(bounds.bottom() - lack.height());
        if (neighbour.edges.testFlag(Qt::BottomEdge))
            bounds.setTop(bounds.top() + lack.height());
    }
    return bounds;
}

void WindowDrag::finish(const QRect& bounds)
{
    const QPointer<WzSubWindow> window = m_window;
    const auto neighbours = m_neighbours;
    const QPoint moved = movedBy(bounds);
    const QRect start = m_start;
    reset();
    if (!window || bounds == start)
        return;
    window->setBounds(bounds);
    for (const Neighbour& neighbour : neighbours) {
        if (neighbour.window)
            neighbour.window->setBounds(sizedBy(neighbour.start, neighbour.edges, moved));
    }
}

void WindowDrag::cancel()
{
    reset();
}

void WindowDrag::timerEvent(QTimerEvent*)
{
    m_holdTimer.stop();
    replayPress();
    reset();
}

void WindowDrag::replayPress()
{
    if (m_heldPress)
        send(*std::exchange(m_heldPress, nullptr));
}

void WindowDrag::send(const QMouseEvent& event)
{
    if (!m_receiver)
        return;
    const QScopedValueRollback guard(m_replaying, true);
    // A copy keeps the time, by which gestures tell a flick, and whether it comes from a touch.
    QMouseEvent copy(event);
    copy.setLocalPos(m_receiver->mapFromGlobal(event.globalPos()));
    QApplication::sendEvent(m_receiver, &copy);
}

void WindowDrag::reset()
{
    m_dragging = false;
    m_holdTimer.stop();
    m_heldPress.reset();
    m_preview.reset();
    m_neighbours.clear();
    m_window.clear();
    disconnect(m_windowGone);
    m_receiver.clear();
}
