#pragma once

#include <QtGlobal>

#include <memory>
#include <vector>

class QAbstractSocket;

/// Deletes the sockets that a connection gives up. A socket must not be deleted under its own signal, not
/// even by an event loop that is run meanwhile: then it is closed at once, and deleted when the outermost
/// signal has been handled.
class SocketKeeper {
    struct Shared;

public:
    /// Marks that a signal of a socket is being handled. It may outlive the connection.
    class Scope {
    public:
        explicit Scope(const SocketKeeper& keeper);
        ~Scope();
        Q_DISABLE_COPY_MOVE(Scope)

        bool connectionIsAlive() const;

    private:
        const std::shared_ptr<Shared> m_shared;
    };

    SocketKeeper();
    /// The connection is gone.
    ~SocketKeeper();
    Q_DISABLE_COPY_MOVE(SocketKeeper)

    bool isHandlingSignal() const;
    /// Takes the socket over. Its signal disconnected() stays wired, readyRead() does not.
    void drop(QAbstractSocket* socket);

private:
    const std::shared_ptr<Shared> m_shared;
};
