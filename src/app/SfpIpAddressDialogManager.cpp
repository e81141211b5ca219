#include "app/SfpIpAddressDialogManager.h"

#include "app/SfpIpAddressDialogConnectionBuilder.h"
#include "datacore/DatacoreGuiConnectionsManager.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/shell/SfpIpAddressDialog.h"

SfpIpAddressDialogManager::SfpIpAddressDialogManager(DatacoreGuiConnectionsManager& connections,
                                                     QObject* parent)
    : QObject(parent)
{
    auto* const builder = connections.add<SfpIpAddressDialogConnectionBuilder>();
    connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, this,
            [this, builder] { builder->connectSfpIpAddressDialogToDatacores(this); });
    connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresLost, this,
            [this] { fromStatusCoreSfpWithoutAddressUpdated({}, {}, false); });
}

void SfpIpAddressDialogManager::setPanels(ScreenPanels& panels)
{
    m_panels = &panels;
    ask();
}

/// A user who puts the answer off is asked again when the SFP is reported anew.
void SfpIpAddressDialogManager::fromStatusCoreSfpWithoutAddressUpdated(QStringList values, QStringList,
                                                                       bool active)
{
    const QString sfp = active ? values.value(0) : QString();
    if (sfp == m_sfp)
        return;
    m_sfp = sfp;
    if (m_dialog)
        m_dialog->close();
    ask();
}

void SfpIpAddressDialogManager::fromConfigCoreSfpAddressUpdated(QStringList, QStringList reasons, bool)
{
    if (m_dialog && !reasons.isEmpty())
        m_dialog->setProblem(reasons.join(QLatin1Char('\n')));
}

/// Nobody is interrupted: what lies over the windows is finished first.
void SfpIpAddressDialogManager::ask()
{
    if (m_sfp.isEmpty() || !m_panels)
        return;
    m_panels->showWhenFree(
        [this, sfp = m_sfp]() -> ShellPanel* { return sfp == m_sfp ? makeDialog(sfp) : nullptr; });
}

SfpIpAddressDialog* SfpIpAddressDialogManager::makeDialog(const QString& sfp)
{
    m_dialog = new SfpIpAddressDialog(m_panels->window(), sfp);
    connect(m_dialog, &SfpIpAddressDialog::chosen, this, &SfpIpAddressDialogManager::toConfigCoreSfpAddress);
    return m_dialog;
}
