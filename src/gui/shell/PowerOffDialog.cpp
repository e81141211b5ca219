#include "gui/shell/PowerOffDialog.h"

#include "gui/style/Fonts.h"
#include "gui/style/ToolTipText.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

PowerOffDialog::PowerOffDialog(MainWindowBase& window)
    : InstrumentDialog(window, QStringLiteral("status-warning"), tr("Power off"))
    , m_question(new QLabel(tr("Switch the instrument off?"), &card()))
{
    m_question->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    contents().addWidget(m_question);
    m_note = addNote();
    m_keep = addCommand(tr("Keep On"), QStringLiteral("back"));
    m_off = addCommand(tr("Power Off"), QStringLiteral("close"));
    setFirstFocus(m_keep);
    connect(m_keep, &QPushButton::clicked, this, &QWidget::close);
    connect(m_off, &QPushButton::clicked, this, &PowerOffDialog::powerOff);
    showState();
}

void PowerOffDialog::fromCommandcore_powerOffUpdated(QStringList, QStringList, bool active)
{
    m_isPossible = active;
    showState();
}

void PowerOffDialog::fromStatusCoreConnectedClientsUpdated(QStringList values, QStringList, bool active)
{
    m_clients = active ? values.value(0).toInt() : 0;
    showState();
}

void PowerOffDialog::showState()
{
    const bool mayGo = isConnected() && m_isPossible;
    m_off->setEnabled(mayGo);
    m_note->setText(!isConnected()      ? tr("Not connected: the instrument cannot be told.")
                        : !m_isPossible ? tr("This instrument cannot be switched off from here.")
                        : m_clients > 1 ? tr("Measuring ends, for %1 other clients, too.").arg(m_clients - 1)
                                        : tr("Measuring ends."));
    m_note->setToolTip(isConnected() && !m_isPossible ? ToolTipText::of(inactiveReasons()) : QString());
    m_off->setToolTip(mayGo ? QString() : m_note->text());
    updateFunctionTriggers();
}

void PowerOffDialog::powerOff()
{
    emit aboutToPowerOff();
    emit toCommandcore_powerOff(true);
    close();
}
