#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class ToolBarAudioMonitorButton;

/// Connects the tool bar's audio monitor with its elements.
class ToolBarAudioMonitorButtonConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectToolBarAudioMonitorButtonToDatacores(ToolBarAudioMonitorButton* button) const;

private:
    DatacoreLink m_channelPair;
    DatacoreLink m_muted;
};
