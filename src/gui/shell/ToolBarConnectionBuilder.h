#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class ToolBar;

/// Connects the tool bar with its elements.
class ToolBarConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectToolBarToDatacores(ToolBar* toolBar) const;

private:
    DatacoreLink m_currentSystemMode;
    DatacoreLink m_signalSourceName;
    DatacoreLink m_audioChannels;
};
