#include "server/core/Instrument.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "network/events/AudioInputPresenceChangeEventPacket.h"
#include "server/core/ChoiceNode.h"
#include "server/sources/AudioSourceCatalogue.h"
#include "server/sources/ToneGenerator.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

constexpr double kShortestHatHoldTime = -0.1; ///< seconds; stands for a hat that never falls
constexpr double kLongestHatHoldTime = 10.0;
constexpr double kLowestToneDbfs = -120.0;
/// The entry of the catalogue that the settings of the tone act on.
constexpr char kToneSource[] = "tone";
/// What this instrument is: there is no hardware that could be something else.
constexpr char kSoftwareMode[] = "Software";

QStringList sourceNames()
{
    QStringList names;
    for (const auto& entry : AudioSourceCatalogue::entries())
        names << QString::fromLatin1(entry.name);
    return names;
}

} // namespace

Instrument::Instrument(const QString& sourceName, const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_seed(seed)
    , m_server(faults, seed)
    , m_datacores(m_server, m_trees)
    , m_events(m_server)
    , m_meters(AudioSourceCatalogue::make(sourceName.toStdString(), seed), m_server.streamer())
    , m_platform(m_trees, m_datacores, [this] { return m_sensors.read(); })
    , m_measuredSource(sourceName)
{
    addSignalSource(sourceName);
    addToneGenerator();
    addAudioMetering();
    addSystemStatus();
    addSystemMode();
    addCommandExecutor();
    addSfps();
    addEventLog();
    m_datacores.start();
    // After that, since a new client has to have the trees before it hears of events and changes.
    m_events.start();
    countClients();
}

Instrument::~Instrument() = default;

void Instrument::addSignalSource(const QString& name)
{
    m_sourceName =
        &m_trees.add<ChoiceNode>(Tree::Configuration, ElementPaths::SignalSource::kName, name, sourceNames());
    m_datacores.onWritten(*m_sourceName, [this] { selectSource(); });
    auto& names = m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SignalSourceStatus::kAvailableNames);
    names.setDataList(sourceNames());
    m_audioChannels = &m_trees.add<DatacoreNumber<unsigned int>>(
        Tree::Status, ElementPaths::SignalSourceStatus::kAudioChannels,
        static_cast<unsigned>(m_meters.presentChannels().count()));
    connect(&m_meters, &AudioMeterService::presentChannelsChanged, this, &Instrument::reportAudioPresence);
}

void Instrument::addToneGenerator()
{
    const ToneChannel defaults;
    m_toneFrequency = &m_trees.add<DatacoreNumberLimits<double>>(
        Tree::Configuration, ElementPaths::ToneGenerator::kFrequency, defaults.frequencyHz,
        ToneChannel::kLowestHz, ToneChannel::kHighestHz);
    m_toneLevel = &m_trees.add<DatacoreNumberLimits<double>>(
        Tree::Configuration, ElementPaths::ToneGenerator::kLevel, defaults.levelDbfs, kLowestToneDbfs, 0.0);
    m_datacores.onWritten(*m_toneFrequency, [this] { applyTone(); });
    m_datacores.onWritten(*m_toneLevel, [this] { applyTone(); });
    applyTone();
}

void Instrument::applyTone()
{
    auto* const generator = dynamic_cast<ToneGenerator*>(&m_meters.source());
    const bool isTone = generator && m_sourceName->getData() == QLatin1String(kToneSource);
    std::list<DatacoreActiveStatusMessage> reasons;
    if (!isTone)
        reasons.emplace_back(DatacoreActiveStatusMessage::NoNeed);
    m_toneFrequency->setActive(reasons);
    m_toneLevel->setActive(reasons);
    if (!isTone)
        return;
    ToneChannel tone;
    tone.frequencyHz = m_toneFrequency->getDataNumber();
    tone.levelDbfs = m_toneLevel->getDataNumber();
    generator->setAllChannels(tone);
}

