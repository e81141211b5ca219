#pragma once

#include <QBasicTimer>
#include <QMdiArea>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

class ApplicationState;
class ConnectionStatus;
class HelpReach;
class MainWindowBase;
class SwipeFollower;
class WindowDrag;
class WzCustomStyle;
class WzMdiAreaConnectionBuilder;
class WzSubWindow;

/// The instrument area: the sub-windows, their stacking order, and the gestures on them. It covers the whole
/// screen; the bars lie over it.
class WzMdiArea : public QMdiArea {
    Q_OBJECT
public:
    /// The builder may be null: then no element drives the area.
    WzMdiArea(MainWindowBase& mainWindow, WzMdiAreaConnectionBuilder* builder, WzCustomStyle& style);
    ~WzMdiArea() override;

    WzCustomStyle* getWzStyle() const { return &m_style; }
    MainWindowBase* mainWindow() const { return &m_mainWindow; }
    ApplicationState& applicationState() const;
    const ConnectionStatus& connectionStatus() const;

    /// What windows may cover, in its own coordinates.
    QRect instrumentArea() const;
    /// The windows that are open, in the order in which they were made, or from the lowest to the highest.
    std::vector<WzSubWindow*> wzSubWindows(WindowOrder order = CreationOrder) const;
    WzSubWindow* activeWzSubWindow() const;
    /// The area takes the window over.
    void addWzSubWindow(WzSubWindow* window);

    bool isScreenSwipingSupported() const { return m_screenSwipingSupported; }
    bool isSwipeGestureInProgress() const;
    /// Something under the finger, a slider say, wants the swipe for itself while this is off.
    void setAllowSwipeGesture(bool allow) { m_allowSwipeGesture = allow; }
    bool ignoreGestureEvents() const;
    /// Where a swipe to the previous (true) or next layout would lead; empty when nowhere.
    void setSwipeNeighbourName(std::function<QString(bool previous)> name);

    /// A window that is being dragged stays where it was: the screen changes beneath the finger.
    void cancelDrag();
    /// Stops all that moves: from now on the area is a still picture.
    void prepareForPowerOff();
    /// Returns a full-screen window to its place once another stands above it.
    void reduceFullScreenWindowSizeIfNotTopmostLayer();
    /// Brings the windows that stay on top above the others and tells the new order.
    void updateOverlayZOrder();
    /// A window went from one place to another.
    void frameMoved(const QRect& from, const QRect& to, WzSubWindow* window);
    /// What can be seen of each window is worked out anew, once, when all moves of now are done.
    void scheduleExposureUpdate();
    /// Runs the tick for overdue values while some content listens.
    void updateStaleTick();
    /// Whether a window is full screen and another could be.
    bool canStepFullScreenWindows() const;
    /// Shows the next or previous window at full screen, when one is.
    void stepFullScreenWindows(bool previous);

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void onScreenSwipingSupportedUpdated(QStringList values, QStringList reasons, bool active);
    void activeSubWindowChanged(QMdiSubWindow* window);

signals:
    void showToolbarRequested();
    void updateWindowFocusSweep();
    void windowClosed();
    /// The visible windows from the lowest to the highest, as their places in the order of creation.
    void zOrderChanged(QList<int> order);
    void toggleFullScreenMode(bool fullScreen);
    void screenSwipingSupportedChanged(bool supported);
    /// The direction: true goes to the previous, false to the next.
    void switchFullScreenWindows(bool previous);
    void switchWindowLayout(bool previous);
    /// A numbered command for the instrument.
    void executeCommand(int command);
    /// About four times a second, while some content waits for values.
    void staleTick();
    /// A window was added or has gone.
    void windowsChanged();
    /// The background, where no window stands, was tapped: pressed and released at the same place.
    void backgroundTapped(QPoint globalPosition);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    std::vector<WzSubWindow*> visibleWindows() const;
    void updateExposure();
    void onFingers(int count);
    bool filterMouseEvent(QWidget& receiver, QMouseEvent& event);
    bool isAtBarEdge(const QPoint& position) const;

    MainWindowBase& m_mainWindow;
    WzCustomStyle& m_style;
    WindowDrag* const m_drag;
    SwipeFollower* const m_swipe;
    HelpReach* const m_helpReach;
    bool m_screenSwipingSupported = true;
    bool m_allowSwipeGesture = true;
    bool m_severalFingers = false;
    bool m_poweringOff = false;
    std::optional<QPoint> m_tapBegan; ///< global
    QBasicTimer m_exposureTimer;
    QBasicTimer m_staleTimer;
};
