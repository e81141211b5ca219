#include "remote/ConsoleProtocol.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTextCodec>

#include <algorithm>

namespace ConsoleProtocol {

namespace {

constexpr int kUtf8Mib = 106;

QString tr(const char* text)
{
    return QCoreApplication::translate("ConsoleProtocol", text);
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

} // namespace

QString defaultSocketPath()
{
    // Without a session of the user Qt takes a folder in /tmp, which does as well, and says so each time.
    const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    qInstallMessageHandler(handler);
    return folder.isEmpty() ? QString() : folder + QLatin1String("/wz_displayclient.console");
}

QByteArray answerLines(const QString& text)
{
    QByteArray result;
    QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    for (QString& line : lines) {
        std::replace_if(line.begin(), line.end(), isControl, QChar(QLatin1Char('?')));
        if (line.startsWith(QLatin1String(kMark)))
            line.prepend(QLatin1Char(' '));
        result += line.toUtf8() + '\n';
    }
    return result;
}

QByteArray endMark(bool isDone)
{
    return QByteArray(isDone ? kDone : kFailed) + '\n';
}

QString faultOf(const QByteArray& line)
{
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForMib(kUtf8Mib)->toUnicode(line.constData(), line.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return tr("The line is not UTF-8");
    if (std::any_of(text.begin(), text.end(), isControl))
        return tr("There are control characters in the line");
    return {};
}

} // namespace ConsoleProtocol
