#include "gui/shell/SfpIpAddressDialog.h"

#include "gui/shell/EntryLine.h"
#include "gui/shell/NetworkConnectionDialog.h"
#include "gui/shell/TouchKeyboard.h"

#include <QHostAddress>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kKeysWidth = 3 * 110 + 2 * ShellPanel::kGap;

} // namespace

SfpIpAddressDialog::SfpIpAddressDialog(MainWindowBase& window, const QString& sfp)
    : InstrumentDialog(window, QStringLiteral("sfp"), tr("IP address of %1").arg(sfp))
    , m_address(new EntryLine(wzStyle(), {}, &card()))
{
    auto* const words = new QLabel(tr("%1 has no IP address yet.").arg(sfp), &card());
    contents().addWidget(words);
    m_address->setMaxLength(15);
    m_address->setLocale(QLocale::c()); // its point is one everywhere
    m_address->setAccessibleName(tr("Address"));
    m_address->offerKeys(QStringLiteral("0123456789."));
    contents().addWidget(m_address);
    m_note = addNote();
    auto* const keys = new TouchKeyboard(TouchKeyboard::Keys::Address, m_address, &card());
    keys->setFixedWidth(kKeysWidth);
    contents().addWidget(keys, 0, Qt::AlignHCenter);
    QPushButton* const later = addCommand(tr("Later"), QStringLiteral("close"));
    m_set = addCommand(tr("Set"), QStringLiteral("check"));
    connect(later, &QPushButton::clicked, this, &QWidget::close);
    connect(m_set, &QPushButton::clicked, this, &SfpIpAddressDialog::requestAddress);
    connect(m_address, &EntryLine::returnPressed, this, &SfpIpAddressDialog::requestAddress);
    connect(m_address, &EntryLine::textChanged, this, &SfpIpAddressDialog::showState);
    setFirstFocus(m_address);
    showState();
}

void SfpIpAddressDialog::setProblem(const QString& problem)
{
    m_problem = problem;
    showState();
}

void SfpIpAddressDialog::requestAddress()
{
    if (!m_set->isEnabled())
        return;
    m_problem.clear();
    m_asked = m_address->text().trimmed();
    showState();
    emit chosen(QHostAddress(m_asked).toString());
}

void SfpIpAddressDialog::showState()
{
    const QString text = m_address->text().trimmed();
    const bool isAddress = NetworkConnectionDialog::isAddress(text);
    const bool isWaiting = !m_asked.isEmpty() && m_asked == text && m_problem.isEmpty();
    m_note->setText(!isConnected()        ? tr("Not connected: it cannot be set now.")
                        : !isAddress      ? tr("Four numbers from 0 to 255 of one host: 192.168.1.20")
                        : isWaiting       ? tr("Waiting for the instrument ...")
                        : m_asked == text ? m_problem
                                          : QString());
    m_note->setForegroundRole(isWaiting ? QPalette::PlaceholderText : QPalette::BrightText);
    m_set->setEnabled(isConnected() && isAddress && !isWaiting);
    updateFunctionTriggers();
}
