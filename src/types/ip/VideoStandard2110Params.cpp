#include "types/ip/VideoStandard2110Params.h"

#include <QStringList>

namespace Velmora::IpTypes {

namespace {

constexpr unsigned kLargestSize = 32767; // ST 2110-20 clause 7.2

bool isSize(unsigned pixels)
{
    return pixels >= 1 && pixels <= kLargestSize;
}

bool is420(SampleStructure2110 sampling)
{
    return sampling == SampleStructure2110::YCbCr420 || sampling == SampleStructure2110::ClYCbCr420
        || sampling == SampleStructure2110::ICtCp420;
}

/// Rates as they are named: two decimals where they are not whole.
QString rateName(double hertz)
{
    const double whole = qRound(hertz);
    return qAbs(hertz - whole) < 0.001 ? QString::number(whole) : QString::number(hertz, 'f', 2);
}

} // namespace

bool VideoStandard2110Params::areConsistent() const
{
    if (!isSize(width) || !isSize(height) || frameRate.numerator == 0 || frameRate.denominator == 0)
        return false;
    if ((segmented && !interlaced) || (interlaced && is420(sampling)))
        return false;
    return range != Range2110::FullProtect || colorimetry != Colorimetry2110::Bt2100;
}

QString VideoStandard2110Params::getExactFrameRate() const
{
    const QString frames = QString::number(frameRate.numerator);
    return frameRate.denominator == 1 ? frames
                                      : frames + QLatin1Char('/') + QString::number(frameRate.denominator);
}

QString VideoStandard2110Params::getStandardNumber() const
{
    const bool needs2022 =
        colorimetry == Colorimetry2110::Alpha || transfer == TransferCurve2110::St2115LogS3;
    return needs2022 ? QStringLiteral("ST2110-20:2022") : QStringLiteral("ST2110-20:2017");
}

QString VideoStandard2110Params::getFormatParameters() const
{
    QStringList parameters{
        QLatin1String("sampling=") + convertSampleStructureToString(sampling),
        QLatin1String("width=") + QString::number(width),
        QLatin1String("height=") + QString::number(height),
        QLatin1String("exactframerate=") + getExactFrameRate(),
        QLatin1String("depth=") + convertBitDepthToString(depth),
    };
    if (interlaced)
        parameters += QStringLiteral("interlace");
    if (interlaced && segmented)
        parameters += QStringLiteral("segmented");
    if (sampling != SampleStructure2110::Key) // a key signal has no transfer curve
        parameters += QLatin1String("TCS=") + convertTransferCurveToString(transfer);
    parameters += QLatin1String("colorimetry=") + convertColorimetryToString(colorimetry);
    if (range != Range2110::Narrow || colorimetry == Colorimetry2110::Bt2100)
        parameters += QLatin1String("RANGE=") + convertRangeToString(range);
    parameters += QStringLiteral("PM=2110GPM");
    parameters += QLatin1String("SSN=") + getStandardNumber();
    return parameters.join(QLatin1String("; "));
}

QString VideoStandard2110Params::getStandardAsShortText() const
{
    const bool fields = interlaced && !segmented;
    const QLatin1String scan(fields ? "i" : interlaced ? "psf" : "p");
    QString text = QString::number(width) + QLatin1Char('x') + QString::number(height) + scan
        + rateName(frameRate.hertz() * (fields ? 2 : 1)) + QLatin1Char(' ')
        + convertSampleStructureToString(sampling) + QLatin1Char(':') + convertBitDepthToString(depth);
    if (range != Range2110::Narrow)
        text += QLatin1Char(' ') + convertRangeToString(range);
    text += QLatin1Char(' ') + convertColorimetryToString(colorimetry) + QLatin1Char(' ')
        + convertTransferCurveToString(transfer);
    return text;
}

} // namespace Velmora::IpTypes
