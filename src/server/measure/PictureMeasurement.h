#pragma once

#include "server/measure/waveform/WaveformSettings.h"
#include "server/sources/VideoSource.h"

#include <QObject>
#include <QSize>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Velmora::Server {

class SharedWaveform;

/// Plays pictures at the pace of real time and draws waveforms of them into the picture feed, one for each
/// size that is wanted. While none is wanted, no picture is read.
///
/// For a thread of its own, in which everything here has to be called. When drawing takes longer than the
/// pictures last, some are passed over.
class PictureMeasurement : public QObject {
    Q_OBJECT
public:
    using Source = std::shared_ptr<VideoSource>;
    /// Hears what the pictures are that come from a source, each time they become others: nothing when they
    /// have ended. Called in this object's thread.
    using FormatListener = std::function<void(const Source&, const std::optional<VideoFormat>&)>;

    /// @p instrumentPort names the images in the feed.
    PictureMeasurement(int instrumentPort, FormatListener onFormat);
    ~PictureMeasurement() override;

    /// Null when there is no signal.
    void setSource(const Source& source);
    void setWaveformSettings(const WaveformSettings& settings);
    /// The contents of the windows that show waveforms.
    void setWantedContents(const std::vector<QSize>& contents);

private:
    using Clock = std::chrono::steady_clock;

    void restart();
    void resume();
    void onTick();
    void readNext();
    void passOver();
    void schedule();
    void draw(const VideoFrame& frame);
    void drawLoss();
    void tellFormat();

    const int m_port;
    const FormatListener m_onFormat;
    Source m_source;
    WaveformSettings m_settings;
    std::vector<std::unique_ptr<SharedWaveform>> m_waveforms;

    QTimer m_timer;
    const VideoFrame* m_frame = nullptr; ///< to be shown at its time; null: the pictures have ended
    bool m_hasRead = false; ///< m_frame is what the source gave last
    Clock::time_point m_begin; ///< of the source, in real time
    std::optional<VideoFormat> m_toldFormat;
    bool m_hasToldFormat = false;
};

} // namespace Velmora::Server
