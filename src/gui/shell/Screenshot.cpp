#include "gui/shell/Screenshot.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QWidget>

namespace Screenshot {

QString save(QWidget& widget, const QString& subject)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    folder.mkpath(QStringLiteral("."));
    QString safe = subject;
    safe.replace(QRegularExpression(QStringLiteral("[^\\w.-]+")), QStringLiteral("_"));
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    const QString path = folder.filePath(QStringLiteral("%1-%2.png").arg(stamp, safe.left(80)));
    if (widget.grab().save(path)) {
        Velmora::log()->info("Screenshot {}", path);
        return path;
    }
    Velmora::log()->warn("The screenshot {} cannot be written", path);
    return {};
}

} // namespace Screenshot
