#include "app/SfpIpAddressDialogManager.h"

#include "app/SfpIpAddressDialogConnectionBuilder.h"
#include "datacore/DatacoreGuiConnectionsManager.h"

#include <QApplication>
#include <QHostAddress>
#include <QInputDialog>

SfpIpAddressDialogManager::SfpIpAddressDialogManager(DatacoreGuiConnectionsManager& connections,
                                                     QObject* parent)
    : QObject(parent)
{
    auto* const builder = connections.add<SfpIpAddressDialogConnectionBuilder>();
    connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, this,
            [this, builder] { builder->connectSfpIpAddressDialogToDatacores(this); });
    connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresLost, this,
            [this] { delete m_dialog; });
}

SfpIpAddressDialogManager::~SfpIpAddressDialogManager()
{
    delete m_dialog;
}

void SfpIpAddressDialogManager::fromStatusCoreSfpWithoutAddressUpdated(QStringList values, QStringList,
                                                                       bool active)
{
    const QString sfp = active ? values.value(0) : QString();
    if (sfp.isEmpty())
        delete m_dialog;
    else if (!m_dialog)
        showDialog(sfp);
}

void SfpIpAddressDialogManager::showDialog(const QString& sfp)
{
    auto* const dialog = new QInputDialog(QApplication::activeWindow());
    m_dialog = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("IP Address of %1").arg(sfp));
    dialog->setLabelText(tr("%1 has no IP address yet. Address:").arg(sfp));
    connect(dialog, &QInputDialog::textValueSelected, this, [this](const QString& text) {
        const QHostAddress address(text.trimmed());
        if (address.protocol() == QAbstractSocket::IPv4Protocol)
            emit toConfigCoreSfpAddress(address.toString());
    });
    // Nothing that is measured waits for the answer.
    dialog->setModal(false);
    dialog->show();
}
