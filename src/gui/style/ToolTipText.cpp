#include "gui/style/ToolTipText.h"

#include <QStringList>

namespace {

constexpr int kLineLength = 80;

} // namespace

QString ToolTipText::of(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        for (int at = 0; at == 0 || at < line.size(); at += kLineLength)
            lines << line.mid(at, kLineLength).toHtmlEscaped();
    }
    return QLatin1String("<p style=\"white-space: pre; margin: 4px\">") + lines.join(QLatin1String("<br>"))
        + QLatin1String("</p>");
}
