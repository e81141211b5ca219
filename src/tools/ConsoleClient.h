#pragma once

#include <QLocalSocket>
#include <QString>

#include <chrono>

/// The way to a running display client: sends it command lines and prints its answers. It waits, and no event
/// loop is needed.
class ConsoleClient {
public:
    enum class Result {
        Done,
        Refused, ///< its answer says why
        Lost, ///< there was no whole answer; see problem()
    };

    /// @p timeLimit: for the display client to be there, and between two lines of an answer; 0 for none.
    ConsoleClient(const QString& path, std::chrono::milliseconds timeLimit);

    /// Also waits for a display client that is only starting.
    bool connectToClient();
    /// Prints the lines of the answer on standard output.
    Result run(const QString& line);
    const QString& problem() const { return m_problem; }

private:
    int timeLimitMs() const;
    bool readLine(QByteArray& line);

    const QString m_path;
    const std::chrono::milliseconds m_timeLimit;
    QLocalSocket m_socket;
    QString m_problem;
};
