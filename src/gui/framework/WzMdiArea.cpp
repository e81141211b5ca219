#include "gui/framework/WzMdiArea.h"

#include "gui/control/OneFingerGesture.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/HelpReach.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/framework/SwipeFollower.h"
#include "gui/framework/WindowDrag.h"
#include "gui/framework/WzMdiAreaConnectionBuilder.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QChildEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QTouchEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

constexpr int kStaleTickMs = 250;
/// A tap this near to the upper or lower edge brings the bars.
constexpr int kBarEdge = 16;

} // namespace

WzMdiArea::WzMdiArea(MainWindowBase& mainWindow, WzMdiAreaConnectionBuilder* builder, WzCustomStyle& style)
    : QMdiArea(&mainWindow)
    , m_mainWindow(mainWindow)
    , m_style(style)
    , m_drag(new WindowDrag(*this))
    , m_swipe(new SwipeFollower(style, viewport()))
    , m_helpReach(new HelpReach(this))
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setBackground(style.colour(ColourRole::InstrumentBackground));
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    viewport()->grabGesture(OneFingerRecognizer::swipeType());
    connect(this, &QMdiArea::subWindowActivated, this, &WzMdiArea::activeSubWindowChanged);
    connect(m_swipe, &SwipeFollower::swiped, this, [this](bool previous) {
        if (applicationState().isLayoutLocked())
            emit switchFullScreenWindows(previous);
        else
            emit switchWindowLayout(previous);
    });
    if (!builder)
        return;
    connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, this,
            [this, builder] { builder->connectMdiAreaToDatacores(this); });
    builder->connectMdiAreaToDatacores(this);
}

WzMdiArea::~WzMdiArea()
{
    // Before the viewport, to which the preview of the drag belongs.
    cancelDrag();
    // Windows go while the area still knows what it is: they take themselves out of it.
    for (WzSubWindow* const window : wzSubWindows())
        delete window;
}

ApplicationState& WzMdiArea::applicationState() const
{
    return m_mainWindow.applicationState();
}

const ConnectionStatus& WzMdiArea::connectionStatus() const
{
    return m_mainWindow.connectionStatus();
}

QRect WzMdiArea::instrumentArea() const
{
    return viewport()->rect();
}

std::vector<WzSubWindow*> WzMdiArea::wzSubWindows(WindowOrder order) const
{
    std::vector<WzSubWindow*> windows;
    const QList<QMdiSubWindow*> all = subWindowList(order);
    for (QMdiSubWindow* const window : all) {
        if (auto* const ours = qobject_cast<WzSubWindow*>(window))
            windows.push_back(ours);
    }
    return windows;
}

WzSubWindow* WzMdiArea::activeWzSubWindow() const
{
    return qobject_cast<WzSubWindow*>(currentSubWindow());
}

bool WzMdiArea::isSwipeGestureInProgress() const
{
    return m_swipe->isInProgress();
}

bool WzMdiArea::ignoreGestureEvents() const
{
    return m_poweringOff || !m_screenSwipingSupported || !m_allowSwipeGesture || m_severalFingers
        || m_drag->window() || applicationState().isDoNotDisturb();
}

void WzMdiArea::setSwipeNeighbourName(std::function<QString(bool)> name)
{
    m_swipe->setNeighbourName(std::move(name));
}

void WzMdiArea::cancelDrag()
{
    m_drag->cancel();
}

/// A second finger takes back what the first one has begun, until both are gone.
void WzMdiArea::onFingers(int count)
{
    m_severalFingers = count > 1;
    if (!m_severalFingers)
        return;
    cancelDrag();
    m_swipe->cancel();
}

void WzMdiArea::prepareForPowerOff()
{
    m_poweringOff = true;
    m_drag->cancel();
    m_swipe->cancel();
    m_staleTimer.stop();
    updateExposure();
}

void WzMdiArea::reduceFullScreenWindowSizeIfNotTopmostLayer()
{
    const auto windows = wzSubWindows(StackingOrder);
    for (auto window = windows.begin(); window != windows.end(); ++window) {
        const bool isCovered = std::any_of(std::next(window), windows.end(), [](const WzSubWindow* above) {
            return above->isVisible() && !above->staysOnTop();
        });
        if (isCovered && (*window)->isSubWindowFullScreen())
            (*window)->setSubWindowFullScreen(false);
    }
}

