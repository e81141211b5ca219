#include "network/events/PtpEventPacket.h"

#include "network/events/CodedText.h"

#include <QStringList>

namespace {

constexpr QLatin1String kEventKey{"ptp_event", 9};
constexpr QLatin1String kValueKey{"ptp_value", 9};
constexpr QLatin1String kPreviousValueKey{"ptp_previous_value", 18};
constexpr QLatin1String kDomainKey{"ptp_domain", 10};

/// By the values of Event.
constexpr std::array kEvents{
    CodedText{"locking", "locking"},
    CodedText{"locked", "locked"},
    CodedText{"holdover", "holdover"},
    CodedText{"lock_lost", "lock lost"},
    CodedText{"grandmaster_changed", "grandmaster changed"},
    CodedText{"clock_class_changed", "clock class changed"},
    CodedText{"clock_accuracy_changed", "clock accuracy changed"},
    CodedText{"domain_mismatch", "domain mismatch"},
    CodedText{"profile_mismatch", "profile mismatch"},
    CodedText{"offset_over_limit", "offset over limit"},
    CodedText{"offset_within_limit", "offset within limit"},
    CodedText{"announce_timeout", "announce timeout"},
    CodedText{"one_step", "one-step clock"},
    CodedText{"two_step", "two-step clock"},
    CodedText{"leap_second_flags_changed", "leap second flags changed"},
    CodedText{"utc_offset_changed", "UTC offset changed"},
};
static_assert(kEvents.size() == static_cast<std::size_t>(PtpEventPacket::Event::UtcOffsetChanged) + 1);

} // namespace

PtpEventPacket::PtpEventPacket()
    : LogSerialisableDataPacket(kClassName, EventKind::Ptp)
{
}

PtpEventPacket::PtpEventPacket(Event event, int domain, const QString& value, const QString& previousValue)
    : PtpEventPacket()
{
    setText(kEventKey, codeOf(kEvents, event));
    setText(kValueKey, value);
    setText(kPreviousValueKey, previousValue);
    setValue(kDomainKey, domain);
}

QString PtpEventPacket::getEventCustomMessage() const
{
    QStringList values{plainTextMember(kPreviousValueKey), plainTextMember(kValueKey)};
    values.removeAll(QString());

    QString message = QLatin1String("PTP ") + textOfCode(kEvents, stringMember(kEventKey));
    if (!values.isEmpty())
        message += QLatin1String(": ") + values.join(QLatin1String(" to "));
    if (const auto domain = wholeNumberMember(kDomainKey))
        message += QStringLiteral(" (domain %1)").arg(*domain);
    return message;
}
