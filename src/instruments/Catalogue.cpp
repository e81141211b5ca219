#include "instruments/Catalogue.h"

#include "instruments/ConnectedContent.h"
#include "instruments/InstrumentServices.h"
#include "instruments/audiolevels/AudioLevels.h"
#include "instruments/audiolevels/AudioLevelsConnectionBuilder.h"
#include "instruments/signalstatus/SignalStatus.h"
#include "instruments/signalstatus/SignalStatusConnectionBuilder.h"

#include "gui/framework/SupportedSubWindows.h"

#include <QCoreApplication>

namespace {

/// Titles are saved in presets, too, and are the same in every language.
SupportedSubWindow instrument(const char* title, QLatin1String className, const char* group, const char* icon,
                              int maximumInstances, SupportedSubWindow::Factory makeContent)
{
    return {QString::fromLatin1(title),
            className,
            WindowRole::Instrument,
            QCoreApplication::translate("Catalogue", group),
            QString::fromLatin1(icon),
            maximumInstances,
            {},
            std::move(makeContent)};
}

} // namespace

void addInstruments(SupportedSubWindows& catalogue, const InstrumentServices& services)
{
    // clang-format off
    catalogue.add(instrument("Audio Levels", AudioLevels::kClassName, "Audio", "audio-meters", 4, connectedContent(services, &AudioLevelsConnectionBuilder::connectAudioLevelsToDatacores)));
    catalogue.add(instrument("Signal Status", SignalStatus::kClassName, "Video", "video-status", 4, connectedContent(services, &SignalStatusConnectionBuilder::connectSignalStatusToDatacores)));
    // clang-format on
}
