#pragma once

#include "gui/shell/ShellPanel.h"

/// Keys, gestures and buttons on one page.
class HelpDialog : public ShellPanel {
    Q_OBJECT
public:
    explicit HelpDialog(MainWindowBase& window);

private:
    struct Entry {
        QString what;
        QString does;
    };
    QWidget* makeColumn(const QString& heading, const std::vector<Entry>& entries);
};
