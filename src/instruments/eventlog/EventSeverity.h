#pragma once

#include "gui/style/WzPalette.h"
#include "instruments/eventlog/EventEntry.h"

/// How grave an event is, as the icon before it shows.
enum class EventSeverity {
    Information,
    Ok,
    Warning,
    Error,
};

/// Events say nothing of it themselves: it follows from what they are about and their fixed words.
EventSeverity severityOf(const EventEntry& entry);
/// The name of its icon, whose shape tells it without the colour.
QString iconNameOf(EventSeverity severity);
ColourRole colourRoleOf(EventSeverity severity);
QString textOf(EventSeverity severity);
