#pragma once

#include <QElapsedTimer>
#include <QString>

#include <chrono>
#include <vector>

/// Notices when one event holds up the event loop: for that long no finger and no value has an effect. The
/// application makes a Scope around the handling of each event.
class LoopWatch {
public:
    static constexpr std::chrono::milliseconds kLimit{20};

    /// Watches while it exists; there is one at a time.
    LoopWatch();
    ~LoopWatch();
    LoopWatch(const LoopWatch&) = delete;
    LoopWatch& operator=(const LoopWatch&) = delete;

    /// The one that watches; null when none does.
    static LoopWatch* current() { return s_current; }

    int stalls() const { return m_stalls; }
    std::chrono::milliseconds longest() const { return m_longest; }
    /// What held up the loop at its longest stall, where that is known; empty otherwise.
    QString longestCause() const { return m_longestCause; }

    /// Tells what the event that is being handled is busy with.
    void nameCause(const QString& cause) { m_cause = cause; }

    /// The handling of one event. Those sent within it count with it; one that runs an event loop of its own
    /// does not count, since the loop goes on.
    class Scope {
    public:
        Scope();
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        LoopWatch* const m_watch;
        bool m_isOutermost = false;
        QElapsedTimer m_time;
    };

private:
    struct Handling {
        int loopLevel;
        bool ranLoop = false;
    };

    void note(std::chrono::milliseconds busy);

    static LoopWatch* s_current;

    std::vector<Handling> m_handling; ///< one for each level of event loops
    QString m_cause;
    int m_stalls = 0;
    std::chrono::milliseconds m_longest{0};
    QString m_longestCause;
};