void Instrument::addAudioMetering()
{
    m_ballistics = &m_trees.add<DatacoreNumberLimits<unsigned int>>(
        Tree::Configuration, ElementPaths::AudioMetering::kBallistics,
        static_cast<unsigned>(m_meters.meters().ballistics()), 0U, unsigned{kBallisticsCount - 1});
    m_datacores.onWritten(*m_ballistics, [this] {
        m_meters.meters().setBallistics(static_cast<Ballistics>(m_ballistics->getDataNumber()));
    });
    m_hatHoldTime = &m_trees.add<DatacoreNumberLimits<double>>(
        Tree::Configuration, ElementPaths::AudioMetering::kHatHoldTime, m_meters.meters().peakHoldSeconds(),
        kShortestHatHoldTime, kLongestHatHoldTime);
    m_datacores.onWritten(*m_hatHoldTime,
                          [this] { m_meters.meters().setPeakHoldSeconds(m_hatHoldTime->getDataNumber()); });
    const auto& reset =
        m_trees.add<DatacoreBase>(Tree::Command, ElementPaths::AudioMeteringCommands::kResetPeakHold);
    m_datacores.onWritten(reset, [this] { m_meters.meters().resetPeakHold(); });
}

void Instrument::addSystemStatus()
{
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemStatus::kSoftwareVersion,
                              QStringLiteral(WZ_VERSION));
    m_connectedClients = &m_trees.add<DatacoreNumber<unsigned int>>(
        Tree::Status, ElementPaths::SystemStatus::kConnectedClients, 0U);
    m_trees.add<DatacoreBool>(Tree::Status, ElementPaths::SystemStatus::kScreenSwipingSupported, true);
}

void Instrument::addSystemMode()
{
    const QStringList modes{QString::fromLatin1(kSoftwareMode)};
    m_currentMode = &m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemStatus::kCurrentSystemMode,
                                               modes.first());
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemStatus::kAvailableSystemModes)
        .setDataList(modes);
    const auto& mode =
        m_trees.add<ChoiceNode>(Tree::Configuration, ElementPaths::SystemMode::kMode, modes.first(), modes);
    m_datacores.onWritten(mode, [this, &mode] { m_currentMode->setData(mode.getData()); });
}

void Instrument::addCommandExecutor()
{
    const auto& execute =
        m_trees.add<DatacoreNumber<int>>(Tree::Command, ElementPaths::CommandExecutor::kExecute, 0);
    m_datacores.onWritten(execute, [&execute] {
        // The client carries out the commands that it can; of the others this instrument has none yet.
        log()->warn("Command {} is not known here", execute.getDataNumber());
    });
}

void Instrument::addSfps()
{
    // There is no module to give an address to: what stands here says so instead of looking alive.
    const std::list<DatacoreActiveStatusMessage> reasons{
        DatacoreActiveStatusMessage(DatacoreActiveStatusMessage::NoNeed)};
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SfpStatus::kWithoutAddress).setActive(reasons);
    m_trees.add<DatacoreBase>(Tree::Configuration, ElementPaths::Sfp::kIpAddress).setActive(reasons);
}

void Instrument::addEventLog()
{
    m_keptEvents = &m_trees.add<DatacoreNumber<unsigned int>>(Tree::Status,
                                                              ElementPaths::LoggingStatus::kKeptEvents, 0U);
    connect(&m_events, &EventService::keptCountChanged, this, [this] {
        m_keptEvents->setDataNumber(static_cast<unsigned>(m_events.keptCount()));
        m_datacores.publishChanges();
    });
    const auto& reset =
        m_trees.add<DatacoreBase>(Tree::Command, ElementPaths::LoggingCommands::kResetEventLog);
    m_datacores.onWritten(reset, [this] { m_events.reset(); });
}

void Instrument::countClients()
{
    const auto count = [this] {
        m_connectedClients->setDataNumber(static_cast<unsigned>(m_server.clientCount()));
        m_datacores.publishChanges();
    };
    connect(&m_server, &InstrumentServer::clientConnected, this, count);
    connect(&m_server, &InstrumentServer::clientConnected, &m_platform, &PlatformElements::publishTime);
    connect(&m_server, &InstrumentServer::clientEnded, this, count);
}

void Instrument::selectSource()
{
    const QString name = m_sourceName->getData();
    m_meters.setSource(AudioSourceCatalogue::make(name.toStdString(), m_seed));
    applyTone();
    log()->info("Source {}", name);
    // A source that is chosen again begins anew, which changes nothing at the input.
    if (std::exchange(m_measuredSource, name) != name)
        reportAudioPresence();
}

void Instrument::reportAudioPresence()
{
    const auto count = static_cast<unsigned>(m_meters.presentChannels().count());
    m_audioChannels->setDataNumber(count);
    m_datacores.publishChanges();
    m_events.raise(AudioInputPresenceChangeEventPacket(
        QStringLiteral("Audio input %1: %2 of %3 channels present")
            .arg(m_measuredSource, QString::number(count), QString::number(kAudioChannels))));
}

} // namespace Velmora::Server
