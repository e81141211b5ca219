#pragma once

#include <QCoreApplication>

#include <utility>

/// Ends the event loop of a command that follows an instrument. The first reason decides about the exit code.
class LoopEnd {
public:
    bool hasCome() const { return m_hasCome; }
    void come(int exitCode)
    {
        if (std::exchange(m_hasCome, true))
            return;
        // Queued, for there may be no event loop yet that could be ended.
        QMetaObject::invokeMethod(
            qApp, [exitCode] { QCoreApplication::exit(exitCode); }, Qt::QueuedConnection);
    }

private:
    bool m_hasCome = false;
};