void WzMdiArea::updateOverlayZOrder()
{
    for (WzSubWindow* const window : wzSubWindows(StackingOrder)) {
        if (window->staysOnTop())
            window->raise();
    }
    const auto created = wzSubWindows();
    QList<int> order;
    for (WzSubWindow* const window : wzSubWindows(StackingOrder)) {
        if (window->isVisible())
            order.append(
                static_cast<int>(std::find(created.begin(), created.end(), window) - created.begin()));
    }
    emit zOrderChanged(order);
    scheduleExposureUpdate();
}

void WzMdiArea::frameMoved(const QRect& from, const QRect& to, WzSubWindow* window)
{
    scheduleExposureUpdate();
    if (from != to && window->isVisible())
        emit updateWindowFocusSweep();
}

void WzMdiArea::scheduleExposureUpdate()
{
    if (!m_exposureTimer.isActive())
        m_exposureTimer.start(0, this);
}

void WzMdiArea::updateExposure()
{
    const QRect area = instrumentArea();
    auto windows = wzSubWindows(StackingOrder);
    std::reverse(windows.begin(), windows.end());
    // A minimised main window keeps its children visible.
    const bool areaShown = isVisible() && !window()->isMinimized() && !m_poweringOff;
    QRegion covered;
    for (WzSubWindow* const window : windows) {
        const bool shown = areaShown && window->isVisible();
        const QRegion rect(window->geometry() & area);
        if (WzSubwindowContent* const content = window->content())
            content->setExposed(shown && !rect.subtracted(covered).isEmpty());
        if (shown)
            covered += rect;
    }
}

void WzMdiArea::updateStaleTick()
{
    const bool wanted = isSignalConnected(QMetaMethod::fromSignal(&WzMdiArea::staleTick)) && !m_poweringOff;
    if (wanted && !m_staleTimer.isActive())
        m_staleTimer.start(kStaleTickMs, Qt::CoarseTimer, this);
    else if (!wanted)
        m_staleTimer.stop();
}

std::vector<WzSubWindow*> WzMdiArea::visibleWindows() const
{
    auto windows = wzSubWindows();
    const auto isHidden = [](const WzSubWindow* window) { return !window->isVisible(); };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isHidden), windows.end());
    return windows;
}

bool WzMdiArea::canStepFullScreenWindows() const
{
    const auto windows = visibleWindows();
    return windows.size() > 1 && std::any_of(windows.begin(), windows.end(), [](const WzSubWindow* window) {
               return window->isSubWindowFullScreen();
           });
}

void WzMdiArea::stepFullScreenWindows(bool previous)
{
    if (!canStepFullScreenWindows())
        return;
    const auto windows = visibleWindows();
    const auto current = std::find_if(windows.begin(), windows.end(), [](const WzSubWindow* window) {
        return window->isSubWindowFullScreen();
    });
    const auto count = static_cast<std::ptrdiff_t>(windows.size());
    const auto index = current - windows.begin();
    WzSubWindow* const next = windows[static_cast<std::size_t>((index + (previous ? count - 1 : 1)) % count)];
    viewport()->setUpdatesEnabled(false);
    (*current)->setSubWindowFullScreen(false);
    next->setSubWindowFullScreen(true);
    setActiveSubWindow(next);
    viewport()->setUpdatesEnabled(true);
}

void WzMdiArea::onScreenSwipingSupportedUpdated(QStringList values, QStringList, bool active)
{
    const bool supported = active && values.value(0) == QLatin1String("true");
    if (supported == m_screenSwipingSupported)
        return;
    m_screenSwipingSupported = supported;
    emit screenSwipingSupportedChanged(supported);
}

void WzMdiArea::activeSubWindowChanged(QMdiSubWindow*)
{
    // The window that was active stays current while the program has lost the focus.
    WzSubWindow* const current = activeWzSubWindow();
    for (WzSubWindow* const window : wzSubWindows())
        window->setHighlighted(window == current);
    SpotlightManager::getInstance().setWindowInSpotlight(current);
    if (current) {
        reduceFullScreenWindowSizeIfNotTopmostLayer();
        emit current->subWindowInFocus();
    }
    updateOverlayZOrder();
}

