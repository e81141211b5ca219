#pragma once

#include "gui/shell/InstrumentDialog.h"

class EntryLine;

/// Asks for the address of an IP SFP that has none. It stays until the instrument says that the SFP has one.
class SfpIpAddressDialog : public InstrumentDialog {
    Q_OBJECT
public:
    SfpIpAddressDialog(MainWindowBase& window, const QString& sfp);

    EntryLine& address() const { return *m_address; }
    /// What the instrument finds wrong with the address; empty when nothing is.
    void setProblem(const QString& problem);

signals:
    void chosen(QString address);

protected:
    void showState() override;

private:
    void requestAddress();

    EntryLine* m_address;
    QLabel* m_note;
    QPushButton* m_set;
    QString m_asked;
    QString m_problem;
};
