#pragma once

#include "server/measure/SampleChunk.h"

namespace Velmora::Server {

/// The sample-peak meters of all channels: the fast one (IEC 60268-18: rises within one sample, falls by 20
/// dB in 1.7 s) and, without any ballistics, the largest sample of a period.
///
/// Both know the samples, not the wave between them: a sine can read low by 20·log10(cos(pi·f/48000)) dB at
/// most, 0.02 dB at 1 kHz, 3 dB at 12 kHz. Where 48 kHz is a small integer multiple of the frequency, that
/// error is steady and depends on the phase; elsewhere some sample of each period comes near the crest. For
/// peaks between samples (true peak) see ITU-R BS.1770.
class SamplePeakBank {
public:
    SamplePeakBank();

    void advance(const SampleChunk& chunk);
    /// The fast meter's highest indication since the last call, and the largest magnitude since.
    struct Peaks {
        Lanes fast;
        Lanes instant;
    };
    Peaks takePeaks();
    void clearChannel(std::size_t channel);

private:
    float m_groupDecay;
    Lanes m_fast;
    Lanes m_fastPeak;
    Lanes m_instant;
};

} // namespace Velmora::Server
