#include "network/events/JitterConformanceEventPacket.h"

namespace {

/// Spelt so on the wire, also for the timing jitter.
constexpr QLatin1String kStatusKey{"alignement_jitter_status", 24};

} // namespace

JitterConformanceEventPacket::JitterConformanceEventPacket(QLatin1String className, EventKind kind,
                                                           QLatin1String title, QLatin1String valueKey)
    : LogSerialisableDataPacket(className, kind)
    , m_title(title)
    , m_valueKey(valueKey)
{
}

QString JitterConformanceEventPacket::getEventCustomMessage() const
{
    const QLatin1String verdict(isOk() ? " ok: " : " out of spec: ");
    return m_title + verdict + plainTextMember(m_valueKey);
}

void JitterConformanceEventPacket::setResult(bool ok, const QString& value)
{
    setValue(kStatusKey, ok);
    setText(m_valueKey, value);
}

bool JitterConformanceEventPacket::isOk() const
{
    const QJsonValue status = object().value(kStatusKey);
    return status.toBool() || status.toString() == QLatin1String("true");
}
