#pragma once

#include "feed/FeedMessages.h"
#include "server/core/AudioContent.h"
#include "server/core/AudioMeterService.h"
#include "server/core/AudioMonitor.h"
#include "server/core/DatacoreService.h"
#include "server/core/EthernetPorts.h"
#include "server/core/EventService.h"
#include "server/core/FeedService.h"
#include "server/core/InstrumentCommands.h"
#include "server/core/InstrumentServer.h"
#include "server/core/InstrumentTrees.h"
#include "server/core/PlatformElements.h"
#include "server/core/SdiOutputs.h"
#include "server/core/SfpElements.h"
#include "server/core/SignalInput.h"
#include "server/core/WaveformService.h"
#include "server/platform/BoardSensors.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Velmora::Server {

class PersistentSettings;
class PresetService;

/// The whole software instrument: its elements, what they do, and the server that publishes them.
class Instrument : public QObject {
    Q_OBJECT
public:
    /// The same @p seed gives the same noise and the same faults.
    explicit Instrument(const SignalChoice& signal, const FaultPlan& faults = {}, unsigned seed = 1,
                        QObject* parent = nullptr);
    ~Instrument() override;

    /// Starts to serve clients and to draw pictures for them; false, with the reason in @p error, when
    /// the port cannot be had. Ports that are 0 are free ones. Without the port of the pictures, which is
    /// logged, those of this host remain.
    [[nodiscard]] bool listen(const QHostAddress& address, QString& error,
                              quint16 port = NetworkConnection::kServerTcpPort,
                              quint16 feedPort = Feed::kFeedPort);

    /// Keeps addresses and results of calibrations in a file, and takes those that it holds by now. Without
    /// it they last as long as the instrument; to be called before any client comes.
    void keepSettings(const QString& file);
    /// Keeps presets of clients in a folder. Without it there are none; to be called before any client
    /// comes.
    void keepPresets(const QString& folder);

    InstrumentServer& server() { return m_server; }
    const InstrumentTrees& trees() const { return m_trees; }
    const AudioSource& source() { return m_meters.source(); }
    const FeedService& feed() const { return m_feed; }
    SignalInput& input() { return m_input; }
    /// Where whatever happens in the instrument is raised.
    EventService& events() { return m_events; }
    AudioContent& audioContent() { return m_audioContent; }
    AudioMonitor& audioMonitor() { return m_audioMonitor; }

private:
    void addAudioMetering();
    void addSystemStatus();
    void addSystemMode();
    void addEventLog();
    void countClients();

    InstrumentServer m_server;
    InstrumentTrees m_trees;
    DatacoreService m_datacores;
    EventService m_events;
    AudioMeterService m_meters;
    BoardSensors m_sensors;
    PlatformElements m_platform;
    SfpElements m_sfps;
    SignalInput m_input;
    WaveformService m_waveforms;
    FeedService m_feed;
    std::unique_ptr<PresetService> m_presets;
    InstrumentCommands m_commands;
    SdiOutputs m_outputs;
    EthernetPorts m_ethernet;
    std::unique_ptr<PersistentSettings> m_settings;
    AudioContent m_audioContent;
    AudioMonitor m_audioMonitor;

    DatacoreBase* m_currentMode = nullptr;
    DatacoreNumberLimits<unsigned int>* m_ballistics = nullptr;
    DatacoreNumberLimits<double>* m_hatHoldTime = nullptr;
    DatacoreNumber<unsigned int>* m_connectedClients = nullptr;
    DatacoreNumber<unsigned int>* m_keptEvents = nullptr;
    DatacoreBase* m_presetNames = nullptr;
};

} // namespace Velmora::Server
