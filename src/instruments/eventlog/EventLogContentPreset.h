#pragma once

#include "instruments/eventlog/EventKindFilter.h"
#include "presets/WzSubWindowContentPreset.h"

#include <QJsonArray>

/// What the event log window keeps: the kinds that it shows.
class EventLogContentPreset : public WzSubWindowContentPreset {
public:
    static constexpr QLatin1String kClassName{"EventLogContentPreset", 21};

    EventLogContentPreset()
        : WzSubWindowContentPreset(QString(kClassName))
    {
    }

    void setKinds(const EventKindFilter& filter)
    {
        setValue(kKindsKey, QJsonArray::fromStringList(filter.names()));
    }
    EventKindFilter kinds() const
    {
        return EventKindFilter::fromNames(value(kKindsKey).toVariant().toStringList());
    }

private:
    static constexpr QLatin1String kKindsKey{"kinds", 5};
};
