#include "presets/DamagedFile.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

void DamagedFile::setAside(const QString& path, const QString& reason)
{
    if (!QFileInfo(path).isReadable()) {
        Velmora::log()->warn("The file {} cannot be read: {}", path, reason);
        return;
    }
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    const QString aside = path + QLatin1String(".damaged-") + stamp;
    if (QFile::rename(path, aside))
        Velmora::log()->warn("The file {} is damaged ({}); it is kept as {}", path, reason, aside);
    else
        Velmora::log()->warn("The file {} is damaged ({})", path, reason);
}
