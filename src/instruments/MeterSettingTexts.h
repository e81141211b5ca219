#pragma once

#include "gui/control/Setting.h"

/// How the settings of the audio meters read, from the values of their elements.
namespace MeterSettingTexts {

/// "PPM Type I"; the value itself for a number that no ballistics has.
QString ballistics(const QString& value);
/// "1.0 s"; "Infinite" for the lowest value, at which a hat never falls.
QString hatHoldTime(const QString& value);

std::vector<Setting::Option> scaleOptions();
std::vector<Setting::Option> ballisticsOptions();
/// In seconds; wraps at the ends.
Setting::Range hatHoldTimeRange();

} // namespace MeterSettingTexts
