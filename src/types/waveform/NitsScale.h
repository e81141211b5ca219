#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/waveform/WaveformTypes.h"

#include <vector>

namespace Velmora::WaveformTypes {

/// The light in cd/m2 that levels stand for, by the transfer curve.
///
/// SDR-TV: the reference display of BT.1886, 100 cd/m2. HLG: the reference display of BT.2100, 1000 cd/m2
/// with a system gamma of 1.2, for grey. PQ: ST 2084. S-Log3 tells the light of the scene: 90 % white is
/// taken for 100 cd/m2, without a system gamma, or ("SR Live") with one of 1.2.
class NitsScale {
public:
    using Curve = Sdi::PayloadId::TransferCurve;

    /// The codes of S-Log3 are laid down; @p isFullRange tells which percent of the scale they are.
    explicit NitsScale(Curve curve = Curve::SdrTv, SLog3Mode mode = SLog3Mode::SLog3,
                       bool isFullRange = false);

    /// Nothing is darker than 0; PQ ends at 10000.
    double nits(double percent) const;
    double percent(double nits) const;

    /// Where the reference level marker stands: BT.2408's HDR reference white, and 0 % for SDR-TV.
    double referencePercent() const;
    /// What is worth a label, upwards.
    const std::vector<double>& ticks() const;

    bool isHdr() const { return m_curve != Curve::SdrTv; }

private:
    double sLog3Nits(double percent) const;
    double sLog3Percent(double nits) const;

    Curve m_curve;
    SLog3Mode m_mode;
    bool m_isFullRange;
};

} // namespace Velmora::WaveformTypes
