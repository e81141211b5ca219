#pragma once

#include <QString>

class QWidget;

namespace Screenshot {

/// Saves a picture of the widget as a file named by date, time and @p subject below the user's pictures. The
/// file's path; empty, and a log line, when it could not be written.
QString save(QWidget& widget, const QString& subject);

} // namespace Screenshot
