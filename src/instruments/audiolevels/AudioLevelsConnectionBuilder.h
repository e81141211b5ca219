#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class AudioLevels;

/// Connects the audio levels with the settings of the meters.
class AudioLevelsConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectAudioLevelsToDatacores(AudioLevels* window) const;

private:
    DatacoreLink m_sourceName;
    DatacoreLink m_ballistics;
    DatacoreLink m_hatHoldTime;
    DatacoreLink m_resetPeakHold;
};
