#pragma once

#include "gui/shell/InstrumentDialog.h"

/// Asks before the instrument is switched off, and names who loses it. The safe answer has the focus.
class PowerOffDialog : public InstrumentDialog {
    Q_OBJECT
public:
    explicit PowerOffDialog(MainWindowBase& window);

public slots:
    void fromCommandcore_powerOffUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreConnectedClientsUpdated(QStringList values, QStringList reasons, bool active);

signals:
    /// The screen is to be brought to rest; the command follows.
    void aboutToPowerOff();
    void toCommandcore_powerOff(bool off);

protected:
    void showState() override;

private:
    void powerOff();

    QLabel* m_question;
    QLabel* m_note;
    QPushButton* m_keep;
    QPushButton* m_off;
    bool m_isPossible = false;
    int m_clients = 0;
};
