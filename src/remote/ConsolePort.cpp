#include "remote/ConsolePort.h"

ConsolePort::ConsolePort(CommandQueue& queue)
    : QObject(&queue)
    , m_queue(&queue)
{
}

ConsolePort::~ConsolePort()
{
    if (m_queue)
        m_queue->withdraw(*this);
}

void ConsolePort::submit(const QString& line)
{
    m_queue->submit(*this, line);
}
