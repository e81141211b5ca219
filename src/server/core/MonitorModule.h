#pragma once

#include "server/core/MonitorOutput.h"

namespace Velmora::Server {

/// The part of the program that plays sound, loaded when something is to be heard for the first time.
namespace MonitorModule {

/// A MonitorOpener.
std::unique_ptr<MonitorOutput> open(QString& error);

} // namespace MonitorModule

} // namespace Velmora::Server
