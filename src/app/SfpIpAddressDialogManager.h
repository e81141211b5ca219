#pragma once

#include <QObject>
#include <QPointer>

class DatacoreGuiConnectionsManager;
class ScreenPanels;
class SfpIpAddressDialog;

/// Tells the user when the instrument has an IP SFP that was given no address, and takes the address.
class SfpIpAddressDialogManager : public QObject {
    Q_OBJECT
public:
    explicit SfpIpAddressDialogManager(DatacoreGuiConnectionsManager& connections, QObject* parent = nullptr);

    /// Where the dialog is shown, once there is a screen.
    void setPanels(ScreenPanels& panels);

public slots:
    /// The name of the SFP that lacks an address; empty when none does.
    void fromStatusCoreSfpWithoutAddressUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreSfpAddressUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreSfpAddress(QString address);

private:
    void ask();
    SfpIpAddressDialog* makeDialog(const QString& sfp);

    QPointer<ScreenPanels> m_panels;
    QString m_sfp; ///< that lacks an address
    QPointer<SfpIpAddressDialog> m_dialog;
};
