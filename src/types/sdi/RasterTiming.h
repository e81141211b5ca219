#pragma once

#include "types/sdi/PayloadIdTypes.h"

namespace Velmora::Sdi {

/// First active lines of a raster, numbered as on the link.
struct FirstActiveLines {
    unsigned progressive = 0;
    unsigned field1 = 0;
    unsigned field2 = 0;
};

/// By active height: 486 and 576 (ST 125, BT.656), 720 (ST 296), 1080 (ST 274), 2160 (two lines for each of a
/// 1080-line raster); zeros for other heights.
FirstActiveLines firstActiveLines(unsigned activeHeight);

/// One raster in luma samples and lines.
struct RasterTiming {
    unsigned totalWidth = 0;
    unsigned activeWidth = 0;
    unsigned frontPorch = 0; ///< from the start of EAV, where the interface line begins, to 0H
    unsigned totalLines = 0;
    unsigned activeLines = 0;

    bool isKnown() const { return totalWidth != 0; }
};

/// The raster of a picture (or sub-image) of that size at that frame rate, from ST 125, BT.601, ST 296, ST
/// 274 and ST 2048-2. 2160 lines are a doubled 1080-line raster. All zero where no standard has such a
/// raster.
RasterTiming rasterTiming(unsigned activeWidth, unsigned activeHeight, PayloadId::PictureRate rate);

} // namespace Velmora::Sdi
