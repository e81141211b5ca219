#include "network/SocketKeeper.h"

#include <QAbstractSocket>

#include <utility>

struct SocketKeeper::Shared {
    int depth = 0; ///< signals being handled, one within the other
    bool connectionGone = false;
    std::vector<QAbstractSocket*> dropped; ///< to be deleted when the outermost has been handled
};

SocketKeeper::Scope::Scope(const SocketKeeper& keeper)
    : m_shared(keeper.m_shared)
{
    ++m_shared->depth;
}

SocketKeeper::Scope::~Scope()
{
    if (--m_shared->depth > 0)
        return;
    for (QAbstractSocket* socket : std::exchange(m_shared->dropped, {}))
        socket->deleteLater();
}

bool SocketKeeper::Scope::connectionIsAlive() const
{
    return !m_shared->connectionGone;
}

SocketKeeper::SocketKeeper()
    : m_shared(std::make_shared<Shared>())
{
}

SocketKeeper::~SocketKeeper()
{
    m_shared->connectionGone = true;
}

bool SocketKeeper::isHandlingSignal() const
{
    return m_shared->depth > 0;
}

void SocketKeeper::drop(QAbstractSocket* socket)
{
    socket->setParent(nullptr);
    if (!isHandlingSignal()) {
        delete socket;
        return;
    }
    QObject::disconnect(socket, &QAbstractSocket::readyRead, nullptr, nullptr);
    m_shared->dropped.push_back(socket);
    socket->abort();
}
