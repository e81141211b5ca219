#include "tools/ToolOutput.h"

#include "tools/ToolContext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <cstdio>
#include <cstring>

bool ToolOutput::write(const QByteArray& text)
{
    const auto size = static_cast<size_t>(text.size());
    if (std::fwrite(text.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return true;
    if (errno != EPIPE)
        say(QStringLiteral("cannot write the results: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return false;
}

bool ToolOutput::printLine(const QString& line)
{
    return write(line.toUtf8() + '\n');
}

bool ToolOutput::printLine(const QJsonObject& object)
{
    return write(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

bool ToolOutput::printLine(const QJsonArray& array)
{
    return write(QJsonDocument(array).toJson(QJsonDocument::Compact) + '\n');
}

void ToolOutput::say(const QString& message)
{
    std::fprintf(stderr, "%s: %s\n", ToolContext::kProgramName, printable(message).toLocal8Bit().constData());
}

QString ToolOutput::printable(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (character.category() == QChar::Other_Control)
            result += QStringLiteral("\\x%1").arg(uint(character.unicode()), 2, 16, QLatin1Char('0'));
        else
            result += character;
    }
    return result;
}