/// QMdiArea installs itself as a filter of the whole application, so this sees the events of all objects.
bool WzMdiArea::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::Hide:
        if (watched == m_drag->window())
            cancelDrag();
        break;
    case QEvent::ZOrderChange:
        scheduleExposureUpdate();
        break;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
        // Of the main window, which gets all fingers; widgets get mouse events of the first one only.
        if (watched == window()->windowHandle())
            onFingers(static_cast<QTouchEvent*>(event)->touchPoints().size());
        break;
    case QEvent::MouseButtonPress:
        // The bars come in addition to what the press does in the window that reaches to the edge. Only
        // once it is known whom the press hits, or bars that came first would get it.
        if (widget && isAncestorOf(widget)
            && isAtBarEdge(mapFromGlobal(static_cast<QMouseEvent*>(event)->globalPos())))
            emit showToolbarRequested();
        Q_FALLTHROUGH();
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        if (widget && filterMouseEvent(*widget, *static_cast<QMouseEvent*>(event)))
            return true;
        break;
    case QEvent::KeyPress:
        if (m_drag->isDragging() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            m_drag->cancel();
            return true;
        }
        break;
    default:
        break;
    }
    return QMdiArea::eventFilter(watched, event);
}

/// A press near an edge comes a second time when no drag has come of it, and may mean the help then.
bool WzMdiArea::filterMouseEvent(QWidget& receiver, QMouseEvent& event)
{
    return m_drag->filterMouseEvent(&receiver, &event) || m_helpReach->filterMouseEvent(&receiver, event);
}

void WzMdiArea::addWzSubWindow(WzSubWindow* window)
{
    addSubWindow(window);
    connect(window, &WzSubWindow::fullScreenChanged, this, &WzMdiArea::toggleFullScreenMode);
    connect(window, &QObject::destroyed, this, [this] {
        scheduleExposureUpdate();
        emit windowsChanged();
    });
    emit windowsChanged();
}

void WzMdiArea::mousePressEvent(QMouseEvent* event)
{
    QMdiArea::mousePressEvent(event);
    m_tapBegan.reset();
    if (isAtBarEdge(event->pos()))
        emit showToolbarRequested();
    else if (event->button() == Qt::LeftButton)
        m_tapBegan = event->globalPos();
}

void WzMdiArea::mouseReleaseEvent(QMouseEvent* event)
{
    QMdiArea::mouseReleaseEvent(event);
    // Only on release is it known that it is no swipe, which is to work on an empty layout too.
    const auto began = std::exchange(m_tapBegan, std::nullopt);
    if (began && (event->globalPos() - *began).manhattanLength() < WindowDrag::kStartDistance)
        emit backgroundTapped(event->globalPos());
}

bool WzMdiArea::isAtBarEdge(const QPoint& position) const
{
    return position.y() < kBarEdge || position.y() >= height() - kBarEdge;
}

void WzMdiArea::resizeEvent(QResizeEvent* event)
{
    QMdiArea::resizeEvent(event);
    cancelDrag();
    WzSubWindow::populateScreenSedecimants(instrumentArea());
    for (WzSubWindow* const window : wzSubWindows())
        window->onAreaResized();
    scheduleExposureUpdate();
}

void WzMdiArea::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), m_style.colour(ColourRole::InstrumentBackground));
    if (!visibleWindows().empty())
        return;
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(ColourRole::InstrumentSecondaryText));
    painter.drawText(instrumentArea(), Qt::AlignCenter,
                     tr("This layout is empty.\nTap here to open an instrument."));
}

void WzMdiArea::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_exposureTimer.timerId()) {
        m_exposureTimer.stop();
        updateExposure();
    } else if (event->timerId() == m_staleTimer.timerId()) {
        emit staleTick();
        updateStaleTick();
    } else {
        QMdiArea::timerEvent(event);
    }
}

bool WzMdiArea::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::Gesture && event->type() != QEvent::GestureOverride)
        return QMdiArea::viewportEvent(event);
    const auto* const gestures = static_cast<QGestureEvent*>(event);
    const auto* const swipe =
        static_cast<OneFingerGesture*>(gestures->gesture(OneFingerRecognizer::swipeType()));
    if (!swipe || event->type() != QEvent::Gesture)
        return QMdiArea::viewportEvent(event);
    if (ignoreGestureEvents() || swipe->state() == Qt::GestureCanceled)
        m_swipe->cancel();
    else if (swipe->state() == Qt::GestureFinished)
        m_swipe->release(*swipe);
    else
        m_swipe->follow(*swipe);
    return true;
}

void WzMdiArea::scrollContentsBy(int, int)
{
    // The area is the screen: there is nowhere to scroll to.
}
