#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <optional>

namespace Velmora::Types {

/// The text at the position of @p code, or @p fallback behind the end of the table.
template<typename Code, std::size_t N>
QString textOf(Code code, const std::array<const char*, N>& texts, const char* fallback)
{
    const auto index = static_cast<std::size_t>(code);
    return QString::fromLatin1(index < N ? texts[index] : fallback);
}

/// The code whose text is @p text, letter for letter; the other way round.
template<typename Code, std::size_t N>
std::optional<Code> codeOf(const QString& text, const std::array<const char*, N>& texts)
{
    for (std::size_t index = 0; index < N; ++index) {
        if (text == QLatin1String(texts[index]))
            return static_cast<Code>(index);
    }
    return std::nullopt;
}

} // namespace Velmora::Types
