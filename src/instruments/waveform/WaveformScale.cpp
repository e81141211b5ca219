#include "instruments/waveform/WaveformScale.h"

#include <algorithm>
#include <cmath>

namespace {

using Detail = WaveformScale::Detail;
using Label = WaveformScale::Label;

constexpr double kTolerance = 1e-6;
constexpr double kMillivoltsPerPercent = 7.0;
constexpr double kReferenceWhiteNits = 203.0;
constexpr QChar kMinus(0x2212);

/// How far apart lines with labels have to be, in pixels.
double lineSpacing(Detail detail)
{
    return detail == Detail::Full ? 52.0 : 26.0;
}

/// How far apart labels have to be that do not stand on such lines.
double labelSpacing(Detail detail)
{
    switch (detail) {
    case Detail::Small:
        return 22.0;
    case Detail::Medium:
        return 18.0;
    case Detail::Full:
        break;
    }
    return 24.0;
}

double tickSpacing(Detail detail)
{
    return detail == Detail::Small ? 14.0 : 7.5;
}

/// A step of a scale that reads easily, and into how many parts it falls.
struct Step {
    double size;
    std::vector<int> parts; ///< the finest first
};

Step decimalStep(double least)
{
    const double decade = std::pow(10.0, std::floor(std::log10(least) + kTolerance));
    if (least <= decade * (1.0 + kTolerance))
        return {decade, {10, 5, 2}};
    if (least <= 2.0 * decade)
        return {2.0 * decade, {4, 2}};
    if (least <= 5.0 * decade)
        return {5.0 * decade, {5}};
    return {10.0 * decade, {10, 5, 2}};
}

Step hexStep(double least)
{
    return {std::max(1.0, std::exp2(std::ceil(std::log2(least) - kTolerance))), {8, 4, 2}};
}

bool isClose(const std::vector<Label>& labels, double percent, double distance)
{
    return std::any_of(labels.begin(), labels.end(), [&](const Label& label) {
        return std::abs(label.percent - percent) < distance - kTolerance;
    });
}

/// Those that come first stay.
std::vector<Label> thinnedOut(const std::vector<Label>& candidates, double distance)
{
    std::vector<Label> kept;
    for (const Label& label : candidates) {
        if (!isClose(kept, label.percent, distance))
            kept.push_back(label);
    }
    std::sort(kept.begin(), kept.end(), [](const Label& a, const Label& b) { return a.percent < b.percent; });
    return kept;
}

bool isDecade(double nits)
{
    const double exponent = std::log10(nits);
    return std::abs(exponent - std::round(exponent)) < kTolerance;
}

/// "10k" where there is no room for "10000".
QString nitsText(double nits, Detail detail)
{
    const double longest = detail == Detail::Small ? 1000.0 : detail == Detail::Medium ? 10000.0 : 1e6;
    return nits < longest ? QString::number(nits, 'g', 6)
                          : QString::number(nits / 1000.0, 'g', 6) + QLatin1Char('k');
}

} // namespace

WaveformScale::WaveformScale(Unit unit, const CodeScale& codes, int bits, bool colourDifference,
                             double pixelsPerPercent, Detail detail)
    : m_unit(unit)
    , m_codes(codes)
    , m_colourDifference(colourDifference)
{
    const bool isInCodes = unit == Unit::Hex || unit == Unit::Decimal;
    m_valuePerPercent = isInCodes  ? codes.spanCodes() / 100.0
        : unit == Unit::Millivolts ? kMillivoltsPerPercent
                                   : 1.0;
    if (isInCodes)
        m_valueAtZero = codes.zeroCode();
    else if (colourDifference)
        m_valueAtZero = -50.0 * m_valuePerPercent;
    if (pixelsPerPercent <= 0.0)
        return;
    placeLines(pixelsPerPercent, detail);
    placeLimits(bits);
    placeLabels(pixelsPerPercent, detail);
}

