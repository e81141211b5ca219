#include "gui/shell/ConsoleLog.h"

void ConsoleLog::enter(const QString& line)
{
    if (m_entries.isEmpty() || m_entries.last() != line)
        m_entries << line;
    if (m_entries.size() > kMostEntries)
        m_entries.removeFirst();
    addLine(QStringLiteral("> ") + line);
    if (++m_waiting == 1)
        emit busyChanged(true);
    emit entered(line);
}

void ConsoleLog::clear()
{
    m_lines.clear();
    emit cleared();
}

void ConsoleLog::addAnswerLine(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    for (const QString& line : std::as_const(lines))
        addLine(line);
}

void ConsoleLog::endAnswer(bool isDone)
{
    addLine(isDone ? tr("Done") : tr("Not done"));
    if (m_waiting > 0 && --m_waiting == 0)
        emit busyChanged(false);
}

void ConsoleLog::addLine(const QString& line)
{
    m_lines << line;
    if (m_lines.size() > kMostLines)
        m_lines.removeFirst();
    emit lineAdded(line);
}
