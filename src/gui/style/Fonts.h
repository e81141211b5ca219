#pragma once

#include <QFont>

/// The text sizes of the screen, in design pixels: one sans family, whose figures all have one width.
namespace Fonts {

inline constexpr int kLabelPixels = 15; ///< labels, units, ticks; nothing is smaller
inline constexpr int kTitlePixels = 17; ///< titles, buttons
inline constexpr int kBodyPixels = 20; ///< values, rows
inline constexpr int kReadOutPixels = 27;
inline constexpr int kKeyFigurePixels = 36; ///< the one key figure of a window

QString family();
QFont ofPixels(int pixels, bool bold = false);

} // namespace Fonts

/// Makes the family the application's.
void initiateFonts();
