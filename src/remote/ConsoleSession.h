#pragma once

#include "remote/CommandQueue.h"

#include <QLocalSocket>
#include <QPointer>

/// One console at the local socket. What it sends is bounded, and so is what waits for it: a console that
/// sends faster than its commands are carried out is not read, one that does not read is dropped.
class ConsoleSession : public QObject, public CommandQueue::Client {
    Q_OBJECT
public:
    /// Lines that may wait to be carried out.
    static constexpr int kMostWaiting = 64;
    /// Bytes of answers that may wait to be read.
    static constexpr qint64 kMostUnread = 256 * 1024;

    /// Takes the socket over.
    ConsoleSession(QLocalSocket* socket, CommandQueue& queue, QObject* parent);
    ~ConsoleSession() override;

    void onAnswerLine(const QString& line) override;
    void onAnswerEnd(bool isDone) override;
    /// Writes what is left and closes the socket.
    void close();

signals:
    void ended();

private:
    void read();
    void take(const QByteArray& bytes);
    void takeLine(QByteArray line);
    void write(const QByteArray& bytes);
    void onDisconnected();

    QLocalSocket* const m_socket;
    const QPointer<CommandQueue> m_queue; ///< may go first
    QByteArray m_line; ///< what came of it so far
    bool m_isTooLong = false; ///< the rest of the line is passed over
    int m_waiting = 0;
};
