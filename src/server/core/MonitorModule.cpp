#include "server/core/MonitorModule.h"

#include "server/core/ModuleFile.h"

#include <QLibrary>

namespace Velmora::Server::MonitorModule {

std::unique_ptr<MonitorOutput> open(QString& error)
{
    using Open = void (*)(std::unique_ptr<MonitorOutput>&, QString&);
    // Never unloaded: the output lives as long as the program.
    static QLibrary library(moduleFile(QStringLiteral("wz_sound")));
    static const auto openOutput = reinterpret_cast<Open>(library.resolve("wzOpenSoundOutput"));
    std::unique_ptr<MonitorOutput> output;
    if (openOutput)
        openOutput(output, error);
    else
        error = QStringLiteral("the module for sound is missing (%1)").arg(library.errorString());
    return output;
}

} // namespace Velmora::Server::MonitorModule
