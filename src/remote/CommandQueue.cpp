#include "remote/CommandQueue.h"

#include "remote/WzExternalApi.h"

#include <utility>

CommandQueue::CommandQueue(WzExternalApi& api)
    : QObject(&api)
    , m_api(api)
{
    connect(&api, &WzExternalApi::newConsoleLine, this, &CommandQueue::onLine);
    connect(&api, &WzExternalApi::commandRefused, this, [this] { m_isDone = false; });
    connect(&api, &WzExternalApi::commandFinished, this, &CommandQueue::onFinished);
}

void CommandQueue::submit(Client& client, const QString& line)
{
    add({&client, line, {}});
}

void CommandQueue::refuse(Client& client, const QString& reason)
{
    add({&client, {}, reason});
}

void CommandQueue::add(Entry entry)
{
    if (m_isShutDown)
        entry.refusal = tr("The display client ends");
    m_entries.push_back(std::move(entry));
    // From the event loop, so that a long row of short commands does not pile up on the stack.
    QMetaObject::invokeMethod(this, &CommandQueue::runNext, Qt::QueuedConnection);
}

void CommandQueue::withdraw(const Client& client)
{
    for (Entry& entry : m_entries) {
        if (entry.client == &client)
            entry.client = nullptr;
    }
}

void CommandQueue::runNext()
{
    if (m_isBusy || m_entries.empty())
        return;
    m_isBusy = true;
    m_isDone = true;
    const Entry entry = m_entries.front();
    if (entry.refusal.isEmpty()) {
        m_api.processCommand(entry.line);
        return;
    }
    onLine(entry.refusal);
    m_isDone = false;
    onFinished();
}

void CommandQueue::onLine(const QString& line)
{
    if (m_isBusy && m_entries.front().client)
        m_entries.front().client->onAnswerLine(line);
}

void CommandQueue::onFinished()
{
    // The end of a command that came by another way.
    if (!m_isBusy)
        return;
    Client* const client = m_entries.front().client;
    m_entries.pop_front();
    m_isBusy = false;
    if (!m_entries.empty())
        QMetaObject::invokeMethod(this, &CommandQueue::runNext, Qt::QueuedConnection);
    if (client)
        client->onAnswerEnd(m_isDone);
}

void CommandQueue::shutDown()
{
    m_isShutDown = true;
    m_api.shutDown();
    for (Entry& entry : m_entries)
        entry.refusal = tr("The display client ends");
    while (!m_entries.empty() && !m_isBusy)
        runNext();
}
