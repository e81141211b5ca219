#include "instruments/eventlog/EventSeverity.h"

#include <QCoreApplication>

EventSeverity severityOf(const EventEntry& entry)
{
    switch (entry.kind) {
    case EventKind::AlignmentJitter:
    case EventKind::TimingJitter:
        return entry.message.contains(QLatin1String("out of spec")) ? EventSeverity::Warning
                                                                    : EventSeverity::Ok;
    case EventKind::SdiRate:
        return entry.message.endsWith(QLatin1String("No Signal")) ? EventSeverity::Error : EventSeverity::Ok;
    default:
        return EventSeverity::Information;
    }
}

QString iconNameOf(EventSeverity severity)
{
    switch (severity) {
    case EventSeverity::Ok:
        return QStringLiteral("status-ok");
    case EventSeverity::Warning:
        return QStringLiteral("status-warning");
    case EventSeverity::Error:
        return QStringLiteral("status-error");
    case EventSeverity::Information:
        break;
    }
    return QStringLiteral("status-information");
}

ColourRole colourRoleOf(EventSeverity severity)
{
    switch (severity) {
    case EventSeverity::Ok:
        return ColourRole::Ok;
    case EventSeverity::Warning:
        return ColourRole::Warning;
    case EventSeverity::Error:
        return ColourRole::Error;
    case EventSeverity::Information:
        break;
    }
    return ColourRole::Information;
}

QString textOf(EventSeverity severity)
{
    switch (severity) {
    case EventSeverity::Ok:
        return QCoreApplication::translate("EventSeverity", "ok");
    case EventSeverity::Warning:
        return QCoreApplication::translate("EventSeverity", "warning");
    case EventSeverity::Error:
        return QCoreApplication::translate("EventSeverity", "error");
    case EventSeverity::Information:
        break;
    }
    return QCoreApplication::translate("EventSeverity", "information");
}
