#include "tools/ConsoleClient.h"

#include "remote/ConsoleProtocol.h"

#include <QDeadlineTimer>
#include <QThread>

#include <cstdio>

ConsoleClient::ConsoleClient(const QString& path, std::chrono::milliseconds timeLimit)
    : m_path(path)
    , m_timeLimit(timeLimit)
{
}

/// As Qt's waiting functions take it.
int ConsoleClient::timeLimitMs() const
{
    return m_timeLimit.count() == 0 ? -1 : static_cast<int>(m_timeLimit.count());
}

bool ConsoleClient::connectToClient()
{
    constexpr unsigned long kRetryMs = 100;
    constexpr int kConnectMs = 1000;
    const QDeadlineTimer deadline(timeLimitMs());
    for (;;) {
        m_socket.connectToServer(m_path);
        if (m_socket.waitForConnected(kConnectMs))
            return true;
        if (deadline.hasExpired())
            break;
        QThread::msleep(kRetryMs);
    }
    m_problem = QStringLiteral("no display client at %1").arg(m_path);
    return false;
}

bool ConsoleClient::readLine(QByteArray& line)
{
    while (!m_socket.canReadLine()) {
        if (m_socket.waitForReadyRead(timeLimitMs()))
            continue;
        const bool isThere = m_socket.state() == QLocalSocket::ConnectedState;
        m_problem = isThere ? QStringLiteral("no answer within %1 s").arg(m_timeLimit.count() / 1000)
                            : QStringLiteral("the display client has ended");
        return false;
    }
    line = m_socket.readLine();
    line.chop(1);
    return true;
}

ConsoleClient::Result ConsoleClient::run(const QString& line)
{
    m_socket.write(line.toUtf8() + '\n');
    QByteArray answer;
    while (readLine(answer)) {
        if (answer == ConsoleProtocol::kDone)
            return Result::Done;
        if (answer == ConsoleProtocol::kFailed)
            return Result::Refused;
        std::printf("%s\n", answer.constData());
        std::fflush(stdout);
    }
    return Result::Lost;
}
