#pragma once

#include <QObject>
#include <QString>

#include <deque>

class WzExternalApi;

/// Brings the command lines of all consoles to the command interface, one at a time and in the order in which
/// they came, and each answer to where its line came from. Lives on the interface's thread.
class CommandQueue : public QObject {
    Q_OBJECT
public:
    /// Where lines come from. It withdraws before it is destroyed.
    class Client {
    public:
        virtual ~Client() = default;
        virtual void onAnswerLine(const QString& line) = 0;
        virtual void onAnswerEnd(bool isDone) = 0;
    };

    explicit CommandQueue(WzExternalApi& api);

    void submit(Client& client, const QString& line);
    /// Answers with @p reason when the line has its turn.
    void refuse(Client& client, const QString& reason);
    /// Answers to that client go nowhere; what it has asked for is done all the same.
    void withdraw(const Client& client);
    /// Refuses all that waits and all that comes.
    void shutDown();

private:
    struct Entry {
        Client* client;
        QString line;
        QString refusal; ///< in place of the line
    };

    void add(Entry entry);
    void runNext();
    void onLine(const QString& line);
    void onFinished();

    WzExternalApi& m_api;
    std::deque<Entry> m_entries; ///< the first is the one that is carried out, while m_isBusy
    bool m_isBusy = false;
    bool m_isDone = true;
    bool m_isShutDown = false;
};
