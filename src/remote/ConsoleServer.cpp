#include "remote/ConsoleServer.h"

#include "logging/LogThrottle.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "remote/CommandQueue.h"
#include "remote/ConsoleProtocol.h"
#include "remote/ConsoleSession.h"

#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

/// Says whose the socket is. The kernel gives it back however its holder ends, so that no number of a process
/// can be mistaken.
class ConsoleServer::Lock {
public:
    explicit Lock(const QString& path)
        : m_file(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                        S_IRUSR | S_IWUSR))
    {
        m_isHeld = m_file >= 0 && ::flock(m_file, LOCK_EX | LOCK_NB) == 0;
    }
    ~Lock()
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    Q_DISABLE_COPY_MOVE(Lock)

    bool isOpen() const { return m_file >= 0; }
    bool isHeld() const { return m_isHeld; }

private:
    int m_file;
    bool m_isHeld = false;
};

namespace {

/// What the rest of the program needs.
constexpr rlim_t kOtherFiles = 256;

/// How many consoles there is room for, with as many open files as the system lets this process have.
int roomForClients()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return ConsoleServer::kMostClients;
    const rlim_t wanted = ConsoleServer::kMostClients + kOtherFiles;
    if (limit.rlim_cur < wanted) {
        limit.rlim_cur = std::min(wanted, limit.rlim_max);
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    const rlim_t room = limit.rlim_cur > kOtherFiles ? limit.rlim_cur - kOtherFiles : 1;
    return static_cast<int>(std::min<rlim_t>(room, ConsoleServer::kMostClients));
}

/// Whether something at the path answers; what was left by a process that died does not.
bool isAlive(const QString& path)
{
    constexpr int kTimeLimitMs = 500;
    QLocalSocket socket;
    socket.connectToServer(path);
    return socket.waitForConnected(kTimeLimitMs);
}

bool isSocket(const QString& path)
{
    struct stat state { };
    return ::lstat(QFile::encodeName(path).constData(), &state) == 0 && S_ISSOCK(state.st_mode);
}

} // namespace

ConsoleServer::ConsoleServer(CommandQueue& queue)
    : QObject(&queue)
    , m_queue(queue)
{
}

ConsoleServer::~ConsoleServer() = default;

bool ConsoleServer::listen(const QString& path)
{
    const QString fault = open(path);
    if (fault.isEmpty())
        return true;
    Velmora::log()->warn("No console at {}: {}", path, fault);
    m_server = nullptr;
    m_lock.reset();
    return false;
}

/// Why it could not be opened; empty when it could.
QString ConsoleServer::open(const QString& path)
{
    if (path.isEmpty())
        return tr("there is no runtime folder that is this user's own");
    m_lock = std::make_unique<Lock>(path + QLatin1String(".lock"));
    if (!m_lock->isOpen())
        return tr("its lock cannot be opened");
    if (!m_lock->isHeld())
        return tr("another client has it");
    if (QFileInfo::exists(path) && !isSocket(path))
        return tr("there is a file of that name");
    if (isSocket(path) && isAlive(path))
        return tr("another program has it");
    QLocalServer::removeServer(path);
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    m_mostClients = roomForClients();
    connect(m_server, &QLocalServer::newConnection, this, &ConsoleServer::onNewConnection);
    if (m_server->listen(path))
        return {};
    const QString fault = m_server->errorString();
    delete m_server;
    return fault;
}

void ConsoleServer::onNewConnection()
{
    while (QLocalSocket* const socket = m_server->nextPendingConnection()) {
        if (m_clients >= m_mostClients) {
            static Velmora::LogThrottle throttle;
            throttle.log(spdlog::level::warn, "There are {} consoles, which are all that can be", m_clients);
            socket->write(ConsoleProtocol::answerLines(tr("There are too many consoles"))
                          + ConsoleProtocol::endMark(false));
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            socket->disconnectFromServer();
            continue;
        }
        ++m_clients;
        auto* const session = new ConsoleSession(socket, m_queue, this);
        connect(session, &ConsoleSession::ended, this, [this] { --m_clients; });
    }
}

void ConsoleServer::shutDown()
{
    m_queue.shutDown();
    const auto sessions = findChildren<ConsoleSession*>(QString(), Qt::FindDirectChildrenOnly);
    for (ConsoleSession* const session : sessions) {
        session->close();
        delete session;
    }
    delete m_server;
    m_server = nullptr;
    m_lock.reset();
}
