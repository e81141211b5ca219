#include "types/waveform/CodeScale.h"

namespace Velmora::WaveformTypes {

CodeScale::Range CodeScale::fullRange(FullRangeMode mode)
{
    return mode == FullRangeMode::Rp2077 ? Range::FullRp2077 : Range::FullSdiProtected;
}

CodeScale::CodeScale(int bits, Range range, bool colourDifference)
{
    // The codes of SDI's timing references, at both ends, cannot carry a picture: RP 2077 keeps 0 and 100 %
    // inside them, "protected" loses what falls on them.
    const double codesPerStep = 1 << (bits - 8);
    const double greatestCode = (1 << bits) - 1;
    switch (range) {
    case Range::Narrow:
        m_zeroCode = 16.0 * codesPerStep;
        m_spanCodes = (colourDifference ? 224.0 : 219.0) * codesPerStep;
        break;
    case Range::FullRp2077:
        m_zeroCode = codesPerStep;
        m_spanCodes = greatestCode - 2.0 * codesPerStep;
        break;
    case Range::FullSdiProtected:
        m_zeroCode = 0.0;
        m_spanCodes = greatestCode;
        break;
    }
    if (colourDifference)
        m_zeroCode = 128.0 * codesPerStep - m_spanCodes / 2.0;
}

} // namespace Velmora::WaveformTypes
