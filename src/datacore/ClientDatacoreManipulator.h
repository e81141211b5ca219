#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <chrono>
#include <functional>

class ClientDatacore;
class ClientDatacoreRegistry;

/// Access to mirrored nodes for scripts and tools: wait for a path, read it, set it. It speaks to the mirror
/// by signals only, as a window does.
class ClientDatacoreManipulator : public QObject {
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds kDefaultTimeLimit{5000};

    explicit ClientDatacoreManipulator(const ClientDatacoreRegistry& registry, QObject* parent = nullptr);

    /// Runs the event loop until the server has sent a value for @p path. False, and a log line that says
    /// what is missing, when the time is up.
    bool waitForDatacore(QString path, std::chrono::milliseconds timeLimit = kDefaultTimeLimit);
    /// Runs the event loop until the server has echoed what setDatacoreValue() has written last. False, and a
    /// log line, when the time is up or the node is gone.
    bool waitForEcho(std::chrono::milliseconds timeLimit = kDefaultTimeLimit);
    /// The items of the node; @p ok tells whether there is such a node.
    QStringList getDatacoreValue(QString path, bool& ok);
    /// False, and a log line, when there is no such node.
    bool setDatacoreValue(QString path, QString value);
    bool setDatacoreValue(QString path, QStringList values);

public slots:
    void receiveRequestedDatacore(ClientDatacore* datacore);
    void receiveDatacoreValue(QStringList values, QStringList reasons, bool active);
    void receiveDatacoreOutOfSync();
    void receiveDatacoreInSync();

signals:
    void requestDatacore(QString path);
    void requestDatacoreUpdate();
    void setDatacoreStringValue(QString value);
    void setDatacoreStringListValue(QStringList values);

    /// Something has arrived that may be what is waited for.
    void progressMade();

private:
    void speakTo(ClientDatacore* datacore);
    bool select(const QString& path);
    bool selectToSet(const QString& path);
    bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds timeLimit);

    QPointer<ClientDatacore> m_datacore;
    QStringList m_values;
    bool m_isRequesting = false;
    bool m_isInSync = true;
};
