#include "feed/PictureFeedServer.h"

#include "feed/FeedSession.h"
#include "logging/LogThrottle.h"

#include <QTcpSocket>

#include <algorithm>
#include <chrono>

namespace Velmora::Feed {

namespace {

using namespace std::chrono_literals;

/// A quarter of a frame at 50 Hz.
constexpr auto kPollInterval = 5ms;
constexpr std::size_t kMostSessions = 16;

} // namespace

PictureFeedServer::PictureFeedServer(int instrumentPort, QObject* parent)
    : QObject(parent)
    , m_instrumentPort(instrumentPort)
    , m_server(this)
    , m_timer(this)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(kPollInterval);
    connect(&m_server, &QTcpServer::newConnection, this, &PictureFeedServer::onNewConnection);
    connect(&m_timer, &QTimer::timeout, this, &PictureFeedServer::poll);
}

PictureFeedServer::~PictureFeedServer()
{
    // Their connections end with them, which must not come back here any more.
    for (FeedSession* const session : m_sessions) {
        session->disconnect(this);
        delete session;
    }
}

bool PictureFeedServer::listen(const QHostAddress& address, quint16 port)
{
    return m_server.listen(address, port);
}

void PictureFeedServer::onNewConnection()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        if (m_sessions.size() >= kMostSessions) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::warn, "Picture feed: more than {} readers; one is turned away",
                         kMostSessions);
            socket->abort();
            socket->deleteLater();
            continue;
        }
        auto* const session = new FeedSession(socket, m_instrumentPort, this);
        m_sessions.push_back(session);
        connect(session, &FeedSession::finished, this, [this, session] { drop(session); });
    }
    if (!m_sessions.empty())
        m_timer.start();
}

void PictureFeedServer::drop(FeedSession* session)
{
    m_sessions.erase(std::remove(m_sessions.begin(), m_sessions.end(), session), m_sessions.end());
    session->deleteLater();
    if (m_sessions.empty())
        m_timer.stop();
}

void PictureFeedServer::poll()
{
    // A session that ends while it writes takes itself out of the list.
    const auto sessions = m_sessions;
    for (FeedSession* const session : sessions)
        session->poll();
}

} // namespace Velmora::Feed
