#include "gui/shell/ToolBarHealthAlarmButton.h"

#include "gui/style/ToolTipText.h"
#include "gui/style/WzCustomStyle.h"

ToolBarHealthAlarmButton::ToolBarHealthAlarmButton(const WzCustomStyle& style, QWidget* parent)
    : ToolBarItem(style, QStringLiteral("alarm"), IconSide::Right, parent)
    , m_style(style)
{
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, &ToolBarHealthAlarmButton::showHealth);
    showHealth();
}

void ToolBarHealthAlarmButton::setConnected(bool connected)
{
    setEnabled(connected);
    if (!connected) {
        m_isKnown = false;
        m_mode.clear();
    }
    showHealth();
}

void ToolBarHealthAlarmButton::setSystemMode(const QString& mode)
{
    m_mode = mode;
    showHealth();
}

void ToolBarHealthAlarmButton::fromStatusCoreHealthAlarmsUpdated(QStringList values, QStringList, bool active)
{
    values.removeAll(QString());
    m_alarms = values;
    m_isKnown = active;
    showHealth();
}

void ToolBarHealthAlarmButton::showHealth()
{
    const int count = m_alarms.size();
    const bool isAlarm = m_isKnown && count > 0;
    setLabel(!m_isKnown       ? QStringLiteral("--")
                 : !isAlarm   ? tr("OK")
                 : count == 1 ? tr("1 alarm")
                              : tr("%1 alarms").arg(count));
    setIconColour(m_style.colour(isAlarm ? ColourRole::Error : ColourRole::SecondaryText));
    setEmphasised(isAlarm);
    QStringList lines{tr("Health of the instrument")};
    if (!isEnabled())
        lines << tr("Not connected");
    else if (!m_isKnown)
        lines << tr("It lets no sensor be read");
    else
        lines += m_alarms;
    if (!m_mode.isEmpty())
        lines << tr("Mode: %1").arg(m_mode);
    setToolTip(ToolTipText::of(lines.join(QLatin1Char('\n'))));
}
