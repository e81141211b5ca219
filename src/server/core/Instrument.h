#pragma once

#include "server/core/AudioMeterService.h"
#include "server/core/DatacoreService.h"
#include "server/core/EventService.h"
#include "server/core/InstrumentServer.h"
#include "server/core/InstrumentTrees.h"
#include "server/platform/BoardSensors.h"
#include "server/platform/PlatformElements.h"

#include <QObject>
#include <QString>

#include <memory>

template<typename T>
class DatacoreNumberLimits;
template<typename T>
class DatacoreNumber;

namespace Velmora::Server {

class ChoiceNode;

/// The whole software instrument: its elements, what they do, and the server that publishes them.
class Instrument : public QObject {
    Q_OBJECT
public:
    /// @p sourceName is one of the AudioSourceCatalogue. The same @p seed gives the same noise and the same
    /// faults.
    Instrument(const QString& sourceName, const FaultPlan& faults = {}, unsigned seed = 1,
               QObject* parent = nullptr);
    ~Instrument() override;

    InstrumentServer& server() { return m_server; }
    const InstrumentTrees& trees() const { return m_trees; }
    const AudioSource& source() { return m_meters.source(); }
    /// Where whatever happens in the instrument is raised.
    EventService& events() { return m_events; }

private:
    void addSignalSource(const QString& name);
    void addToneGenerator();
    void addAudioMetering();
    void addSystemStatus();
    void addSystemMode();
    void addCommandExecutor();
    void addSfps();
    void addEventLog();
    void countClients();
    void selectSource();
    /// Lets the settings of the tone act where it is the source, and says that they do not where it is not.
    void applyTone();
    void reportAudioPresence();

    unsigned m_seed;
    InstrumentServer m_server;
    InstrumentTrees m_trees;
    DatacoreService m_datacores;
    EventService m_events;
    AudioMeterService m_meters;
    BoardSensors m_sensors;
    PlatformElements m_platform;
    QString m_measuredSource;

    ChoiceNode* m_sourceName = nullptr;
    DatacoreBase* m_currentMode = nullptr;
    DatacoreNumber<unsigned int>* m_audioChannels = nullptr;
    DatacoreNumberLimits<double>* m_toneFrequency = nullptr;
    DatacoreNumberLimits<double>* m_toneLevel = nullptr;
    DatacoreNumberLimits<unsigned int>* m_ballistics = nullptr;
    DatacoreNumberLimits<double>* m_hatHoldTime = nullptr;
    DatacoreNumber<unsigned int>* m_connectedClients = nullptr;
    DatacoreNumber<unsigned int>* m_keptEvents = nullptr;
};

} // namespace Velmora::Server
