#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class AudioMetering;

/// Connects the audio metering with the settings of the meters, with what the channels carry and with what is
/// heard.
class AudioMeteringConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectAudioMeteringToDatacores(AudioMetering* window) const;

private:
    void connectMeters(AudioMetering* window) const;
    void connectContents(AudioMetering* window) const;
    void connectMonitor(AudioMetering* window) const;

    DatacoreLink m_sourceName;
    DatacoreLink m_scaleType;
    DatacoreLink m_ballistics;
    DatacoreLink m_hatHoldTime;
    DatacoreLink m_resetPeakHold;
    DatacoreLink m_contents;
    DatacoreLink m_dolbyELines;
    DatacoreLink m_dolbyEIdealLine;
    DatacoreLink m_channelNames;
    DatacoreLink m_monitorPair;
    DatacoreLink m_monitorMuted;
    DatacoreLink m_monitorSolo;
    DatacoreLink m_monitorMixLeft;
    DatacoreLink m_monitorMixRight;
};
