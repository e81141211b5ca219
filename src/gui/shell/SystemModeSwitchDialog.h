#pragma once

#include "gui/shell/InstrumentDialog.h"

class PanelColumn;

/// What the instrument is set up to be, and what else it could be.
class SystemModeSwitchDialog : public InstrumentDialog {
    Q_OBJECT
public:
    explicit SystemModeSwitchDialog(MainWindowBase& window);

public slots:
    void fromStatusCoreCurrentSystemModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreAvailableSystemModesUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreSystemModeUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreSystemMode(QString mode);

protected:
    void showState() override;

private:
    PanelColumn* m_column;
    QLabel* m_note;
    QString m_current;
    QStringList m_modes;
    ElementState m_mode;
};
