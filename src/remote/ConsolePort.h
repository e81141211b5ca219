#pragma once

#include "remote/CommandQueue.h"

#include <QPointer>

/// The console that is a window of the client: lines and answers go over by queued signals. Lives on the
/// command interface's thread.
class ConsolePort : public QObject, public CommandQueue::Client {
    Q_OBJECT
public:
    explicit ConsolePort(CommandQueue& queue);
    ~ConsolePort() override;

    void onAnswerLine(const QString& line) override { emit answerLine(line); }
    void onAnswerEnd(bool isDone) override { emit answerEnd(isDone); }

public slots:
    void submit(const QString& line);

signals:
    void answerLine(QString line);
    void answerEnd(bool isDone);

private:
    const QPointer<CommandQueue> m_queue; ///< may go first
};
