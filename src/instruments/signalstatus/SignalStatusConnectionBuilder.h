#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"
#include "instruments/signalstatus/SignalStatus.h"

/// Connects the signal status with what it shows.
class SignalStatusConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectSignalStatusToDatacores(SignalStatus* window) const;

private:
    const DatacoreLink& linkOf(SignalStatus::Item item) const;

    DatacoreLink m_sourceName;
    DatacoreLink m_activeStandard;
    DatacoreLink m_pictureFormat;
    DatacoreLink m_audioChannels;
    DatacoreLink m_availableNames;
    DatacoreLink m_ballistics;
    DatacoreLink m_hatHoldTime;
    DatacoreLink m_systemMode;
    DatacoreLink m_softwareVersion;
    DatacoreLink m_connectedClients;
    DatacoreLink m_keptEvents;
};
