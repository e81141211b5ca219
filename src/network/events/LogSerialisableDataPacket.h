#pragma once

#include "network/SerialisableDataPacket.h"
#include "network/events/EventKind.h"

#include <cstddef>
#include <optional>

/// An event of the instrument, as it stands in the event log. A concrete class is told by its class name on
/// the wire, kClassName, which is not the C++ name in every case.
class LogSerialisableDataPacket : public SerialisableDataPacket {
public:
    /// What the log shows of the event. Members that are missing or of another type leave their place empty,
    /// or give the text that the class names for them; nothing that a peer sends is a fault.
    virtual QString getEventCustomMessage() const = 0;

    EventKind getEventKind() const { return m_kind; }

protected:
    LogSerialisableDataPacket(QLatin1String className, EventKind kind)
        : SerialisableDataPacket(QString(className))
        , m_kind(kind)
    {
    }

    template<std::size_t Size>
    static constexpr QLatin1String latin1(const char (&text)[Size])
    {
        return QLatin1String(text, static_cast<int>(Size) - 1);
    }

    /// The member @p key as a whole number; absent when it is missing or anything else.
    std::optional<qint64> wholeNumberMember(QLatin1String key) const;
    /// The member @p key, a text as it stands or a number in its shortest form; otherwise empty.
    QString plainTextMember(QLatin1String key) const;
    /// Sets the member unless the text is null.
    void setText(QLatin1String key, const QString& text);

private:
    EventKind m_kind;
};