void WaveformScale::placeLines(double pixelsPerPercent, Detail detail)
{
    const double pixelsPerValue = pixelsPerPercent / m_valuePerPercent;
    const double least = lineSpacing(detail) / pixelsPerValue;
    const Step step = m_unit == Unit::Hex ? hexStep(least) : decimalStep(least);
    m_lines = multiplesOf(step.size);
    if (detail == Detail::Full && step.parts.back() == 2)
        m_halves = multiplesOf(step.size / 2.0);
    for (const int parts : step.parts) {
        const bool isWhole = m_unit != Unit::Hex || step.size >= parts;
        if (step.size / parts * pixelsPerValue >= tickSpacing(detail) && isWhole) {
            m_ticks = multiplesOf(step.size / parts);
            break;
        }
    }
}

std::vector<double> WaveformScale::multiplesOf(double step) const
{
    std::vector<double> percents;
    const double last = value(100.0);
    for (double multiple = std::ceil(value(0.0) / step - kTolerance); multiple * step <= last + kTolerance;
         ++multiple)
        percents.push_back(percent(multiple * step));
    return percents;
}

void WaveformScale::placeLimits(int bits)
{
    const double codesPerStep = 1 << (bits - 8);
    const double greatest = (1 << bits) - 1;
    for (const double code : {codesPerStep, greatest - codesPerStep}) {
        const double level = m_codes.percent(code);
        if (std::abs(level) > 1.0 && std::abs(level - 100.0) > 1.0)
            m_limits.push_back(level);
    }
}

void WaveformScale::placeLabels(double pixelsPerPercent, Detail detail)
{
    std::vector<Label> candidates;
    const auto add = [&](double level, bool bold, bool limit) {
        const double shown = limit && m_unit == Unit::Percent ? std::round(value(level)) : value(level);
        candidates.push_back({level, text(shown), bold, limit});
    };
    add(0.0, true, false);
    add(100.0, true, false);
    if (m_colourDifference)
        add(50.0, true, false);
    if (detail != Detail::Small && !m_colourDifference) {
        for (const double limit : m_limits)
            add(limit, false, true);
    }
    for (const double line : m_lines)
        add(line, false, false);
    m_labels = thinnedOut(candidates, labelSpacing(detail) / pixelsPerPercent);
}

QString WaveformScale::text(double value) const
{
    if (m_unit == Unit::Hex)
        return QString::number(std::lround(value), 16).toUpper();
    // Parts of a percent are seen under magnification only.
    const double rounded = std::round(value * 10.0) / 10.0;
    const bool isWhole = m_unit != Unit::Percent || std::abs(rounded - std::round(rounded)) < kTolerance;
    const QString digits = QString::number(std::abs(value), 'f', isWhole ? 0 : 1);
    if (digits == QLatin1String("0") || m_unit == Unit::Decimal)
        return digits;
    if (value < 0.0)
        return kMinus + digits;
    return m_colourDifference ? QLatin1Char('+') + digits : digits;
}

QString WaveformScale::unitText() const
{
    switch (m_unit) {
    case Unit::Hex:
        return QStringLiteral("hex");
    case Unit::Decimal:
        return QStringLiteral("dec");
    case Unit::Millivolts:
        return QStringLiteral("mV");
    case Unit::Percent:
        break;
    }
    return QStringLiteral("%");
}

QString WaveformScale::readingOf(double percent) const
{
    const QString number = text(value(percent));
    const bool isInCodes = m_unit == Unit::Hex || m_unit == Unit::Decimal;
    return isInCodes ? number : number + QLatin1Char(' ') + unitText();
}

std::vector<Label> WaveformScale::nitsLabels(const NitsScale& nits, double pixelsPerPercent, Detail detail)
{
    if (pixelsPerPercent <= 0.0)
        return {};
    std::vector<Label> bold;
    std::vector<Label> decades;
    std::vector<Label> others;
    for (const double tick : nits.ticks()) {
        const double level = nits.percent(tick);
        const bool isPeak = std::abs(level - 100.0) < kTolerance;
        if (tick == 0.0 || tick == kReferenceWhiteNits || isPeak)
            bold.push_back({level, nitsText(tick, detail), true, false});
        else
            (isDecade(tick) ? decades : others).push_back({level, nitsText(tick, detail), false, false});
    }
    bold.insert(bold.end(), decades.begin(), decades.end());
    bold.insert(bold.end(), others.rbegin(), others.rend());
    return thinnedOut(bold, labelSpacing(detail) / pixelsPerPercent);
}
