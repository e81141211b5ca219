#include "gui/shell/SystemModeSwitchDialog.h"

#include "gui/framework/MainWindowBase.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/PanelColumn.h"
#include "gui/style/ToolTipText.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kMostRowsInSight = 8;

} // namespace

SystemModeSwitchDialog::SystemModeSwitchDialog(MainWindowBase& window)
    : InstrumentDialog(window, QStringLiteral("settings"), tr("System mode"))
    , m_column(new PanelColumn(window.wzStyle(), ColourRole::Background, &card()))
    , m_note(addNote())
{
    contents().addWidget(m_column);
    showState();
}

void SystemModeSwitchDialog::fromStatusCoreCurrentSystemModeUpdated(QStringList values, QStringList,
                                                                    bool active)
{
    m_current = active ? values.value(0) : QString();
    showState();
}

void SystemModeSwitchDialog::fromStatusCoreAvailableSystemModesUpdated(QStringList values, QStringList,
                                                                       bool active)
{
    m_modes = active ? values : QStringList();
    showState();
}

void SystemModeSwitchDialog::fromConfigCoreSystemModeUpdated(QStringList values, QStringList reasons,
                                                             bool active)
{
    m_mode = {values, reasons, active};
    showState();
}

void SystemModeSwitchDialog::showState()
{
    const QStringList modes = isConnected() ? m_modes : QStringList();
    const bool isSettable = isConnected() && m_mode.active && modes.size() > 1;
    m_column->clear();
    for (const QString& mode : modes) {
        ListRow* const row = m_column->addRow(QStringLiteral("signal"), mode);
        row->setCheckable(true);
        row->setChecked(mode == m_current);
        row->setSecondary(mode == m_current ? tr("Now") : QString());
        row->setEnabled(isSettable || mode == m_current);
        connect(row, &QAbstractButton::clicked, this, [this, row, mode] {
            // It is marked when the instrument says so.
            row->setChecked(mode == m_current);
            if (mode != m_current)
                emit toConfigCoreSystemMode(mode);
        });
    }
    m_column->setFixedHeight(qMin(m_column->contentHeight(), kMostRowsInSight * ListRow::kHeight));
    m_note->setText(!isConnected()         ? tr("Not connected: nothing is known of the instrument.")
                        : !m_mode.active   ? tr("The mode cannot be changed now.")
                        : modes.size() < 2 ? tr("This instrument has one mode only.")
                                           : tr("Another mode ends what is being measured."));
    m_note->setToolTip(m_mode.active ? ToolTipText::of(m_mode.toolTip())
                                     : ToolTipText::of(inactiveReasons()));
}
