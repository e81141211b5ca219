#include "tools/HexArgument.h"

#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "app/core/CommandLine.h"

#include <QByteArray>

#include <algorithm>
#include <cctype>

QByteArray HexArgument::read(const QString& text, int size)
{
    const bool hasPrefix = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const QString digits = text.mid(hasPrefix ? 2 : 0);
    const auto isHexadecimal = [](QChar digit) {
        return digit.unicode() < 0x80 && std::isxdigit(digit.unicode());
    };
    // QByteArray::fromHex() passes over what is no digit.
    if (digits.size() != 2 * size || !std::all_of(digits.begin(), digits.end(), isHexadecimal))
        CommandLine::failUsage(ToolContext::kProgramName,
                               QStringLiteral("'%1' is not %2 bytes in %3 hexadecimal digits")
                                   .arg(ToolOutput::printable(text))
                                   .arg(size)
                                   .arg(2 * size));
    return QByteArray::fromHex(digits.toLatin1());
}
