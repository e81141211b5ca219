#include "instruments/waveform/MeasurementCursorLabels.h"

#include <algorithm>
#include <cmath>

namespace {

/// 100 %, in thousandths of a percent.
constexpr int kFull = 100000;
constexpr double kPercentOfStep = 0.001;
constexpr double kMillivoltsOfPercent = 7.0;

QString number(double value, int decimals)
{
    return MeasurementCursorLabels::correctZeroRounding(QString::number(value, 'f', decimals));
}

QString signedHex(int code)
{
    const QString digits = QString::number(std::abs(code), 16).toUpper();
    return code < 0 ? QLatin1Char('-') + digits : digits;
}

/// Three digits say it for dark and bright: "0.325", "50.7", "1809".
QString nitsText(double nits)
{
    const double size = std::abs(nits);
    const bool isBlack = size < 0.0005;
    return number(nits, isBlack ? 0 : size < 1.0 ? 3 : size < 10.0 ? 2 : size < 100.0 ? 1 : 0);
}

} // namespace

MeasurementCursorLabels::MeasurementCursorLabels(Line line, const Velmora::WaveformTypes::CodeScale& codes,
                                                 const Velmora::WaveformTypes::NitsScale& nits)
    : m_line(line)
    , m_codes(codes)
    , m_nits(nits)
{
}

QString MeasurementCursorLabels::correctZeroRounding(const QString& number)
{
    const bool isZero = std::all_of(number.begin(), number.end(), [](QChar character) {
        return character == QLatin1Char('-') || character == QLatin1Char('0')
            || character == QLatin1Char('.');
    });
    return isZero && number.startsWith(QLatin1Char('-')) ? number.mid(1) : number;
}

double MeasurementCursorLabels::microseconds(int position) const
{
    if (m_line.sampleRate <= 0.0)
        return 0.0;
    return 1e6 * m_line.pixels * (position / static_cast<double>(kFull)) / m_line.sampleRate;
}

QString MeasurementCursorLabels::getMeasurementCursorXLabel(XScaleMode mode, int position) const
{
    switch (mode) {
    case XScaleMode::Time:
        return number(microseconds(position), 3) + QLatin1String("us");
    case XScaleMode::Pixels:
        return QString::number(std::lround(m_line.pixels * (position * 0.00001))) + QLatin1String("Pix");
    case XScaleMode::Frequency: {
        const double time = std::abs(microseconds(position));
        return number(time > 0.0 ? 1000.0 / time : 0.0, 3) + QLatin1String("kHz");
    }
    case XScaleMode::Percent:
        break;
    }
    return number(position * kPercentOfStep, 1) + QLatin1Char('%');
}

QString MeasurementCursorLabels::getMeasurementCursorXDiffLabel(XScaleMode mode, int first, int second) const
{
    return getMeasurementCursorXLabel(mode, second - first);
}

int MeasurementCursorLabels::code(int level) const
{
    return static_cast<int>(std::lround(m_codes.code(level * kPercentOfStep)));
}

QString MeasurementCursorLabels::relativeLabel(int span) const
{
    const int full = kFull - m_percentReference;
    if (full == 0)
        return QStringLiteral("INF");
    return number(span * 100.0 / full, 1) + QLatin1String("%[REF]");
}

QString MeasurementCursorLabels::getMeasurementCursorYLabel(YScaleMode mode, int level) const
{
    switch (mode) {
    case YScaleMode::PercentRelative:
        return relativeLabel(level - m_percentReference);
    case YScaleMode::Millivolts: {
        const double millivolts = std::floor(0.5 + level * kMillivoltsOfPercent * kPercentOfStep);
        return number(millivolts, 0) + QLatin1String("mV");
    }
    case YScaleMode::Hex:
        return signedHex(code(level)) + QLatin1String("[HEX]");
    case YScaleMode::Decimal:
        return QString::number(code(level)) + QLatin1String("[DEC]");
    case YScaleMode::Nits:
        return nitsText(m_nits.nits(level * kPercentOfStep)) + QLatin1String("Nits");
    case YScaleMode::Percent:
        break;
    }
    return number(level * kPercentOfStep, 1) + QLatin1Char('%');
}

QString MeasurementCursorLabels::getMeasurementCursorYDiffLabel(YScaleMode mode, int first, int second) const
{
    switch (mode) {
    case YScaleMode::PercentRelative:
        return relativeLabel(second - first);
    // Of what both cursors read, so that the figures add up.
    case YScaleMode::Hex:
        return signedHex(code(second) - code(first)) + QLatin1String("[HEX]");
    case YScaleMode::Decimal:
        return QString::number(code(second) - code(first)) + QLatin1String("[DEC]");
    // Light is no straight function of the level.
    case YScaleMode::Nits:
        return nitsText(m_nits.nits(second * kPercentOfStep) - m_nits.nits(first * kPercentOfStep))
            + QLatin1String("Nits");
    case YScaleMode::Percent:
    case YScaleMode::Millivolts:
        break;
    }
    return getMeasurementCursorYLabel(mode, second - first);
}
