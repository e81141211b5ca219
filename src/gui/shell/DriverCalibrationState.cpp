#include "gui/shell/DriverCalibrationState.h"

#include "types/sdi/DriverCharacteristics.h"

#include <algorithm>

namespace {

std::size_t indexOf(Velmora::Types::OutputSpigot output)
{
    return static_cast<std::size_t>(output);
}

} // namespace

bool DriverCalibrationState::isRunning() const
{
    return std::any_of(m_drivers.begin(), m_drivers.end(), [](const Driver& each) { return each.isRunning; });
}

void DriverCalibrationState::noteStarted(OutputSpigot output)
{
    m_drivers.at(indexOf(output)).isRunning = true;
    m_drivers.at(indexOf(output)).hasFailed = false;
    m_progress = 0;
    m_reading.clear();
    emit changed();
}

void DriverCalibrationState::noteReading(OutputSpigot, double gain, double amplitude)
{
    m_progress = gain / (Velmora::Sdi::DriverCharacteristics::kGainSteps - 1);
    m_reading = tr("Gain %1: %2 mV").arg(QString::number(gain), QString::number(amplitude, 'f', 1));
    emit changed();
}

void DriverCalibrationState::noteFailed(OutputSpigot output)
{
    m_drivers.at(indexOf(output)).hasFailed = true;
}

void DriverCalibrationState::noteEnded(OutputSpigot output, const QString& text)
{
    Driver& driver = m_drivers.at(indexOf(output));
    driver.isRunning = false;
    driver.result = text;
    emit changed();
}

void DriverCalibrationState::setGain(std::size_t index, const QString& gain)
{
    m_drivers.at(index).gain = gain;
    emit changed();
}

void DriverCalibrationState::setKind(const QString& kind)
{
    m_kind = kind;
    emit changed();
}
