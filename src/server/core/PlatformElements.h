#pragma once

#include "types/health/HealthReading.h"

#include <QBasicTimer>
#include <QObject>

#include <functional>
#include <vector>

class DatacoreBase;
class DatacoreBool;

namespace Velmora::Server {

class DatacoreService;
class InstrumentTrees;

/// The elements about the machine that the instrument runs on: its sensors, its clock, and what a machine of
/// one's own would let be set. What this one does not offer is inactive.
class PlatformElements : public QObject {
    Q_OBJECT
public:
    using ReadSensors = std::function<std::vector<HealthReading>()>;

    PlatformElements(InstrumentTrees& trees, DatacoreService& datacores, ReadSensors readSensors,
                     QObject* parent = nullptr);

public slots:
    /// Publishes the time of now, which it otherwise does every full minute.
    void publishTime();
    void publishHealth();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void addHealth(InstrumentTrees& trees);
    void addTime(InstrumentTrees& trees);
    static void addAbsent(InstrumentTrees& trees);
    void setTime();
    void setHealth();

    DatacoreService& m_datacores;
    const ReadSensors m_readSensors;
    DatacoreBase* m_readings = nullptr;
    DatacoreBase* m_alarms = nullptr;
    DatacoreBase* m_utc = nullptr;
    DatacoreBase* m_timeZone = nullptr;
    DatacoreBool* m_synchronised = nullptr;
    QBasicTimer m_healthTimer;
    QBasicTimer m_timeTimer;
};

} // namespace Velmora::Server
