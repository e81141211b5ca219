#pragma once

#include "server/core/SimulatedSdiDriver.h"

#include <QBasicTimer>
#include <QObject>

#include <array>
#include <deque>

class DatacoreBase;
class DatacoreBool;
template<typename T>
class DatacoreNumber;
template<typename T>
class DatacoreNumberLimits;

namespace Velmora::Server {

class DatacoreService;
class InstrumentTrees;

/// The elements of the SDI outputs: what their generator sends, and their drivers, which are simulated. A
/// client calibrates a driver by having its amplitude measured with one step of the gain after the other.
class SdiOutputs : public QObject {
    Q_OBJECT
public:
    static constexpr std::size_t kOutputs = 4;
    /// How long one measurement takes.
    static constexpr int kMeasureMs = 10;
    /// Measurements that may wait; further ones are refused.
    static constexpr std::size_t kMostWaiting = 64;

    SdiOutputs(unsigned seed, InstrumentTrees& trees, DatacoreService& datacores, QObject* parent = nullptr);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Output {
        SimulatedSdiDriver driver;
        DatacoreNumberLimits<unsigned int>* gain = nullptr;
        DatacoreBase* amplitude = nullptr;
    };
    struct Request {
        std::size_t output;
        int step;
    };

    void addGenerator();
    void addDrivers();
    void onGenerate();
    void onMeasure();
    void showAmplitude(Output& output);

    InstrumentTrees& m_trees;
    DatacoreService& m_datacores;
    std::array<Output, kOutputs> m_outputs;
    std::deque<Request> m_waiting;
    QBasicTimer m_timer;
    quint64 m_measured = 0;

    DatacoreBool* m_generate = nullptr;
    DatacoreBool* m_idle = nullptr;
    DatacoreBase* m_measure = nullptr;
    DatacoreBase* m_measurement = nullptr;
};

} // namespace Velmora::Server
