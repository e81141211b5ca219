#include "server/core/Instrument.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "feed/SegmentNames.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/core/ChoiceNode.h"
#include "server/core/PersistentSettings.h"
#include "server/core/PresetService.h"
#include "server/sources/ToneGenerator.h"
#include "types/Device.h"
#include "types/Types.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

constexpr double kShortestHatHoldTime = -0.1; ///< seconds; stands for a hat that never falls
constexpr double kLongestHatHoldTime = 10.0;
constexpr auto kHighestScaleType = static_cast<unsigned>(Types::PPMScaleType::Din45406);
/// What this instrument is: there is no hardware that could be something else.
constexpr char kSoftwareMode[] = "Software";

} // namespace

Instrument::Instrument(const SignalChoice& signal, const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_server(faults, seed)
    , m_datacores(m_server, m_trees)
    , m_events(m_server)
    , m_meters(std::make_unique<ToneGenerator>(0), m_server.streamer())
    , m_platform(m_trees, m_datacores, [this] { return m_sensors.read(); })
    , m_sfps(m_trees, m_datacores)
    , m_input(signal, seed, m_trees, m_datacores, m_events, m_meters)
    , m_waveforms(m_trees, m_datacores, m_input)
    , m_commands(m_trees, m_datacores, m_events)
    , m_outputs(seed, m_trees, m_datacores)
    , m_ethernet(m_trees, m_datacores, m_events)
    , m_audioContent(m_input, m_trees, m_datacores, m_meters)
    , m_audioMonitor(m_trees, m_datacores, m_meters)
{
    addAudioMetering();
    addSystemStatus();
    addSystemMode();
    addEventLog();
    m_presetNames = &m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::ClientPresetsStatus::kNames);
    m_datacores.start();
    // After that, since a new client has to have the trees before it hears of events and changes.
    m_events.start();
    countClients();
}

Instrument::~Instrument() = default;

bool Instrument::listen(const QHostAddress& address, QString& error, quint16 port, quint16 feedPort)
{
    if (!m_server.listen(address, port)) {
        error = m_server.errorString();
        return false;
    }
    if (const int count = Feed::SegmentNames::removeAbandoned(); count > 0)
        log()->info("{} pictures of an instrument that was killed are removed", count);
    m_waveforms.start(m_server.port());
    QString feedError;
    if (!m_feed.listen(m_server.port(), address, feedPort, feedError))
        log()->warn("No pictures for other hosts: cannot listen on port {}: {}", feedPort, feedError);
    return true;
}

void Instrument::keepSettings(const QString& file)
{
    m_settings = std::make_unique<PersistentSettings>(file, m_trees, m_datacores);
    m_settings->load();
}

void Instrument::keepPresets(const QString& folder)
{
    m_presets = std::make_unique<PresetService>(m_server, folder);
    const auto publish = [this] {
        m_presetNames->setDataList(m_presets->names());
        m_datacores.publishChanges();
    };
    connect(m_presets.get(), &PresetService::namesChanged, this, publish);
    publish();
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
    // How levels are shown is the clients' affair, but all of them show them alike.
    m_trees.add<DatacoreNumberLimits<unsigned int>>(
        Tree::Configuration, ElementPaths::AudioMetering::kPpmScaleType, 0U, 0U, kHighestScaleType);
    const auto& reset =
        m_trees.add<DatacoreBase>(Tree::Command, ElementPaths::AudioMeteringCommands::kResetPeakHold);
    m_datacores.onWritten(reset, [this] { m_meters.meters().resetPeakHold(); });
    m_commands.add(NumberedCommand::ResetPeakHold, [this] { m_meters.meters().resetPeakHold(); });
}

void Instrument::addSystemStatus()
{
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemStatus::kSoftwareVersion,
                              QStringLiteral(WZ_VERSION));
    m_connectedClients = &m_trees.add<DatacoreNumber<unsigned int>>(
        Tree::Status, ElementPaths::SystemStatus::kConnectedClients, 0U);
    m_trees.add<DatacoreBool>(Tree::Status, ElementPaths::SystemStatus::kScreenSwipingSupported, true);
    // Everything, for what it lacks the hardware for is to be tried all the same.
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SystemStatus::kFittedFeatures)
        .setDataList(Wz::Device::full().featureNames());
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

} // namespace Velmora::Server
