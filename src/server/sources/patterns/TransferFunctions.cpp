#include "server/sources/patterns/TransferFunctions.h"

#include <algorithm>
#include <cmath>

namespace Velmora::Server::TransferFunctions {

namespace {

constexpr double kHlgA = 0.17883277;
constexpr double kHlgB = 1.0 - 4.0 * kHlgA;
constexpr double kHlgC = 0.55991073;

constexpr double kPqM1 = 2610.0 / 16384.0;
constexpr double kPqM2 = 2523.0 / 4096.0 * 128.0;
constexpr double kPqC1 = 3424.0 / 4096.0;
constexpr double kPqC2 = 2413.0 / 4096.0 * 32.0;
constexpr double kPqC3 = 2392.0 / 4096.0 * 32.0;

} // namespace

double hlgToLight(double signal)
{
    return signal <= 0.5 ? signal * signal / 3.0 : (std::exp((signal - kHlgC) / kHlgA) + kHlgB) / 12.0;
}

double lightToHlg(double light)
{
    return light <= 1.0 / 12.0 ? std::sqrt(3.0 * light) : kHlgA * std::log(12.0 * light - kHlgB) + kHlgC;
}

double pqToLight(double signal)
{
    const double power = std::pow(signal, 1.0 / kPqM2);
    return std::pow(std::max(power - kPqC1, 0.0) / (kPqC2 - kPqC3 * power), 1.0 / kPqM1);
}

double lightToPq(double light)
{
    const double power = std::pow(light, kPqM1);
    return std::pow((kPqC1 + kPqC2 * power) / (1.0 + kPqC3 * power), kPqM2);
}

} // namespace Velmora::Server::TransferFunctions
