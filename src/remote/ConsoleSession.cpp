#include "remote/ConsoleSession.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "remote/ConsoleProtocol.h"

namespace {

constexpr int kPiece = 16 * 1024;

} // namespace

ConsoleSession::ConsoleSession(QLocalSocket* socket, CommandQueue& queue, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_queue(&queue)
{
    socket->setParent(this);
    socket->setReadBufferSize(kPiece);
    connect(socket, &QLocalSocket::readyRead, this, &ConsoleSession::read);
    connect(socket, &QLocalSocket::disconnected, this, &ConsoleSession::onDisconnected);
    read();
}

ConsoleSession::~ConsoleSession()
{
    if (m_queue)
        m_queue->withdraw(*this);
}

void ConsoleSession::read()
{
    while (m_waiting < kMostWaiting && m_socket->bytesAvailable() > 0)
        take(m_socket->read(kPiece));
}

void ConsoleSession::take(const QByteArray& bytes)
{
    int from = 0;
    for (int end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', from)) {
        m_line += bytes.mid(from, end - from);
        from = end + 1;
        takeLine(std::exchange(m_line, {}));
    }
    m_line += bytes.mid(from);
    if (m_line.size() <= ConsoleProtocol::kLongestLine + 1)
        return;
    // The part that is here tells enough.
    m_isTooLong = true;
    m_line.clear();
}

void ConsoleSession::takeLine(QByteArray line)
{
    ++m_waiting;
    if (line.endsWith('\r'))
        line.chop(1);
    const bool isTooLong = std::exchange(m_isTooLong, false) || line.size() > ConsoleProtocol::kLongestLine;
    const QString fault = isTooLong ? tr("The line has more than %1 bytes").arg(ConsoleProtocol::kLongestLine)
                                    : ConsoleProtocol::faultOf(line);
    if (fault.isEmpty())
        m_queue->submit(*this, QString::fromUtf8(line));
    else
        m_queue->refuse(*this, fault);
}

void ConsoleSession::onAnswerLine(const QString& line)
{
    write(ConsoleProtocol::answerLines(line));
}

void ConsoleSession::onAnswerEnd(bool isDone)
{
    --m_waiting;
    write(ConsoleProtocol::endMark(isDone));
    read();
}

void ConsoleSession::write(const QByteArray& bytes)
{
    if (m_socket->state() != QLocalSocket::ConnectedState)
        return;
    m_socket->write(bytes);
    if (m_socket->bytesToWrite() <= kMostUnread)
        return;
    static Velmora::LogThrottle throttle;
    throttle.log(spdlog::level::warn, "A console that does not read its answers is dropped");
    m_socket->abort();
}

/// Whole lines that had arrived are carried out.
void ConsoleSession::onDisconnected()
{
    while (m_socket->bytesAvailable() > 0)
        take(m_socket->read(kPiece));
    emit ended();
    deleteLater();
}

void ConsoleSession::close()
{
    m_socket->flush();
    m_socket->disconnectFromServer();
}
