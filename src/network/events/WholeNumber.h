#pragma once

#include <QJsonValue>

#include <cmath>
#include <optional>

/// The value as a whole number; absent when it is none, or too large for a double to hold each whole number.
///
/// QJsonValue::toInt() gives its default for what it cannot take, which would make 0 of a number that is too
/// large.
inline std::optional<qint64> wholeNumber(const QJsonValue& value)
{
    constexpr double kLargest = 9007199254740992.0;
    const double number = value.toDouble();
    if (!value.isDouble() || std::abs(number) > kLargest || number != std::floor(number))
        return std::nullopt;
    return static_cast<qint64>(number);
}
