#pragma once

#include "types/Types.h"

#include <QObject>

#include <array>

/// How the calibration of the SDI output drivers stands, whether its dialog is open or not.
class DriverCalibrationState : public QObject {
    Q_OBJECT
public:
    using OutputSpigot = Velmora::Types::OutputSpigot;
    static constexpr std::size_t kOutputs = 4;

    /// What is known of one driver.
    struct Driver {
        bool isRunning = false;
        QString result; ///< of its last calibration, in words
        bool hasFailed = false; ///< that calibration
        QString gain; ///< as the instrument has it; empty when unknown
    };

    using QObject::QObject;

    const Driver& driver(std::size_t index) const { return m_drivers.at(index); }
    bool isRunning() const;
    /// From 0 to 1, of the one that runs.
    double progress() const { return m_progress; }
    /// What was measured last, in words.
    const QString& reading() const { return m_reading; }
    const QString& kind() const { return m_kind; }

public slots:
    void noteStarted(Velmora::Types::OutputSpigot output);
    void noteReading(Velmora::Types::OutputSpigot output, double gain, double amplitude);
    void noteFailed(Velmora::Types::OutputSpigot output);
    void noteEnded(Velmora::Types::OutputSpigot output, const QString& text);
    void setGain(std::size_t index, const QString& gain);
    void setKind(const QString& kind);

signals:
    void changed();
    void startRequested(Velmora::Types::OutputSpigot output);
    void cancelRequested();

private:
    std::array<Driver, kOutputs> m_drivers;
    double m_progress = 0;
    QString m_reading;
    QString m_kind;
};
