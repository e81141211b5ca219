#pragma once

#include <QLocalServer>
#include <QObject>

#include <memory>

class CommandQueue;
class ConsoleSession;

/// Lets consoles in at a local socket that belongs to its user alone. Lives on the command interface's
/// thread.
class ConsoleServer : public QObject {
    Q_OBJECT
public:
    /// At one time; further ones are told so and let go.
    static constexpr int kMostClients = 1000;

    explicit ConsoleServer(CommandQueue& queue);
    ~ConsoleServer() override;

    /// Opens the socket at @p path. Without one, and with a log line that says why, the client goes on: when
    /// another client has it, or when something else stands there. What a client that died has left is
    /// replaced.
    bool listen(const QString& path);
    int clientCount() const { return m_clients; }
    /// Refuses what waits, tells everybody, and closes the socket.
    void shutDown();

private:
    class Lock;

    QString open(const QString& path);
    void onNewConnection();

    CommandQueue& m_queue;
    std::unique_ptr<Lock> m_lock;
    QLocalServer* m_server = nullptr;
    int m_clients = 0;
    int m_mostClients = kMostClients;
};
