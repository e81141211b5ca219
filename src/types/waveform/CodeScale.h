#pragma once

#include "types/waveform/WaveformTypes.h"

namespace Velmora::WaveformTypes {

/// The codes of a component against the percent of a waveform's left scale.
///
/// Luma, RGB and alpha: 0 and 100 % are black and white, narrow range 64 and 940 in 10 bit (ITU-R BT.2100).
/// Cb and Cr stand on the same scale with their zero, code 512, at 50 %: -50 % of colour difference (code 64)
/// is at 0 % and +50 % (960) at 100 %.
class CodeScale {
public:
    enum class Range { Narrow, FullRp2077, FullSdiProtected };

    static Range fullRange(FullRangeMode mode);

    CodeScale(int bits, Range range, bool colourDifference);

    double percent(double code) const { return (code - m_zeroCode) * 100.0 / m_spanCodes; }
    double code(double percent) const { return m_zeroCode + percent * m_spanCodes / 100.0; }

    /// The code at 0 % of the scale.
    double zeroCode() const { return m_zeroCode; }
    /// The number of codes from 0 to 100 %.
    double spanCodes() const { return m_spanCodes; }

private:
    double m_zeroCode = 0.0;
    double m_spanCodes = 1.0;
};

} // namespace Velmora::WaveformTypes
