#pragma once

#include "gui/control/FocusSweepManager.h"

#include <QObject>
#include <QPointer>

class DisplayMainWindow;
class QKeyEvent;
class WzSubWindow;

/// Brings arrow keys, OK and knob, of a keyboard or of the front panel, to the focus sweep of now: that of
/// the active window, or of what lies over it. Menus have their keys for themselves.
class PanelKeys : public QObject {
    Q_OBJECT
public:
    explicit PanelKeys(DisplayMainWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onSpotlightChanged(WzSubWindow* window);
    bool handle(const QKeyEvent& event);
    bool moveWindow(int key);
    bool onArrow(FocusSweepManager& sweep, int key);
    bool onKnob(FocusSweepManager& sweep, bool clockwise);
    bool onOk(FocusSweepManager& sweep);
    /// To the nearest window in that direction.
    void moveSpotlight(int key);
    /// The sweep of now, with the controls of now; null when there is none.
    FocusSweepManager* currentSweep() const;
    WzSubWindow* activeWindow() const;

    DisplayMainWindow& m_window;
    QPointer<FocusSweepManager> m_windowSweep; ///< of the active window
};
