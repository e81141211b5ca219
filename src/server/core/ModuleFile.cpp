#include "server/core/ModuleFile.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Velmora::Server {

QString moduleFile(const QString& name)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = QStringLiteral("%1/%2.so").arg(folder, name);
    return QFileInfo::exists(beside) ? beside : QStringLiteral("%1/../lib/wz/%2.so").arg(folder, name);
}

} // namespace Velmora::Server
