#pragma once

#include <fmt/format.h>

#include <QString>

/// Lets log messages take a QString as an argument; it is written as UTF-8.
template<>
struct fmt::formatter<QString> : fmt::formatter<fmt::string_view> {
    template<typename FormatContext>
    auto format(const QString& text, FormatContext& context) const
    {
        const QByteArray utf8 = text.toUtf8();
        return fmt::formatter<fmt::string_view>::format({utf8.constData(), static_cast<size_t>(utf8.size())},
                                                        context);
    }
};
