#include "datacore/nodes/MacAddressValue.h"

#include <QByteArray>

#include <cctype>

std::optional<MacAddressValue> MacAddressValue::fromText(const QString& text)
{
    MacAddressValue address;
    const int pairs = static_cast<int>(address.bytes.size());
    if (text.size() != 3 * pairs - 1)
        return std::nullopt;
    for (int i = 0; i < pairs; ++i) {
        const QChar separator = i == 0 ? QChar(u':') : text.at(3 * i - 1);
        if (separator != u':' && separator != u'-')
            return std::nullopt;
        const auto isHexadecimal = [](QChar digit) {
            return digit.unicode() < 0x80 && std::isxdigit(digit.unicode());
        };
        if (!isHexadecimal(text.at(3 * i)) || !isHexadecimal(text.at(3 * i + 1)))
            return std::nullopt;
        address.bytes[static_cast<size_t>(i)] =
            static_cast<quint8>(QStringView(text).mid(3 * i, 2).toUShort(nullptr, 16));
    }
    return address;
}

QString MacAddressValue::toText() const
{
    const auto* const raw = reinterpret_cast<const char*>(bytes.data());
    return QString::fromLatin1(QByteArray::fromRawData(raw, static_cast<int>(bytes.size())).toHex(':'));
}
