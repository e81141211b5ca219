#include "datacore/nodes/IpAddressV4Value.h"

#include <QVector>

namespace {

constexpr quint32 kFirstMulticast = 0xE0000000; // 224.0.0.0
constexpr quint32 kLastReservedMulticast = 0xE00001FF; // 224.0.1.255
constexpr quint32 kLastMulticast = 0xEFFFFFFF; // 239.255.255.255

} // namespace

std::optional<IpAddressV4Value> IpAddressV4Value::fromText(const QString& text)
{
    const auto parts = QStringView(text).split(u'.');
    if (parts.size() != 4)
        return std::nullopt;
    IpAddressV4Value value;
    for (const QStringView part : parts) {
        bool ok = false;
        const ushort number = part.toUShort(&ok, 10);
        if (!ok || number > 255 || part.size() > 3 || !part.front().isDigit())
            return std::nullopt;
        value.address = (value.address << 8) | number;
    }
    return value;
}

QString IpAddressV4Value::toText() const
{
    QStringList parts;
    for (int shift = 24; shift >= 0; shift -= 8)
        parts << QString::number((address >> shift) & 0xFF);
    return parts.join(QLatin1Char('.'));
}

void IpAddressV4Value::check(std::list<DatacoreValidStatusMessage>& messages) const
{
    if (address == 0)
        messages.emplace_back(DatacoreValidStatusMessage::IpAddressZero);
}

void IpAddressV4Value::checkMulticast(std::list<DatacoreValidStatusMessage>& messages) const
{
    if (address < kFirstMulticast || address > kLastMulticast)
        messages.emplace_back(DatacoreValidStatusMessage::IpAddressNotMulticast);
    else if (address <= kLastReservedMulticast)
        messages.emplace_back(DatacoreValidStatusMessage::IpAddressReservedMulticast);
}
