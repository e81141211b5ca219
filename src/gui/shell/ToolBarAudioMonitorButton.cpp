#include "gui/shell/ToolBarAudioMonitorButton.h"

#include "gui/style/ToolTipText.h"

ToolBarAudioMonitorButton::ToolBarAudioMonitorButton(const WzCustomStyle& style, QWidget* parent)
    : ToolBarItem(style, QStringLiteral("audio-monitor"), IconSide::Left, parent)
{
    connect(this, &QAbstractButton::clicked, this,
            [this] { emit toConfigCoreAudioMonitorMutedToggled(!isMuted()); });
    showMonitor();
}

void ToolBarAudioMonitorButton::setConnected(bool connected)
{
    m_isConnected = connected;
    if (!connected) {
        m_pair = {};
        m_muted = {};
    }
    showMonitor();
}

void ToolBarAudioMonitorButton::setInactiveReasons(std::function<QStringList()> reasons)
{
    m_inactiveReasons = std::move(reasons);
    showMonitor();
}

bool ToolBarAudioMonitorButton::isMuted() const
{
    return m_muted.text() == QLatin1String("true");
}

void ToolBarAudioMonitorButton::fromConfigCoreAudioMonitorChannelPairUpdated(QStringList values,
                                                                             QStringList reasons, bool active)
{
    m_pair = {values, reasons, active};
    showMonitor();
}

void ToolBarAudioMonitorButton::fromConfigCoreAudioMonitorMutedUpdated(QStringList values,
                                                                       QStringList reasons, bool active)
{
    m_muted = {values, reasons, active};
    showMonitor();
}

void ToolBarAudioMonitorButton::showMonitor()
{
    bool isNumber = false;
    const int pair = m_pair.text().toInt(&isNumber);
    const bool isUsable = m_isConnected && m_pair.isUsable() && isNumber && pair > 0;
    setLabel(isUsable ? QStringLiteral("%1-%2").arg(QString::number(2 * pair - 1), QString::number(2 * pair))
                      : QStringLiteral("--"));
    setIconName(isUsable && isMuted() ? QStringLiteral("mute") : QStringLiteral("audio-monitor"));
    setEnabled(isUsable && m_muted.isUsable());
    QStringList lines{tr("Audio monitor")};
    if (!m_isConnected)
        lines << tr("Not connected");
    else if (!m_pair.active)
        lines << tr("This instrument has no monitor output");
    else if (isUsable)
        lines << (isMuted() ? tr("Muted: touch to hear it") : tr("Touch to mute it"));
    if (m_isConnected && !m_pair.active && m_inactiveReasons)
        lines += m_inactiveReasons();
    setToolTip(ToolTipText::of(lines.join(QLatin1Char('\n'))));
}
