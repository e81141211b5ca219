#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// Base of the events whose message is the text under one key.
class TextEventPacket : public LogSerialisableDataPacket {
public:
    QString getEventCustomMessage() const override { return stringMember(m_key); }

protected:
    /// A null @p text leaves the key out.
    TextEventPacket(QLatin1String className, EventKind kind, QLatin1String key, const QString& text)
        : LogSerialisableDataPacket(className, kind)
        , m_key(key)
    {
        setText(key, text);
    }

private:
    QLatin1String m_key;
};
