#include "remote/DriverCalibration.h"

#include "datacore/ElementPaths.h"
#include "datacore/TreePath.h"

#include <QPointer>

#include <cmath>

using ServerCommon::DatacoreTree;
using ServerCommon::treePath;
using Velmora::Sdi::DriverCharacteristics;

namespace {

/// 1920x1080p59.94 on one 3G link: the highest rate that all outputs have.
QStringList calibrationStandard()
{
    return {QStringLiteral("false"), QStringLiteral("89CA8001")};
}

/// Full of long runs and fast changes, so that the amplitude is measured at its worst.
QString preferredPattern()
{
    return QStringLiteral("check-field");
}

/// What was measured last: output, step, mV. Empty when there is nothing of the kind.
QStringList lastReading(const WzExternalApi& api)
{
    return api.element(treePath(DatacoreTree::Status, ElementPaths::SdiDriverStatus::kMeasurement));
}

bool knowsGenerator(const WzExternalApi& api)
{
    return !api.element(treePath(DatacoreTree::Status, ElementPaths::SdiOutputStatus::kIdle)).isEmpty();
}

} // namespace

DriverCalibration::DriverCalibration(WzExternalApi& api, OutputSpigot output, int amplitude)
    : QObject(&api)
    , m_api(api)
    , m_output(output)
    , m_amplitude(amplitude == 0 ? DriverCharacteristics::kNominalAmplitude : amplitude)
{
}

void DriverCalibration::start(Done done)
{
    m_done = std::move(done);
    m_standardBefore =
        m_api.element(treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kVideoStandard));
    m_patternBefore =
        m_api.element(treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kTestPattern));
    m_wasIdle = m_api.isGeneratorIdle();
    tell(Progress::Started, 0, 0);
    if (m_amplitude < kSmallestAmplitude || m_amplitude > kLargestAmplitude)
        fail(tr("%1 mV cannot be had: %2 to %3 mV can")
                 .arg(QString::number(m_amplitude), QString::number(kSmallestAmplitude),
                      QString::number(kLargestAmplitude)));
    else
        m_api.setVideoStandard(calibrationStandard(), then(&DriverCalibration::choosePattern));
}

DriverCalibration::Done DriverCalibration::then(Step next)
{
    return [self = QPointer<DriverCalibration>(this), next](const CommandOutcome& outcome) {
        if (!self || self->m_isOver)
            return;
        if (outcome.isDone)
            (self->*next)();
        else
            self->fail(outcome.text);
    };
}

void DriverCalibration::choosePattern()
{
    const QStringList patterns = m_api.getVideoStandardTestPatterns();
    if (patterns.isEmpty())
        fail(tr("The instrument has no test pattern for it"));
    else
        m_api.setTestPattern(patterns.contains(preferredPattern()) ? preferredPattern() : patterns.first(),
                             then(&DriverCalibration::turnOn));
}

void DriverCalibration::turnOn()
{
    m_api.setGenerateOn(then(&DriverCalibration::waitForGenerator));
}

// --- What the instrument tells in its own time

void DriverCalibration::waitFor(Waiting what)
{
    m_waiting = what;
    m_timer.start(kTimeLimitMs, this);
    onElementsChanged();
}

void DriverCalibration::waitForGenerator()
{
    waitFor(Waiting::Generator);
}

void DriverCalibration::measure()
{
    m_api.measureSdiDriver(m_output, m_step, then(&DriverCalibration::waitForReading));
}

void DriverCalibration::waitForReading()
{
    waitFor(Waiting::Reading);
}

void DriverCalibration::onElementsChanged()
{
    if (m_isOver || m_waiting == Waiting::Nothing)
        return;
    // Nobody else says so while no write is under way.
    if (!knowsGenerator(m_api)) {
        fail(tr("The connection to the instrument was lost"));
        return;
    }
    if (m_waiting == Waiting::Generator) {
        if (m_api.isGeneratorIdle())
            return;
        m_waiting = Waiting::Nothing;
        measure();
        return;
    }
    const QStringList reading = lastReading(m_api);
    // Another client may have something measured, too.
    if (reading.value(0) == QString::number(static_cast<int>(m_output))
        && reading.value(1) == QString::number(m_step))
        takeReading(reading.value(2).toDouble());
}

void DriverCalibration::timerEvent(QTimerEvent*)
{
    m_timer.stop();
    if (m_waiting != Waiting::Nothing)
        fail(m_waiting == Waiting::Generator ? tr("The generator does not begin to send")
                                             : tr("The instrument does not measure"));
}

void DriverCalibration::takeReading(double amplitude)
{
    m_waiting = Waiting::Nothing;
    m_timer.stop();
    m_readings.push_back({m_step, amplitude});
    tell(Progress::Measuring, m_step, amplitude);
    if (++m_pass < kPasses) {
        measure();
        return;
    }
    m_pass = 0;
    m_step += kStride;
    if (m_step < DriverCharacteristics::kGainSteps)
        measure();
    else
        evaluate();
}

// --- The result

void DriverCalibration::evaluate()
{
    const auto result = DriverFit::fit(m_readings);
    if (!result || result->residual > kLargestResidual) {
        fail(tr("The readings scatter too much"));
        return;
    }
    m_result = *result;
    m_gain = m_result.stepFor(m_amplitude);
    const double reached = m_result.amplitudeAt(m_gain);
    if (std::abs(reached - m_amplitude) > kLargestResidual) {
        fail(tr("It does not reach %1 mV: %2 mV is the nearest")
                 .arg(QString::number(m_amplitude), QString::number(reached, 'f', 0)));
        return;
    }
    m_api.saveSdiDriverGainResult(m_output, m_gain, then(&DriverCalibration::storeCharacteristics));
}

void DriverCalibration::storeCharacteristics()
{
    m_api.saveSdiDriverCharacteristicsResult(m_output, m_result, then(&DriverCalibration::finish));
}

void DriverCalibration::finish()
{
    end(Progress::Finished,
        {true,
         tr("Gain %1 gives %2 mV")
             .arg(QString::number(m_gain), QString::number(m_result.amplitudeAt(m_gain), 'f', 1))});
}

void DriverCalibration::fail(const QString& reason)
{
    end(Progress::Failed, CommandOutcome::refused(reason));
}

void DriverCalibration::cancel()
{
    if (!m_isOver)
        end(Progress::Cancelled, CommandOutcome::refused(tr("The calibration was cancelled")));
}

void DriverCalibration::end(Progress progress, const CommandOutcome& outcome)
{
    m_isOver = true;
    m_timer.stop();
    restore();
    tell(progress, m_gain, progress == Progress::Finished ? m_result.amplitudeAt(m_gain) : 0);
    m_done(outcome);
}

/// Writes go in order, so that whoever comes next finds the generator as it was.
void DriverCalibration::restore()
{
    if (m_standardBefore.isEmpty())
        return;
    if (m_wasIdle)
        m_api.setGenerateOff();
    m_api.setVideoStandard(m_standardBefore, {});
    m_api.setTestPattern(m_patternBefore.value(0), {});
}

void DriverCalibration::tell(Progress progress, double gain, double amplitude)
{
    emit m_api.driverCalibrationProgressUpdated(progress, m_output, gain, amplitude);
}
