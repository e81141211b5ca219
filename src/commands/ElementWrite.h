#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class ClientDatacore;
class ClientDatacoreRegistry;

/// What came of something that was asked for.
struct CommandOutcome {
    bool isDone = true;
    QString text; ///< why it was not done, or what came of it; may be empty when it was done

    static CommandOutcome refused(const QString& reason) { return {false, reason}; }
};

/// One write to an element of the instrument, until the instrument has answered. It tells the outcome once
/// and deletes itself.
class ElementWrite : public QObject {
    Q_OBJECT
public:
    static constexpr int kTimeLimitMs = 5000;

    using Done = std::function<void(const CommandOutcome&)>;

    /// @p path with the name of its tree. What cannot be written is told before this returns.
    static void begin(ClientDatacoreRegistry& registry, const QString& path, const QStringList& values,
                      QObject* owner, Done done);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    ElementWrite(ClientDatacore& node, const QStringList& values, QObject* owner, Done done);

    void check();
    void finish(const CommandOutcome& outcome);

    const QPointer<ClientDatacore> m_node;
    const QStringList m_values;
    Done m_done;
    QBasicTimer m_timer;
};
