#pragma once

#include "server/measure/AudioMeterReading.h"
#include "server/measure/CorrelationBank.h"
#include "server/measure/PeakHold.h"
#include "server/measure/QuasiPeakBank.h"
#include "server/measure/SampleChunk.h"
#include "server/measure/SamplePeakBank.h"
#include "server/measure/VuBank.h"

#include <functional>

namespace Velmora::Server {

/// Measures up to 16 channels at 48 kHz by all ballistics and gives a reading every 960 samples, 50 times a
/// second.
///
/// Time is counted in the samples that were processed; the sizes of the blocks do not matter, nor do gaps in
/// their time stamps: when the source changes, the meters fall and rise as after any other change of level.
/// Readings never contain anything but finite numbers, whatever the samples are (SampleChunk says which ones
/// count as silence). Levels include a direct voltage, as it uses up headroom; the phase does not. Not for
/// use from two threads at once.
class AudioMeters {
public:
    static constexpr std::size_t kFramesPerReading = 960;

    /// Which ballistics are computed. The instant peak, the peak hold and the phase always are.
    enum class Banks {
        All,
        /// Saves the work for the others; a newly selected one starts from rest.
        SelectedOnly,
    };
    /// Receives a reading, within process(). It may change settings, which act from the next sample on.
    using Sink = std::function<void(const AudioMeterReading&)>;

    explicit AudioMeters(Banks banks = Banks::All);

    /// The ballistics shown by the selected level and its peak hold. A change drops the hats, because they
    /// were the peaks of another meter. Values outside the enumeration are ignored.
    void setBallistics(Ballistics ballistics);
    Ballistics ballistics() const { return m_selected; }

    /// How long the peak hold keeps the largest level of the selected ballistics: seconds, in steps of a
    /// reading; negative (as the setting's lowest value, -0.1) for ever.
    void setPeakHoldSeconds(double seconds) { m_peakHold.setHoldSeconds(seconds); }
    double peakHoldSeconds() const { return m_peakHold.holdSeconds(); }
    void resetPeakHold() { m_peakHold.clear(); }

    /// Puts all meters to rest and begins a new period of 960 samples; keeps the settings.
    void reset();

    /// Measures the block and calls @p sink for each period that it completes. A channel that is absent
    /// (null) reads the floor; when it comes back, its meters start from rest.
    void process(const AudioBlock& block, const Sink& sink);

private:
    void notePresence(const AudioBlock& block);
    void clearChannel(std::size_t channel);
    std::size_t stage(const AudioBlock& block, std::size_t first);
    void advance(const std::array<const float*, kAudioChannels>& planes);
    bool runs(Ballistics ballistics) const { return m_banks == Banks::All || ballistics == m_selected; }
    AudioMeterReading takeReading(std::uint64_t position);

    Banks m_banks;
    Ballistics m_selected = Ballistics::PpmTypeI;
    ChannelSet m_present;

    SampleChunk m_chunk;
    /// Where samples wait for their chunk to be complete.
    std::array<std::array<float, SampleChunk::kFrames>, kAudioChannels> m_staging{};
    std::size_t m_stagedFrames = 0;
    std::size_t m_periodFrames = 0;

    QuasiPeakBank m_ppmTypeI;
    QuasiPeakBank m_ppmTypeII;
    VuBank m_vu;
    VuBank m_vuFr;
    SamplePeakBank m_samplePeak;
    CorrelationBank m_correlation;
    PeakHold m_peakHold;
};

} // namespace Velmora::Server
