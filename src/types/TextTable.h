#pragma once

#include <QString>

#include <array>
#include <cstddef>

namespace Velmora::Types {

/// The text at the position of @p code, or @p fallback behind the end of the table.
template<typename Code, std::size_t N>
QString textOf(Code code, const std::array<const char*, N>& texts, const char* fallback)
{
    const auto index = static_cast<std::size_t>(code);
    return QString::fromLatin1(index < N ? texts[index] : fallback);
}

} // namespace Velmora::Types
