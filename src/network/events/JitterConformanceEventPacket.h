#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// Base of the two events that tell that jitter has gone out of its limit, or is back within it.
///
/// The status is "ok" when its member is true, or the text "true" as values of elements are written. Anything
/// else, missing or of another type, reads "out of spec": a status that cannot be understood must not clear
/// an alarm. Both events have their status under the same key, which is spelt "alignement_jitter_status".
class JitterConformanceEventPacket : public LogSerialisableDataPacket {
public:
    /// "Alignment Jitter out of spec: 0.31 UI". The value is a text or a number.
    QString getEventCustomMessage() const override;

protected:
    /// @p title begins the message and lives as long as the program, as does @p valueKey.
    JitterConformanceEventPacket(QLatin1String className, EventKind kind, QLatin1String title,
                                 QLatin1String valueKey);
    void setResult(bool ok, const QString& value);

private:
    bool isOk() const;

    QLatin1String m_title;
    QLatin1String m_valueKey;
};
