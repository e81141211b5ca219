#include "instruments/audiolevels/MeterScale.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {

constexpr int kTickSpacing = 12;

int narrowestStep(std::initializer_list<int> steps, int pixelsPerDb, int spacing)
{
    const auto* const found =
        std::find_if(steps.begin(), steps.end(), [=](int step) { return step * pixelsPerDb >= spacing; });
    return found == steps.end() ? *std::prev(steps.end()) : *found;
}

} // namespace

int MeterScale::rowOf(float levelDb) const
{
    if (!(levelDb > float{kLowestDb}))
        return bottom();
    const float below = -std::min(levelDb, 0.0F) * static_cast<float>(pixelsPerDb);
    return top + static_cast<int>(std::lround(below));
}

int MeterScale::labelStepDb() const
{
    // Multiples of three that meet the thresholds of the colours, as far as they go.
    return narrowestStep({3, 9, 18, 36}, pixelsPerDb, fontPixels * 12 / 5);
}

int MeterScale::tickStepDb() const
{
    return narrowestStep({1, 3, 9, 18}, pixelsPerDb, kTickSpacing);
}
