#include "instruments/audiolevels/AudioLevelsConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/control/Setting.h"
#include "instruments/audiolevels/AudioLevels.h"

using ServerCommon::DatacoreTree;

void AudioLevelsConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_sourceName, ElementPaths::SignalSource::kName, DatacoreTree::Configuration);
    linkTo(m_ballistics, ElementPaths::AudioMetering::kBallistics, DatacoreTree::Configuration);
    linkTo(m_hatHoldTime, ElementPaths::AudioMetering::kHatHoldTime, DatacoreTree::Configuration);
    linkTo(m_resetPeakHold, ElementPaths::AudioMeteringCommands::kResetPeakHold, DatacoreTree::Command);
}

void AudioLevelsConnectionBuilder::connectAudioLevelsToDatacores(AudioLevels* window) const
{
    m_sourceName.toWindow(window, &AudioLevels::fromConfigCoreSignalSourceNameUpdated);
    m_ballistics.toWindow(window, &AudioLevels::fromConfigCoreAudioMeteringBallisticsUpdated);
    m_ballistics.fromWindow(window, &AudioLevels::toConfigCoreAudioMeteringBallisticsChosen,
                            &ClientDatacore::setDataUint);
    m_ballistics.informs(window->ballistics());
    m_hatHoldTime.toWindow(window, &AudioLevels::fromConfigCoreAudioMeteringHatHoldTimeUpdated);
    m_hatHoldTime.fromWindow(window, &AudioLevels::toConfigCoreAudioMeteringHatHoldTimeChosen,
                             &ClientDatacore::setDataDouble);
    m_hatHoldTime.informs(window->hatHoldTime());
    m_resetPeakHold.fromWindow(window, &AudioLevels::toCommandcore_resetPeakHold,
                               &ClientDatacore::setDataBool);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
