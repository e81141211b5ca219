#pragma once

#include "server/core/RawDataStreamer.h"
#include "server/measure/AudioMeters.h"
#include "server/sources/AudioSource.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace Velmora::Server {

/// Reads a source at the pace of real time, measures it, and sends the readings as the five meter packets, 50
/// times a second. While nobody wants any of them and nothing is monitored, nothing is read or measured.
class AudioMeterService : public QObject {
    Q_OBJECT
public:
    AudioMeterService(std::unique_ptr<AudioSource> source, RawDataStreamer& streamer,
                      QObject* parent = nullptr);

    AudioMeters& meters() { return m_meters; }
    /// Measures another source from now on; the meters fall and rise as after any change of level.
    void setSource(std::unique_ptr<AudioSource> source);
    AudioSource& source() { return *m_source; }
    /// Gives each block to somebody else, too.
    void onBlock(std::function<void(const AudioBlock&)> receiver)
    {
        m_receivers.push_back(std::move(receiver));
    }
    /// Reads on even if nobody wants the readings.
    void setMonitored(bool monitored);
    /// The channels that the source has.
    const ChannelSet& presentChannels() const { return m_present; }

    /// Whole frames of audio in a time that is not negative.
    static std::uint64_t framesIn(std::chrono::nanoseconds duration);

signals:
    /// The source has gained or lost channels while it was being measured. Not for another source.
    void presentChannelsChanged();
    /// Blocks have begun to come, or have ended.
    void runningChanged(bool running);

private:
    void onWantedChanged();
    void onTick();
    void measure(std::size_t frames);
    void publish(const AudioMeterReading& reading);
    bool isWanted() const;

    std::unique_ptr<AudioSource> m_source;
    ChannelSet m_present;
    RawDataStreamer& m_streamer;
    std::vector<std::function<void(const AudioBlock&)>> m_receivers;
    bool m_isMonitored = false;
    AudioMeters m_meters{AudioMeters::Banks::SelectedOnly};
    QTimer m_timer;
    QElapsedTimer m_clock;
    /// Frames read since the clock was started.
    std::uint64_t m_framesRead = 0;
    quint32 m_sequenceNumber = 0;
};

} // namespace Velmora::Server
