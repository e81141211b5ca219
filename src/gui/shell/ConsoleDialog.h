#pragma once

#include "gui/shell/ShellPanel.h"

class ConsoleLog;
class EntryLine;
class QPlainTextEdit;

/// The console on the screen: what was answered, and a line to enter commands.
class ConsoleDialog : public ShellPanel {
    Q_OBJECT
public:
    ConsoleDialog(MainWindowBase& window, ConsoleLog& log);

    EntryLine& entry() const { return *m_entry; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void onThemeChanged() override;

private:
    void setupOutput();
    void showBusy();
    void run();
    /// Puts what was entered before, or after that, into the line.
    void recall(int step);

    ConsoleLog& m_log;
    QPlainTextEdit* m_output;
    EntryLine* m_entry;
    QPushButton* m_run = nullptr;
    int m_recalled = -1; ///< of the entries; -1 for none
};
