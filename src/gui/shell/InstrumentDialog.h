#pragma once

#include "gui/control/ElementState.h"
#include "gui/shell/ShellPanel.h"

#include <functional>

/// Base of the dialogs that show or set something of the instrument itself. What they know goes with the
/// connection.
class InstrumentDialog : public ShellPanel {
    Q_OBJECT
public:
    InstrumentDialog(MainWindowBase& window, const QString& iconName, const QString& title);

    /// Asked for when the element that the dialog sets is inactive and somebody wants to know why.
    void setInactiveReasons(std::function<QStringList()> reasons) { m_inactiveReasons = std::move(reasons); }

protected:
    bool isConnected() const;
    /// The connection, or something that was heard, has changed.
    virtual void showState() = 0;
    /// A line that says what cannot be done, and why.
    QLabel* addNote();
    /// What is unknown.
    static QString unknown() { return QStringLiteral("--"); }
    QString inactiveReasons() const;

private:
    std::function<QStringList()> m_inactiveReasons;
};
