#pragma once

#include "types/Types.h"

#include <QObject>

/// The external command interface. It lives on a thread of its own and talks to the rest by queued signals
/// only.
class WzExternalApi : public QObject {
    Q_OBJECT
public:
    /// How far the calibration of an output driver is.
    enum class DriverCalibrationProgress { Started, Measuring, Finished, Failed, Cancelled };
    Q_ENUM(DriverCalibrationProgress)

    using QObject::QObject;

signals:
    void newConsoleLine(QString line);
    void commandFinished();
    void driverCalibrationProgressUpdated(WzExternalApi::DriverCalibrationProgress progress,
                                          Velmora::Types::OutputSpigot output, double gain, double amplitude);
};
