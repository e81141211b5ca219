#pragma once

#include "network/events/EventKind.h"

#include <QStringList>

#include <bitset>

/// Which kinds of event are shown. None chosen means all. A value.
class EventKindFilter {
public:
    bool accepts(EventKind kind) const { return isAll() || isChosen(kind); }
    bool isAll() const { return m_kinds.none(); }
    bool isChosen(EventKind kind) const { return m_kinds.test(index(kind)); }
    void toggle(EventKind kind) { m_kinds.flip(index(kind)); }

    /// "All kinds", the name of the only kind, or "3 kinds".
    QString text() const;
    /// The lasting names of the chosen kinds, and back. Unknown names are passed over.
    QStringList names() const;
    static EventKindFilter fromNames(const QStringList& names);

    /// What a kind is called on the screen: "SDI rate".
    static QString kindText(EventKind kind);
    /// What events of the kind are about, in a sentence.
    static QString kindHelp(EventKind kind);

    bool operator==(const EventKindFilter& other) const = default;

private:
    static std::size_t index(EventKind kind) { return static_cast<std::size_t>(kind); }

    std::bitset<kEventKindCount> m_kinds;
};
