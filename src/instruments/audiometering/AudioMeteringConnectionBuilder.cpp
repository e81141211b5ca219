#include "instruments/audiometering/AudioMeteringConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/control/Setting.h"
#include "instruments/audiometering/AudioMetering.h"

using ServerCommon::DatacoreTree;

void AudioMeteringConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    using namespace ElementPaths;
    linkTo(m_sourceName, SignalSource::kName, DatacoreTree::Configuration);
    linkTo(m_scaleType, ElementPaths::AudioMetering::kPpmScaleType, DatacoreTree::Configuration);
    linkTo(m_ballistics, ElementPaths::AudioMetering::kBallistics, DatacoreTree::Configuration);
    linkTo(m_hatHoldTime, ElementPaths::AudioMetering::kHatHoldTime, DatacoreTree::Configuration);
    linkTo(m_resetPeakHold, AudioMeteringCommands::kResetPeakHold, DatacoreTree::Command);
    linkTo(m_contents, AudioContentStatus::kChannels, DatacoreTree::Status);
    linkTo(m_dolbyELines, AudioContentStatus::kDolbyELines, DatacoreTree::Status);
    linkTo(m_dolbyEIdealLine, AudioContentStatus::kDolbyEIdealLine, DatacoreTree::Status);
    linkTo(m_channelNames, ChannelNamesStatus::kNames, DatacoreTree::Status);
    linkTo(m_monitorPair, AudioMonitor::kChannelPair, DatacoreTree::Configuration);
    linkTo(m_monitorMuted, AudioMonitor::kMuted, DatacoreTree::Configuration);
    linkTo(m_monitorSolo, AudioMonitor::kSoloChannel, DatacoreTree::Configuration);
    linkTo(m_monitorMixLeft, AudioMonitor::kMixLeft, DatacoreTree::Configuration);
    linkTo(m_monitorMixRight, AudioMonitor::kMixRight, DatacoreTree::Configuration);
}

void AudioMeteringConnectionBuilder::connectAudioMeteringToDatacores(AudioMetering* window) const
{
    connectMeters(window);
    connectContents(window);
    connectMonitor(window);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}

void AudioMeteringConnectionBuilder::connectMeters(AudioMetering* window) const
{
    m_sourceName.toWindow(window, &AudioMetering::fromConfigCoreSignalSourceNameUpdated);
    m_scaleType.toWindow(window, &AudioMetering::fromConfigCoreAudioMeteringPpmScaleTypeUpdated);
    m_scaleType.fromWindow(window, &AudioMetering::toConfigCoreAudioMeteringPpmScaleTypeChosen,
                           &ClientDatacore::setDataUint);
    m_scaleType.informs(window->meteringSettings().scale);
    m_ballistics.toWindow(window, &AudioMetering::onBallisticsChanged);
    m_ballistics.fromWindow(window, &AudioMetering::toConfigCoreAudioMeteringBallisticsChosen,
                            &ClientDatacore::setDataUint);
    m_ballistics.informs(window->meteringSettings().ballistics);
    m_hatHoldTime.toWindow(window, &AudioMetering::onHatHoldTimeChanged);
    m_hatHoldTime.fromWindow(window, &AudioMetering::toConfigCoreAudioMeteringHatHoldTimeChosen,
                             &ClientDatacore::setDataDouble);
    m_hatHoldTime.informs(window->meteringSettings().hatHoldTime);
    m_resetPeakHold.fromWindow(window, &AudioMetering::toCommandcore_resetPeakHold,
                               &ClientDatacore::setDataBool);
}

void AudioMeteringConnectionBuilder::connectContents(AudioMetering* window) const
{
    m_contents.toWindow(window, &AudioMetering::fromStatusCoreAudioContentChannelsUpdated);
    m_dolbyELines.toWindow(window, &AudioMetering::fromStatusCoreAudioContentDolbyELinesUpdated);
    m_dolbyEIdealLine.toWindow(window, &AudioMetering::fromStatusCoreAudioContentDolbyEIdealLineUpdated);
    m_channelNames.toWindow(window, &AudioMetering::fromStatusCoreChannelNamesUpdated);
}

void AudioMeteringConnectionBuilder::connectMonitor(AudioMetering* window) const
{
    const auto connect = [window](const DatacoreLink& link, auto slot, auto signal, auto setter) {
        link.toWindow(window, slot);
        link.fromWindow(window, signal, setter);
    };
    connect(m_monitorPair, &AudioMetering::fromConfigCoreAudioMonitorChannelPairUpdated,
            &AudioMetering::toConfigCoreAudioMonitorChannelPairChosen, &ClientDatacore::setDataUint);
    connect(m_monitorMuted, &AudioMetering::fromConfigCoreAudioMonitorMutedUpdated,
            &AudioMetering::toConfigCoreAudioMonitorMutedChosen, &ClientDatacore::setDataBool);
    connect(m_monitorSolo, &AudioMetering::fromConfigCoreAudioMonitorSoloChannelUpdated,
            &AudioMetering::toConfigCoreAudioMonitorSoloChannelChosen, &ClientDatacore::setDataUint);
    connect(m_monitorMixLeft, &AudioMetering::fromConfigCoreAudioMonitorMixLeftUpdated,
            &AudioMetering::toConfigCoreAudioMonitorMixLeftChosen, &ClientDatacore::setDataUint);
    connect(m_monitorMixRight, &AudioMetering::fromConfigCoreAudioMonitorMixRightUpdated,
            &AudioMetering::toConfigCoreAudioMonitorMixRightChosen, &ClientDatacore::setDataUint);
}
