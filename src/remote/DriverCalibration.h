#pragma once

#include "remote/DriverFit.h"
#include "remote/WzExternalApi.h"

#include <QBasicTimer>
#include <QObject>
#include <QStringList>

/// The calibration of one SDI output driver: it lets the generator send, has the amplitude measured with
/// steps of the gain, finds the characteristics and the step that gives the amplitude that is wanted, and
/// stores both. However it ends, the generator is then as it was before.
class DriverCalibration : public QObject {
    Q_OBJECT
public:
    using Progress = WzExternalApi::DriverCalibrationProgress;
    using OutputSpigot = WzExternalApi::OutputSpigot;
    using Done = WzExternalApi::Done;

    /// Amplitudes that can be asked for, in mV.
    static constexpr int kSmallestAmplitude = 500;
    static constexpr int kLargestAmplitude = 1100;
    /// Between the steps of the gain that are measured.
    static constexpr int kStride = 3;
    /// How often each is measured.
    static constexpr int kPasses = 3;
    /// The largest root mean square that noise may leave, in mV.
    static constexpr double kLargestResidual = 10;
    /// How long the instrument may take for one reading.
    static constexpr int kTimeLimitMs = 3000;

    /// @p amplitude in mV; 0 for the nominal one.
    DriverCalibration(WzExternalApi& api, OutputSpigot output, int amplitude);

    /// @p done is called once, also when it is cancelled.
    void start(Done done);
    void cancel();
    /// One of the elements that the interface follows has changed.
    void onElementsChanged();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// What is waited for.
    enum class Waiting { Nothing, Generator, Reading };

    using Step = void (DriverCalibration::*)();
    /// Goes on with @p next when it was done, and ends when it was refused.
    Done then(Step next);
    void waitFor(Waiting what);
    void choosePattern();
    void turnOn();
    void waitForGenerator();
    void measure();
    void waitForReading();
    void takeReading(double amplitude);
    void evaluate();
    void storeCharacteristics();
    void finish();
    void fail(const QString& reason);
    void end(Progress progress, const CommandOutcome& outcome);
    void restore();
    void tell(Progress progress, double gain, double amplitude);

    WzExternalApi& m_api;
    const OutputSpigot m_output;
    const int m_amplitude;
    Done m_done;
    bool m_isOver = false;
    Waiting m_waiting = Waiting::Nothing;
    QBasicTimer m_timer;

    QStringList m_standardBefore;
    QStringList m_patternBefore;
    bool m_wasIdle = true;

    int m_pass = 0;
    int m_step = 0;
    std::vector<DriverReading> m_readings;
    Velmora::Sdi::DriverCharacteristics m_result;
    int m_gain = 0;
};
