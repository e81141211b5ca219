#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class ToolBarHealthAlarmButton;

/// Connects the tool bar's health alarm with its element.
class ToolBarHealthAlarmButtonConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectToolBarHealthAlarmButtonToDatacores(ToolBarHealthAlarmButton* button) const;

private:
    DatacoreLink m_alarms;
};
