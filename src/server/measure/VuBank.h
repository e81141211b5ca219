#pragma once

#include "server/measure/SampleChunk.h"

namespace Velmora::Server {

/// A pointer as a damped oscillator of the second order.
struct VuFigures {
    double damping;
    /// Natural frequency, rad/s.
    double omega;
};

/// IEC 60268-17 and ANSI C16.5: 99 % of the deflection in 300 ms, overshoot 1.3 % (1 to 1.5 % allowed).
extern const VuFigures kVuFigures;
/// The French instrument in the list of ITU-T J.15 and P.52: integration time (the length of a burst that
/// reads 2 dB low) 206 ms, 99 % of the deflection in 320 ms. The list allows 207 ± 30 ms and 300 ms ± 10 %;
/// within these limits the damping is free, and a pointer that is both that slow and that quick overshoots
/// by 4.6 %.
extern const VuFigures kVuFrFigures;

/// VU meters for all channels: the mean of the rectified samples, scaled to the peak of a sine of that mean.
///
/// The pointer advances once per chunk of 32 samples, on their mean, by the exact solution of its equation
/// for a constant force. Averaging cancels what would alias, the harmonics of the rectified tone near 1.5 kHz
/// and its multiples, to less than 0.01 dB. What sampling itself has folded stays: near frequencies that are
/// a small integer part of 48 kHz the reading depends on the phase, by -0.9 to +0.4 dB at 8 and 16 kHz and by
/// -2.1 to +0.9 dB at 12 kHz.
class VuBank {
public:
    explicit VuBank(const VuFigures& figures);

    void advance(const SampleChunk& chunk);
    /// Where the pointers stand, as a factor of full scale; negative for a moment when they swing back past
    /// rest.
    const Lanes& pointers() const { return m_place; }
    void clear();
    void clearChannel(std::size_t channel);

private:
    /// New place and speed from the old ones, relative to the place where the pointer would come to rest; the
    /// speed is in units of the natural frequency.
    float m_placeFromPlace;
    float m_placeFromSpeed;
    float m_speedFromPlace;
    float m_speedFromSpeed;
    Lanes m_place;
    Lanes m_speed;
};

} // namespace Velmora::Server
