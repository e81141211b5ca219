#include "gui/shell/AboutDialog.h"

#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/shell/InfoRows.h"

#include <spdlog/version.h>

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 760;

QString unknown()
{
    return QStringLiteral("--");
}

QString spdlogVersion()
{
    return QStringLiteral("%1.%2.%3").arg(SPDLOG_VER_MAJOR).arg(SPDLOG_VER_MINOR).arg(SPDLOG_VER_PATCH);
}

} // namespace

AboutDialog::AboutDialog(MainWindowBase& window)
    : ShellPanel(window, QStringLiteral("status-information"), tr("About"))
{
    setCardWidth(kWidth);
    auto* const versions = new InfoRows(&card());
    versions->addRow(tr("Display client"), QStringLiteral(WZ_VERSION));
    m_instrument = versions->addRow(tr("Instrument"), unknown());
    versions->addRow(tr("Licence"), tr("No licence is granted: all rights are reserved."));
    contents().addWidget(versions);
    contents().addSpacing(kGroupGap - kGap);
    auto* const heading = new QLabel(tr("Made with"), &card());
    heading->setForegroundRole(QPalette::PlaceholderText);
    contents().addWidget(heading);
    auto* const libraries = new InfoRows(&card());
    libraries->addRow(QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion())),
                      tr("GNU Lesser General Public License, version 3"));
    libraries->addRow(QStringLiteral("spdlog %1").arg(spdlogVersion()), tr("MIT License"));
    libraries->addRow(QStringLiteral("{fmt}"), tr("MIT License"));
    libraries->addRow(QStringLiteral("simdjson"), tr("Apache License, version 2.0"));
    libraries->addRow(QStringLiteral("DejaVu fonts"), tr("Bitstream Vera Fonts licence; public domain"));
    libraries->addRow(QStringLiteral("libsensors"),
                      tr("GNU Lesser General Public License, version 2.1 or later (instrument)"));
    contents().addWidget(libraries);
    const ConnectionStatus& connection = window.connectionStatus();
    connect(&connection, &ConnectionStatus::changed, this, [this, &connection] {
        if (connection.state() == ConnectionStatus::State::NotConnected)
            m_instrument->setText(unknown());
    });
}

void AboutDialog::fromStatusCoreSoftwareVersionUpdated(QStringList values, QStringList, bool active)
{
    m_instrument->setText(active && !values.isEmpty() ? values.first() : unknown());
}
