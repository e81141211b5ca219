#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class InstrumentClock;
class TimeDateDialog;

/// Connects the dialog of the clock with its elements.
class TimeDateDialogConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectInstrumentClockToDatacores(InstrumentClock* clock) const;
    void connectTimeDateDialogToDatacores(TimeDateDialog* dialog) const;

private:
    DatacoreLink m_utc;
    DatacoreLink m_timeZone;
    DatacoreLink m_synchronised;
    DatacoreLink m_setUtc;
};
