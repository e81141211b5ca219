#pragma once

#include "types/ip/IpTypes.h"
#include "types/sdi/SdiTypes.h"

#include <QString>

namespace Velmora::IpTypes {

/// One ST 2110-20 video format.
struct VideoStandard2110Params {
    unsigned width = 0; ///< pixels
    unsigned height = 0; ///< lines of the whole frame, also when interlaced
    SampleStructure2110 sampling = SampleStructure2110::YCbCr422;
    BitDepth2110 depth = BitDepth2110::Bits10;
    Range2110 range = Range2110::Narrow;
    Colorimetry2110 colorimetry = Colorimetry2110::Bt709;
    bool interlaced = false;
    bool segmented = false; ///< progressive picture in segments; goes with interlaced
    TransferCurve2110 transfer = TransferCurve2110::Sdr;
    Sdi::FrameRate frameRate; ///< frames a second, also when interlaced

    friend bool operator==(const VideoStandard2110Params&, const VideoStandard2110Params&) = default;

    /// Whether ST 2110-20 allows the parameters together: size and rate in range, segments in an interlaced
    /// transport only (7.3), 4:2:0 with progressive pictures only (6.2.5), no FULLPROTECT with BT2100 (7.3).
    bool areConsistent() const;
    /// "25" or "30000/1001", ST 2110-20 clause 7.2.
    QString getExactFrameRate() const;
    /// The version of ST 2110-20 that the parameters need: the newer one for ALPHA and ST2115LOGS3 only.
    QString getStandardNumber() const;
    /// The format parameters of SDP from "sampling" to "SSN" for general packing, ST 2110-20 clause 7.
    /// Receivers take an absent RANGE as NARROW; it is told when it differs or the colorimetry is BT2100.
    QString getFormatParameters() const;
    /// Display text in the manner of the SDI names, with the field rate for interlaced pictures:
    /// "1920x1080i59.94 YCbCr-4:2:2:10 BT709 SDR".
    QString getStandardAsShortText() const;
};

} // namespace Velmora::IpTypes
