#pragma once

#include "gui/shell/ShellPanel.h"

#include <QStringList>

/// The versions of client and instrument, and whose work they stand on.
class AboutDialog : public ShellPanel {
    Q_OBJECT
public:
    explicit AboutDialog(MainWindowBase& window);

public slots:
    void fromStatusCoreSoftwareVersionUpdated(QStringList values, QStringList reasons, bool active);

private:
    QLabel* m_instrument = nullptr;
};
