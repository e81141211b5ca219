#include "app/ConnectionSettings.h"

#include "gui/shell/NetworkConnectionDialog.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QFileInfo>
#include <QSettings>

namespace {

QString addressKey()
{
    return QStringLiteral("connection/address");
}

QString autoConnectKey()
{
    return QStringLiteral("connection/autoConnect");
}

} // namespace

ConnectionSettings::ConnectionSettings(const QString& presetFile)
    : m_path(QFileInfo(presetFile).absolutePath() + QLatin1String("/connection.ini"))
{
}

std::optional<ConnectionSettings::Choice> ConnectionSettings::load() const
{
    const QSettings settings(m_path, QSettings::IniFormat);
    const QString address = settings.value(addressKey()).toString();
    if (address.isEmpty())
        return {};
    if (!NetworkConnectionDialog::isAddress(address)) {
        Velmora::log()->warn("\"{}\" in {} is no address: the default one is used", address, m_path);
        return {};
    }
    return Choice{address, settings.value(autoConnectKey(), true).toBool()};
}

void ConnectionSettings::save(const Choice& choice) const
{
    QSettings settings(m_path, QSettings::IniFormat);
    settings.setValue(addressKey(), choice.address);
    settings.setValue(autoConnectKey(), choice.autoConnect);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        Velmora::log()->warn("{} cannot be written", m_path);
}
