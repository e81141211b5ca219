#pragma once

#include "gui/control/ElementState.h"
#include "gui/shell/ToolBarItem.h"

#include <functional>

/// Which channels the instrument lets be heard. A touch mutes them.
class ToolBarAudioMonitorButton : public ToolBarItem {
    Q_OBJECT
public:
    ToolBarAudioMonitorButton(const WzCustomStyle& style, QWidget* parent);

    void setConnected(bool connected);
    /// Asked for when the monitor is inactive and somebody wants to know why.
    void setInactiveReasons(std::function<QStringList()> reasons);

public slots:
    void fromConfigCoreAudioMonitorChannelPairUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMonitorMutedUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreAudioMonitorMutedToggled(bool muted);

private:
    bool isMuted() const;
    void showMonitor();

    bool m_isConnected = false;
    ElementState m_pair;
    ElementState m_muted;
    std::function<QStringList()> m_inactiveReasons;
};
