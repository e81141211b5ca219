#pragma once

#include <QObject>
#include <QPointer>

class DatacoreGuiConnectionsManager;
class QDialog;
class SfpIpAddressDialogConnectionBuilder;

/// Tells the user when the instrument has an IP SFP that was given no address, and takes the address.
class SfpIpAddressDialogManager : public QObject {
    Q_OBJECT
public:
    explicit SfpIpAddressDialogManager(DatacoreGuiConnectionsManager& connections, QObject* parent = nullptr);
    ~SfpIpAddressDialogManager() override;

public slots:
    /// The name of the SFP that lacks an address; empty when none does.
    void fromStatusCoreSfpWithoutAddressUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreSfpAddress(QString address);

private:
    void showDialog(const QString& sfp);

    QPointer<QDialog> m_dialog;
};
