#include "gui/shell/InstrumentDialog.h"

#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/MainWindowBase.h"

#include <QLabel>
#include <QVBoxLayout>

InstrumentDialog::InstrumentDialog(MainWindowBase& window, const QString& iconName, const QString& title)
    : ShellPanel(window, iconName, title)
{
    setCardWidth(640);
    connect(&window.connectionStatus(), &ConnectionStatus::changed, this, [this] { showState(); });
}

bool InstrumentDialog::isConnected() const
{
    return mainWindow().connectionStatus().state() != ConnectionStatus::State::NotConnected;
}

QLabel* InstrumentDialog::addNote()
{
    auto* const note = new QLabel(&card());
    note->setWordWrap(true);
    note->setTextFormat(Qt::PlainText);
    note->setForegroundRole(QPalette::PlaceholderText);
    contents().addWidget(note);
    return note;
}

QString InstrumentDialog::inactiveReasons() const
{
    return m_inactiveReasons ? m_inactiveReasons().join(QLatin1Char('\n')) : QString();
}
