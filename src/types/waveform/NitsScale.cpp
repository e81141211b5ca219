#include "types/waveform/NitsScale.h"

#include "types/waveform/CodeScale.h"

#include <algorithm>
#include <cmath>

namespace Velmora::WaveformTypes {

namespace {

constexpr double kSdrPeak = 100.0;
constexpr double kSdrGamma = 2.4;

constexpr double kPqPeak = 10000.0;
constexpr double kPqM1 = 2610.0 / 16384.0;
constexpr double kPqM2 = 2523.0 / 4096.0 * 128.0;
constexpr double kPqC1 = 3424.0 / 4096.0;
constexpr double kPqC2 = 2413.0 / 4096.0 * 32.0;
constexpr double kPqC3 = 2392.0 / 4096.0 * 32.0;

constexpr double kHlgPeak = 1000.0;
constexpr double kHlgGamma = 1.2;
constexpr double kHlgA = 0.17883277;
constexpr double kHlgB = 1.0 - 4.0 * kHlgA;
constexpr double kHlgC = 0.55991073;

// In codes of 10 bits, whatever the depth of the signal.
constexpr double kSLog3Black = 95.0;
constexpr double kSLog3Break = 171.2102946929;
constexpr double kSLog3BreakLight = 0.01125;
constexpr double kSLog3GreyCode = 420.0;
constexpr double kSLog3CodesPerDecade = 261.5;
constexpr double kSLog3WhiteLight = 0.9;
constexpr double kSLog3WhiteNits = 100.0;
constexpr double kFullRangeCodes = 1023.0;

double pqNits(double signal)
{
    const double power = std::pow(std::clamp(signal, 0.0, 1.0), 1.0 / kPqM2);
    return kPqPeak * std::pow(std::max(power - kPqC1, 0.0) / (kPqC2 - kPqC3 * power), 1.0 / kPqM1);
}

double pqSignal(double nits)
{
    const double power = std::pow(nits / kPqPeak, kPqM1);
    return std::pow((kPqC1 + kPqC2 * power) / (1.0 + kPqC3 * power), kPqM2);
}

double hlgNits(double signal)
{
    const double light =
        signal <= 0.5 ? signal * signal / 3.0 : (std::exp((signal - kHlgC) / kHlgA) + kHlgB) / 12.0;
    return kHlgPeak * std::pow(light, kHlgGamma);
}

double hlgSignal(double nits)
{
    const double light = std::pow(nits / kHlgPeak, 1.0 / kHlgGamma);
    return light <= 1.0 / 12.0 ? std::sqrt(3.0 * light) : kHlgA * std::log(12.0 * light - kHlgB) + kHlgC;
}

double sLog3Light(double code)
{
    return code >= kSLog3Break ? 0.19 * std::pow(10.0, (code - kSLog3GreyCode) / kSLog3CodesPerDecade) - 0.01
                               : (code - kSLog3Black) * kSLog3BreakLight / (kSLog3Break - kSLog3Black);
}

double sLog3Code(double light)
{
    return light >= kSLog3BreakLight
        ? kSLog3GreyCode + kSLog3CodesPerDecade * std::log10((light + 0.01) / 0.19)
        : light * (kSLog3Break - kSLog3Black) / kSLog3BreakLight + kSLog3Black;
}

double sLog3Gamma(SLog3Mode mode)
{
    return mode == SLog3Mode::SLog3 ? 1.0 : kHlgGamma;
}

} // namespace

NitsScale::NitsScale(Curve curve, SLog3Mode mode, bool isFullRange)
    : m_curve(curve)
    , m_mode(mode)
    , m_isFullRange(isFullRange)
{
}

double NitsScale::nits(double percent) const
{
    const double signal = std::max(0.0, percent / 100.0);
    switch (m_curve) {
    case Curve::Hlg:
        return hlgNits(signal);
    case Curve::Pq:
        return pqNits(signal);
    case Curve::SLog3:
        return sLog3Nits(percent);
    case Curve::SdrTv:
        break;
    }
    return kSdrPeak * std::pow(signal, kSdrGamma);
}

double NitsScale::percent(double nits) const
{
    const double light = std::max(0.0, nits);
    switch (m_curve) {
    case Curve::Hlg:
        return 100.0 * hlgSignal(light);
    case Curve::Pq:
        return light > 0.0 ? 100.0 * pqSignal(light) : 0.0;
    case Curve::SLog3:
        return sLog3Percent(light);
    case Curve::SdrTv:
        break;
    }
    return 100.0 * std::pow(light / kSdrPeak, 1.0 / kSdrGamma);
}

double NitsScale::sLog3Nits(double percent) const
{
    const double code = m_isFullRange ? percent * kFullRangeCodes / 100.0
                                      : CodeScale(10, CodeScale::Range::Narrow, false).code(percent);
    const double light = std::max(0.0, sLog3Light(code) / kSLog3WhiteLight);
    return kSLog3WhiteNits * std::pow(light, sLog3Gamma(m_mode));
}

double NitsScale::sLog3Percent(double nits) const
{
    const double light = kSLog3WhiteLight * std::pow(nits / kSLog3WhiteNits, 1.0 / sLog3Gamma(m_mode));
    const double code = sLog3Code(light);
    return m_isFullRange ? code * 100.0 / kFullRangeCodes
                         : CodeScale(10, CodeScale::Range::Narrow, false).percent(code);
}

double NitsScale::referencePercent() const
{
    switch (m_curve) {
    case Curve::Hlg:
        return 75.0;
    case Curve::Pq:
        return 58.1;
    case Curve::SLog3:
        return m_mode == SLog3Mode::SLog3 ? 70.0 : 68.5;
    case Curve::SdrTv:
        break;
    }
    return 0.0;
}

const std::vector<double>& NitsScale::ticks() const
{
    static const std::vector<double> kSdr{0, 1, 5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100};
    static const std::vector<double> kHlg{0, 1, 5, 10, 20, 50, 100, 203, 300, 400, 600, 800, 1000, 1800};
    static const std::vector<double> kPq{0,   0.1, 1,   5,    10,   20,   50,   100,
                                         203, 400, 600, 1000, 2000, 4000, 10000};
    static const std::vector<double> kSLog3{0, 20, 50, 100, 203, 400, 1000, 2000, 4000};
    static const std::vector<double> kSrLive{0, 50, 100, 203, 400, 1000, 2000, 3000};
    switch (m_curve) {
    case Curve::Hlg:
        return kHlg;
    case Curve::Pq:
        return kPq;
    case Curve::SLog3:
        return m_mode == SLog3Mode::SLog3 ? kSLog3 : kSrLive;
    case Curve::SdrTv:
        break;
    }
    return kSdr;
}

} // namespace Velmora::WaveformTypes
