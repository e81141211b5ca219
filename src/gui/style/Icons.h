#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

/// The project's icons: line drawings on a 24 x 24 grid that take the colour they are asked for in, so that
/// each serves every theme.
namespace Icons {

/// The resource path of an icon, from its file name without ending: "waveform".
QString path(const QString& name);

/// Rendered once for each size and colour, and kept. A null pixmap and a log line when there is no such icon.
QPixmap pixmap(const QString& resourcePath, int size, const QColor& colour, qreal devicePixelRatio = 1);

/// The icon in a normal and a disabled colour.
QIcon icon(const QString& resourcePath, int size, const QColor& colour, const QColor& disabled);

} // namespace Icons
