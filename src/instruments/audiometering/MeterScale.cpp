#include "instruments/audiometering/MeterScale.h"

#include <array>
#include <cmath>

namespace {

// In the order of the values of PPMScaleType. Colours change at the alignment level and at the permitted
// maximum of each scale; NordicN9 is red from the +6 of the classic instrument.
// clang-format off
constexpr std::array<MeterScale, 6> kScales{{
    {-70,  0,  9, 7, 3,    1, 0,   0, -18, -9, 1}, // dBFS
    {-52, 18,  9, 7, 3,    1, -18, 0,   0,  9, 1}, // dBu, 0 at -18 dBFS
    {-50, 20,  9, 5, 3,    1, -20, 0,   0, 10, 1}, // dBu, 0 at -20 dBFS
    {  0,  7,  1, 0, 0.25, 4, -34, 4,   4,  6, 2}, // BBC: mark 4 is -18 dBFS
    {-36,  9,  6, 0, 3,    1, -18, 0,   0,  6, 1}, // NordicN9
    {-50,  5, 10, 0, 5,    1, -9,  0,  -9,  0, 1}, // DIN45406
}};
// clang-format on

constexpr double kRounding = 1e-6;

bool isWhole(double number)
{
    return std::abs(number - std::round(number)) < kRounding;
}

} // namespace

const MeterScale* MeterScale::of(Type type)
{
    const auto index = static_cast<std::size_t>(type);
    return index < kScales.size() ? &kScales[index] : nullptr;
}

std::vector<double> MeterScale::majorTicks() const
{
    std::vector<double> ticks;
    for (int i = 0; lower + firstMajorOffset + i * majorInterval < upper + kRounding; ++i)
        ticks.push_back(lower + firstMajorOffset + i * majorInterval);
    return ticks;
}

std::vector<double> MeterScale::minorTicks() const
{
    std::vector<double> ticks;
    const double first = std::fmod(firstMajorOffset, minorInterval);
    for (int i = 0; lower + first + i * minorInterval < upper + kRounding; ++i) {
        const double tick = lower + first + i * minorInterval;
        if (!isWhole((tick - lower - firstMajorOffset) / majorInterval))
            ticks.push_back(tick);
    }
    return ticks;
}

int MeterScale::stepCount() const
{
    const double unit = isWhole(minorInterval) ? 1.0 : minorInterval;
    return static_cast<int>(std::lround(range() / unit));
}

QString MeterScale::label(double reading) const
{
    const int number = static_cast<int>(std::lround(reading));
    if (number < 0)
        return QChar(0x2212) + QString::number(-number);
    return number > 0 && lower < 0 ? QLatin1Char('+') + QString::number(number) : QString::number(number);
}
