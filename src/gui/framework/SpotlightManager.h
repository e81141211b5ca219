#pragma once

#include <QObject>
#include <QPointer>

class FocusSweepManager;
class WzSubWindow;

/// Knows what the knob and the keys act on: the window in the spotlight, and the focus sweep of now. One for
/// the whole program.
class SpotlightManager : public QObject {
    Q_OBJECT
public:
    static SpotlightManager& getInstance();

    WzSubWindow* windowInSpotlight() const;
    void setWindowInSpotlight(WzSubWindow* window);
    /// Does nothing unless @p window is the one in the spotlight.
    void relinquishWindowSpotlight(const WzSubWindow* window);

    /// The sweep that arrow keys and knob act on; null when there is none.
    FocusSweepManager* getCurrentSweepManager() const;
    void setCurrentSweepManager(FocusSweepManager* manager);
    /// The one to come back to when the current one goes.
    FocusSweepManager* getPreviousSweepManager() const;
    void setPrevSweepManager(FocusSweepManager* manager);

signals:
    void spotlightChanged(WzSubWindow* window);

private:
    SpotlightManager();
    ~SpotlightManager() override;

    QPointer<WzSubWindow> m_window;
    QPointer<FocusSweepManager> m_currentSweep;
    QPointer<FocusSweepManager> m_previousSweep;
};
