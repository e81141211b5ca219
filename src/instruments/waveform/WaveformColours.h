#pragma once

#include "gui/style/WzPalette.h"
#include "types/waveform/WaveformTypes.h"

#include <QColor>

/// The colours of a waveform that have no meaning elsewhere.
namespace WaveformColours {

inline constexpr QRgb kLimitLabel = 0xFFA88030;
inline constexpr QRgb kUserMarker1 = 0xFFFFA030;
inline constexpr QRgb kUserMarker2 = 0xFFAFEEEE;
inline constexpr QRgb kReferenceLevel = 0xFFFFFFFF;
inline constexpr QRgb kPeakWhite = 0xFFFF70C0;
inline constexpr QRgb kReferenceCursor = 0xFF3FD060;
inline constexpr QRgb kDeltaCursor = 0xFF5090FF;
inline constexpr QRgb kReferenceTrace = 0xFFC07820;
inline constexpr QRgb kReadOutBackground = 0xBD101010;
inline constexpr QRgb kLabelBackground = 0xCC000000;
inline constexpr QRgb kOverlaidScale = 0x60000000;

ColourRole roleOf(Velmora::WaveformTypes::Component component);

} // namespace WaveformColours
