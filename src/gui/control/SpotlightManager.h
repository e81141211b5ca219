#pragma once

#include <QObject>
#include <QPointer>

class WzSubWindow;

/// Knows which window the knob and the keys act on: the one in the spotlight. One for the whole program.
class SpotlightManager : public QObject {
    Q_OBJECT
public:
    static SpotlightManager& getInstance();

    WzSubWindow* windowInSpotlight() const { return m_window; }
    void setWindowInSpotlight(WzSubWindow* window);
    /// Does nothing unless @p window is the one in the spotlight.
    void relinquishWindowSpotlight(const WzSubWindow* window);

signals:
    void spotlightChanged(WzSubWindow* window);

private:
    SpotlightManager() = default;

    QPointer<WzSubWindow> m_window;
};
