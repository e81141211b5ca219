#include "gui/shell/NetworkConnectionDialog.h"

#include "gui/control/ToggleSwitch.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/InfoRows.h"
#include "gui/shell/TouchKeyboard.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QHBoxLayout>
#include <QHostAddress>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace {

constexpr int kLeftWidth = 520;
constexpr int kTickMs = 1000;

} // namespace

NetworkConnectionDialog::NetworkConnectionDialog(MainWindowBase& window, const ConnectionStatus& connection)
    : ShellPanel(window, QStringLiteral("network"), tr("Network connection"))
    , m_connection(connection)
    , m_address(new EntryLine(window.wzStyle(), connection.address(), &card()))
    , m_autoConnect(new ToggleSwitch(window.wzStyle(), &card()))
{
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(kGroupGap);
    auto* const left = new QVBoxLayout;
    left->setSpacing(kGap);
    setupEntry(*left);
    setupState(*left);
    left->addStretch(1);
    columns->addLayout(left, 1);
    auto* const keys = new TouchKeyboard(TouchKeyboard::Keys::Address, m_address, &card());
    keys->setFixedWidth(3 * 110 + 2 * kGap);
    columns->addWidget(keys, 0, Qt::AlignTop);
    contents().addLayout(columns);
    QPushButton* const here = addCommand(tr("This device"), QStringLiteral("signal"));
    m_disconnect = addCommand(tr("Disconnect"), QStringLiteral("connection-lost"));
    m_connect = addCommand(tr("Connect"), QStringLiteral("connection-ok"));
    connect(here, &QPushButton::clicked, this,
            [this] { m_address->setText(QHostAddress(QHostAddress::LocalHost).toString()); });
    connect(m_connect, &QPushButton::clicked, this, &NetworkConnectionDialog::requestConnection);
    connect(m_disconnect, &QPushButton::clicked, this, &NetworkConnectionDialog::disconnectRequested);
    connect(&m_connection, &ConnectionStatus::changed, this, &NetworkConnectionDialog::showState);
    connect(m_address, &EntryLine::textChanged, this, &NetworkConnectionDialog::checkAddress);
    connect(m_address, &EntryLine::returnPressed, this, &NetworkConnectionDialog::requestConnection);
    setFirstFocus(m_address);
    m_address->offerKeys(QStringLiteral("0123456789."));
    m_address->selectAll();
    checkAddress();
    showState();
    m_tick.start(kTickMs, Qt::CoarseTimer, this);
}

void NetworkConnectionDialog::setupEntry(QVBoxLayout& column)
{
    auto* const label = new QLabel(tr("Address of the instrument"), &card());
    label->setForegroundRole(QPalette::PlaceholderText);
    m_address->setMinimumWidth(kLeftWidth);
    m_address->setMaxLength(15);
    m_address->setLocale(QLocale::c()); // its point is one everywhere
    m_address->setAccessibleName(label->text());
    m_problem = new QLabel(&card());
    m_problem->setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    m_problem->setForegroundRole(QPalette::BrightText);
    column.addWidget(label);
    column.addWidget(m_address);
    column.addWidget(m_problem);
    auto* const row = new QHBoxLayout;
    auto* const words = new QLabel(tr("Connect again after a loss"), &card());
    words->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    m_autoConnect->setAccessibleName(words->text());
    m_autoConnect->setChecked(m_connection.isAutoConnect());
    connect(m_autoConnect, &QAbstractButton::clicked, this, [this](bool on) {
        // Without a connection it says what Connect will do.
        if (m_connection.state() != ConnectionStatus::State::NotConnected)
            emit connectRequested(m_connection.address(), on);
    });
    row->addWidget(words);
    row->addStretch(1);
    row->addWidget(m_autoConnect);
    column.addLayout(row);
}

void NetworkConnectionDialog::setupState(QVBoxLayout& column)
{
    auto* const rows = new InfoRows(&card());
    m_state = rows->addRow(tr("State"));
    m_lastSuccess = rows->addRow(tr("Last connected"));
    m_retries = rows->addRow(tr("Attempts since"));
    column.addWidget(rows);
}

bool NetworkConnectionDialog::isAddress(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^\\d{1,3}(\\.\\d{1,3}){3}$"));
    if (!form.match(text).hasMatch())
        return false;
    const QHostAddress address(text);
    const quint32 number = address.toIPv4Address();
    return !address.isNull() && number != 0 && !address.isMulticast() && !address.isBroadcast();
}

void NetworkConnectionDialog::checkAddress()
{
    const QString text = m_address->text().trimmed();
    const bool valid = isAddress(text);
    m_problem->setText(valid ? QString() : tr("Four numbers from 0 to 255 of one host: 192.168.1.20"));
    m_connect->setEnabled(valid);
    updateFunctionTriggers();
}

void NetworkConnectionDialog::requestConnection()
{
    if (m_connect->isEnabled())
        emit connectRequested(QHostAddress(m_address->text().trimmed()).toString(),
                              m_autoConnect->isChecked());
}

/// The address stands above.
QString NetworkConnectionDialog::stateInWords() const
{
    if (m_connection.state() != ConnectionStatus::State::NotConnected)
        return m_connection.text();
    return m_connection.isRetrying() ? tr("Retrying (%1 s)").arg(m_connection.secondsWithoutConnection())
                                     : tr("Not connected");
}

void NetworkConnectionDialog::showState()
{
    const bool connected = m_connection.state() != ConnectionStatus::State::NotConnected;
    m_state->setText(stateInWords());
    m_lastSuccess->setText(m_connection.lastSuccess().isValid()
                               ? m_connection.lastSuccess().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                               : tr("never"));
    m_retries->setText(QString::number(m_connection.retries()));
    const bool mayStop = connected || m_connection.isRetrying();
    if (m_disconnect->isEnabled() != mayStop) {
        m_disconnect->setEnabled(mayStop);
        updateFunctionTriggers();
    }
}

void NetworkConnectionDialog::timerEvent(QTimerEvent*)
{
    if (m_connection.state() == ConnectionStatus::State::NotConnected)
        m_state->setText(stateInWords());
}
