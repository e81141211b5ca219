#include "gui/style/Icons.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

/// The resources lie in a library, which is linked without them unless they are asked for by name. To be
/// called outside any namespace.
static void initialiseResources()
{
    Q_INIT_RESOURCE(resources);
}

namespace Icons {
namespace {

QPixmap render(const QString& resourcePath, int deviceSize, const QColor& colour)
{
    [[maybe_unused]] static const bool initialised = (initialiseResources(), true);
    QFile file(resourcePath);
    QSvgRenderer renderer;
    // Qt's renderer knows no current colour.
    if (!file.open(QIODevice::ReadOnly)
        || !renderer.load(file.readAll().replace("currentColor", colour.name().toLatin1()))) {
        static Velmora::LogThrottle throttle;
        throttle.log(spdlog::level::warn, "No icon {}", resourcePath);
        return {};
    }
    QPixmap pixmap(deviceSize, deviceSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

} // namespace

QString path(const QString& name)
{
    return QLatin1String(":/icons/") + name + QLatin1String(".svg");
}

QPixmap pixmap(const QString& resourcePath, int size, const QColor& colour, qreal devicePixelRatio)
{
    const int deviceSize = static_cast<int>(std::lround(size * devicePixelRatio));
    const QString key =
        resourcePath + QLatin1Char('@') + QString::number(deviceSize) + colour.name(QColor::HexArgb);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = render(resourcePath, deviceSize, colour);
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon icon(const QString& resourcePath, int size, const QColor& colour, const QColor& disabled)
{
    QIcon icon;
    for (const int scale : {1, 2}) {
        icon.addPixmap(pixmap(resourcePath, size, colour, scale));
        icon.addPixmap(pixmap(resourcePath, size, disabled, scale), QIcon::Disabled);
    }
    return icon;
}

} // namespace Icons
