#include "network/events/SdiInputRateChangeEventPacket.h"

#include <array>

namespace {

constexpr QLatin1String kInputKey{"channel", 7};
constexpr QLatin1String kRateKey{"rate", 4};

/// By the values of Input and of Rate.
constexpr std::array kInputNames{"SDI In A", "SDI In B", "SDI In C", "SDI In D", "2022-6 In"};
constexpr std::array kRateNames{"12G", "6G", "3G", "1.5G", "270M", "No Signal"};

template<std::size_t Size>
QString nameOf(std::optional<qint64> code, const std::array<const char*, Size>& names, const char* unknown)
{
    const bool known = code && *code >= 0 && *code < static_cast<qint64>(Size);
    return QString::fromLatin1(known ? names.at(static_cast<std::size_t>(*code)) : unknown);
}

} // namespace

SdiInputRateChangeEventPacket::SdiInputRateChangeEventPacket()
    : LogSerialisableDataPacket(kClassName, EventKind::SdiRate)
{
}

SdiInputRateChangeEventPacket::SdiInputRateChangeEventPacket(Input input, Rate rate)
    : SdiInputRateChangeEventPacket()
{
    setValue(kInputKey, static_cast<int>(input));
    setValue(kRateKey, static_cast<int>(rate));
}

QString SdiInputRateChangeEventPacket::getEventCustomMessage() const
{
    return QStringLiteral("New rate on %1 - %2").arg(inputName(), rateName());
}

QString SdiInputRateChangeEventPacket::inputName() const
{
    const auto input = containsMember(kInputKey) ? wholeNumberMember(kInputKey) : 0;
    return nameOf(input, kInputNames, "Error");
}

QString SdiInputRateChangeEventPacket::rateName() const
{
    if (!containsMember(kRateKey))
        return QStringLiteral("No Signal");
    return nameOf(wholeNumberMember(kRateKey), kRateNames, "Unknown");
}
