#pragma once

#include <QString>

namespace Velmora::Server {

/// Where a part of the program that is loaded only when it is needed lies: beside the program, as in a build,
/// or where it is installed.
QString moduleFile(const QString& name);

} // namespace Velmora::Server
