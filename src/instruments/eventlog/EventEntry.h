#pragma once

#include "network/events/EventKind.h"

#include <QDateTime>
#include <QString>

/// One line of the event log. A value.
struct EventEntry {
    EventKind kind = EventKind::LogReset;
    QDateTime time; ///< local; invalid where it is unknown
    QString message;
};
