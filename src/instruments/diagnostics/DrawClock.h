#pragma once

#include <QHash>

#include <chrono>
#include <vector>

class QObject;
class WzSubWindow;

/// Measures what painting costs, window by window. The application hands it each paint event; it costs
/// nothing while nobody wants to know.
class DrawClock {
public:
    struct Share {
        QString window; ///< empty for what lies over the windows
        int events = 0; ///< paint events, of which a picture takes one for each widget that changed
        std::chrono::nanoseconds time{0};
    };

    static DrawClock& getInstance();

    bool isRunning() const { return m_users > 0; }
    void start() { ++m_users; }
    void stop();

    /// Painting of @p receiver took so long.
    void note(const QObject* receiver, std::chrono::nanoseconds time);
    /// Since the last time that this was asked for, by window in the order of their names.
    std::vector<Share> take();

private:
    DrawClock() = default;

    int m_users = 0;
    QHash<QString, Share> m_shares;
};
