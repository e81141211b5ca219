#include "sound/AlsaOutput.h"

/// What the program that loads this module calls: MonitorModule in the server's folder.
extern "C" Q_DECL_EXPORT void wzOpenSoundOutput(std::unique_ptr<Velmora::Server::MonitorOutput>& output,
                                                QString& error)
{
    output = Velmora::Sound::AlsaOutput::open(error);
}
