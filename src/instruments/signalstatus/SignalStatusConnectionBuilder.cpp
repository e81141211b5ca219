#include "instruments/signalstatus/SignalStatusConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/control/Setting.h"

using ServerCommon::DatacoreTree;

void SignalStatusConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_sourceName, ElementPaths::SignalSource::kName, DatacoreTree::Configuration);
    linkTo(m_activeStandard, ElementPaths::SdiInputStatus::kActiveStandard, DatacoreTree::Status);
    linkTo(m_pictureFormat, ElementPaths::SdiInputStatus::kPictureFormat, DatacoreTree::Status);
    linkTo(m_audioChannels, ElementPaths::SignalSourceStatus::kAudioChannels, DatacoreTree::Status);
    linkTo(m_availableNames, ElementPaths::SignalSourceStatus::kAvailableNames, DatacoreTree::Status);
    linkTo(m_ballistics, ElementPaths::AudioMetering::kBallistics, DatacoreTree::Configuration);
    linkTo(m_hatHoldTime, ElementPaths::AudioMetering::kHatHoldTime, DatacoreTree::Configuration);
    linkTo(m_systemMode, ElementPaths::SystemStatus::kCurrentSystemMode, DatacoreTree::Status);
    linkTo(m_softwareVersion, ElementPaths::SystemStatus::kSoftwareVersion, DatacoreTree::Status);
    linkTo(m_connectedClients, ElementPaths::SystemStatus::kConnectedClients, DatacoreTree::Status);
    linkTo(m_keptEvents, ElementPaths::LoggingStatus::kKeptEvents, DatacoreTree::Status);
}

void SignalStatusConnectionBuilder::connectSignalStatusToDatacores(SignalStatus* window) const
{
    m_sourceName.toWindow(window, &SignalStatus::fromConfigCoreSignalSourceNameUpdated);
    m_sourceName.fromWindow(window, &SignalStatus::toConfigCoreSignalSourceName,
                            &ClientDatacore::setDataString);
    m_sourceName.informs(window->source());
    m_activeStandard.toWindow(window, &SignalStatus::fromStatusCoreActiveStandardUpdated);
    m_pictureFormat.toWindow(window, &SignalStatus::fromStatusCorePictureFormatUpdated);
    m_audioChannels.toWindow(window, &SignalStatus::fromStatusCoreSignalSourceAudioChannelsUpdated);
    m_availableNames.toWindow(window, &SignalStatus::fromStatusCoreSignalSourceAvailableNamesUpdated);
    m_ballistics.toWindow(window, &SignalStatus::fromConfigCoreAudioMeteringBallisticsUpdated);
    m_hatHoldTime.toWindow(window, &SignalStatus::fromConfigCoreAudioMeteringHatHoldTimeUpdated);
    m_systemMode.toWindow(window, &SignalStatus::fromStatusCoreCurrentSystemModeUpdated);
    m_softwareVersion.toWindow(window, &SignalStatus::fromStatusCoreSoftwareVersionUpdated);
    m_connectedClients.toWindow(window, &SignalStatus::fromStatusCoreConnectedClientsUpdated);
    m_keptEvents.toWindow(window, &SignalStatus::fromStatusCoreLoggingKeptEventsUpdated);
    window->setInactiveReasons(
        [this](SignalStatus::Item item) { return linkOf(item).reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}

const DatacoreLink& SignalStatusConnectionBuilder::linkOf(SignalStatus::Item item) const
{
    switch (item) {
    case SignalStatus::Video:
        return m_activeStandard;
    case SignalStatus::AudioChannels:
        return m_audioChannels;
    case SignalStatus::AvailableSources:
        return m_availableNames;
    case SignalStatus::Ballistics:
        return m_ballistics;
    case SignalStatus::HatHoldTime:
        return m_hatHoldTime;
    case SignalStatus::SystemMode:
        return m_systemMode;
    case SignalStatus::SoftwareVersion:
        return m_softwareVersion;
    case SignalStatus::ConnectedClients:
        return m_connectedClients;
    case SignalStatus::KeptEvents:
        return m_keptEvents;
    case SignalStatus::Source:
        break;
    }
    return m_sourceName;
}
