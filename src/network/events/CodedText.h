#pragma once

#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>

/// What an enumeration's value is on the wire and in the log. A table of them is indexed by the enumeration.
struct CodedText {
    const char* code;
    const char* text;
};

template<typename Event, std::size_t Size>
QString codeOf(const std::array<CodedText, Size>& table, Event event)
{
    return QString::fromLatin1(table.at(static_cast<std::size_t>(event)).code);
}

/// The text of the code, or the code itself when the table does not have it.
template<std::size_t Size>
QString textOfCode(const std::array<CodedText, Size>& table, const QString& code)
{
    const auto found = std::find_if(table.begin(), table.end(), [&](const CodedText& entry) {
        return code == QLatin1String(entry.code);
    });
    return found == table.end() ? code : QString::fromLatin1(found->text);
}
