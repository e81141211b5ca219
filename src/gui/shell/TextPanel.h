#pragma once

#include "gui/shell/ShellPanel.h"

class NameEntry;

/// Asks for a line of text, with keys on the screen.
class TextPanel : public ShellPanel {
    Q_OBJECT
public:
    TextPanel(MainWindowBase& window, const QString& title, const QString& text);

    /// To be called when it is open.
    void ask();

signals:
    void accepted(const QString& text);

private:
    NameEntry* m_entry;
};
