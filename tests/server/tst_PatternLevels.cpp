#include "server/measure/waveform/RenderWaveform.h"
#include "server/sources/PatternCatalogue.h"
#include "server/sources/PatternGenerator.h"
#include "server/sources/VideoFormats.h"
#include "types/waveform/CodeScale.h"
#include "types/waveform/WaveformGeometry.h"

#include "server/support/BrightestRow.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <array>
#include <cmath>

using namespace Velmora::Server;
using namespace Velmora::WaveformTypes;
using namespace Velmora::Sdi::PayloadId;

Q_DECLARE_METATYPE(VideoFormat)
Q_DECLARE_METATYPE(DisplayMode)

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
/// So tall that each code has a row of its own: 9 rows of a percent for 10 bits, 36 for 12.
constexpr int kContentWidth = 480;
constexpr int kRowsOfTenBits = 119 * 9 + 1;
constexpr int kRowsOfTwelveBits = 119 * 36 + 1;
/// Around the sample that is read: so far do the means of halved colour differences reach.
constexpr int kFlatSamples = 4;

struct Variant {
    const char* name;
    SampleStructure sampling;
    BitDepth depth;
};
constexpr std::array kVariants{
    Variant{"8 bit 4:2:2", SampleStructure::YCbCr422, BitDepth::Bits8},
    Variant{"10 bit 4:2:2", SampleStructure::YCbCr422, BitDepth::Bits10},
    Variant{"10 bit RGB", SampleStructure::Rgb444, BitDepth::Bits10},
    Variant{"12 bit 4:4:4", SampleStructure::YCbCr444, BitDepth::Bits12},
    Variant{"12 bit RGB", SampleStructure::Rgb444, BitDepth::Bits12},
};

struct BarPattern {
    const char* name;
    Colourimetry colourimetry;
    TransferCurve transfer;
    std::vector<int> lines; ///< one in each of the pattern's rows
};
const std::vector<BarPattern> kPatterns{
    {"bars-100", Colourimetry::Rec709, TransferCurve::SdrTv, {500}},
    {"bars-75", Colourimetry::Rec601, TransferCurve::SdrTv, {500}},
    {"ebu-bars", Colourimetry::Rec2020, TransferCurve::SdrTv, {500}},
    {"smpte-bars", Colourimetry::Rec709, TransferCurve::SdrTv, {300, 660, 760, 900}},
    {"hdr-bars", Colourimetry::Rec2020, TransferCurve::Hlg, {40, 300, 660, 900}},
    {"hdr-bars", Colourimetry::Rec2020, TransferCurve::Pq, {40, 300, 660, 900}},
};

bool isRgb(const VideoFormat& format)
{
    return format.sampling == SampleStructure::Rgb444;
}

/// The samples that belong to a place of the first component's line: Y, Cb, Cr or R, G, B.
std::array<int, 3> codesAt(const VideoFrame& frame, int x, int line)
{
    std::array<int, 3> codes{};
    for (std::size_t plane = 0; plane < codes.size(); ++plane) {
        const VideoPlane& samples = frame.planes[plane];
        codes[plane] = samples.line(line)[samples.width < kWidth ? x / 2 : x];
    }
    return codes;
}

bool isFlatAround(const VideoFrame& frame, int x, int line)
{
    if (x < kFlatSamples || x >= kWidth - kFlatSamples)
        return false;
    const auto codes = codesAt(frame, x, line);
    for (int other = x - kFlatSamples; other <= x + kFlatSamples; ++other)
        if (codesAt(frame, other, line) != codes)
            return false;
    return true;
}

/// What a component is by the equations of the colourimetry, as a narrow-range code of @p bits.
double expectedCode(Component component, const std::array<int, 3>& codes, const VideoFormat& format, int bits)
{
    const double step = 1 << (bits - 8);
    const auto level = [&](std::size_t i) { return (codes[i] / step - 16.0) / 219.0; };
    const auto difference = [&](std::size_t i) { return (codes[i] / step - 128.0) / 224.0; };
    const double kr = format.colourimetry == Colourimetry::Rec601 ? 0.299
        : format.colourimetry == Colourimetry::Rec2020            ? 0.2627
                                                                  : 0.2126;
    const double kb = format.colourimetry == Colourimetry::Rec601 ? 0.114
        : format.colourimetry == Colourimetry::Rec2020            ? 0.0593
                                                                  : 0.0722;
    double red = level(0);
    double green = level(1);
    double blue = level(2);
    double y = kr * red + (1 - kr - kb) * green + kb * blue;
    double cb = (blue - y) / (2 - 2 * kb);
    double cr = (red - y) / (2 - 2 * kr);
    if (!isRgb(format)) {
        y = level(0);
        cb = difference(1);
        cr = difference(2);
        red = y + (2 - 2 * kr) * cr;
        blue = y + (2 - 2 * kb) * cb;
        green = (y - kr * red - kb * blue) / (1 - kr - kb);
    }
    switch (component) {
    case Component::Y:
        return (219.0 * y + 16.0) * step;
    case Component::Cb:
        return (224.0 * cb + 128.0) * step;
    case Component::Cr:
        return (224.0 * cr + 128.0) * step;
    case Component::Red:
        return (219.0 * red + 16.0) * step;
    case Component::Green:
        return (219.0 * green + 16.0) * step;
    case Component::Blue:
    case Component::Alpha:
        break;
    }
    return (219.0 * blue + 16.0) * step;
}

bool isConverted(Component component, const VideoFormat& format)
{
    const bool isOfRgb = component >= Component::Red && component <= Component::Blue;
    return isOfRgb != isRgb(format);
}

} // namespace

/// The levels of all bars of the generated patterns, read back from the drawn waveform.
class tst_PatternLevels : public WzTest {
    Q_OBJECT

private slots:
    void everyBarStandsAtItsCode_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<VideoFormat>("format");
        QTest::addColumn<QList<int>>("lines");
        QTest::addColumn<DisplayMode>("mode");
        for (const BarPattern& pattern : kPatterns) {
            for (const Variant& variant : kVariants) {
                const VideoFormat format{.width = kWidth,
                                         .height = kHeight,
                                         .rateNumerator = 50,
                                         .sampling = variant.sampling,
                                         .depth = variant.depth,
                                         .colourimetry = pattern.colourimetry,
                                         .transfer = pattern.transfer};
                // Between them these show all components; the others show the same ones in another order.
                for (const DisplayMode mode : {DisplayMode::YCbCrA, DisplayMode::Ygbr})
                    QTest::addRow("%s %d, %s, %s", pattern.name, static_cast<int>(pattern.transfer),
                                  variant.name, mode == DisplayMode::Ygbr ? "YGBR" : "YCbCrA")
                        << QString::fromLatin1(pattern.name) << format
                        << QList<int>(pattern.lines.begin(), pattern.lines.end()) << mode;
            }
        }
    }
    void everyBarStandsAtItsCode()
    {
        QFETCH(QString, pattern);
        QFETCH(VideoFormat, format);
        QFETCH(QList<int>, lines);
        QFETCH(DisplayMode, mode);
        PatternGenerator source(PatternCatalogue::make(pattern.toStdString()), format);
        const VideoFrame& frame = *source.next();
        int barsRead = 0;
        for (const int line : lines)
            barsRead += readLine(frame, line, mode);
        // Two at least of each line, or nothing would have been looked at.
        QVERIFY(barsRead >= 2 * lines.size());
    }

private:
    /// How many flat places were read in each component.
    int readLine(const VideoFrame& frame, int line, DisplayMode mode)
    {
        const int bits = VideoFormats::bitsOf(frame.format.depth);
        WaveformSettings settings;
        settings.displayMode = mode;
        settings.filter = Velmora::WaveformTypes::Filter::Raw;
        settings.singleLine = line;
        const auto channels = channelsOf(mode, {});
        const QSize content(kContentWidth, bits > 10 ? kRowsOfTwelveBits : kRowsOfTenBits);
        const QImage image = renderWaveform(frame, settings, content);
        const WaveformGeometry geometry(content, settings.presentation, static_cast<int>(channels.size()));
        int count = 0;
        for (std::size_t i = 0; i < channels.size(); ++i) {
            const QRect& cell = geometry.cells()[i];
            count = 0;
            for (int column = 0; column < cell.width(); ++column) {
                const int x = (2 * column + 1) * kWidth / (2 * cell.width());
                if (!isFlatAround(frame, x, line) || !isFlatAround(frame, x + kWidth / cell.width(), line)
                    || !isFlatAround(frame, x - kWidth / cell.width(), line))
                    continue;
                ++count;
                compare(channels[i].component, codesAt(frame, x, line), frame.format,
                        brightestRow(image, cell, column), geometry);
            }
        }
        return count;
    }
    static void compare(Component component, const std::array<int, 3>& codes, const VideoFormat& format,
                        int row, const WaveformGeometry& geometry)
    {
        if (component == Component::Alpha) {
            QCOMPARE(row, -1); // these signals have none
            return;
        }
        const int bits = VideoFormats::bitsOf(format.depth);
        const CodeScale scale(bits, CodeScale::Range::Narrow, isColourDifference(component));
        const double code = expectedCode(component, codes, format, bits);
        const double percent = scale.percent(code);
        if (percent > 110.0 || percent < -8.0)
            return;
        const double read = scale.code(geometry.percent(row));
        // What is converted is rounded once more than what is read as it is.
        QVERIFY2(row >= 0 && std::abs(read - code) <= (isConverted(component, format) ? 1.0 : 0.5),
                 qPrintable(QStringLiteral("component %1: %2 for %3 (%4)")
                                .arg(static_cast<int>(component))
                                .arg(read)
                                .arg(code)
                                .arg(row)));
    }
};

WZ_TEST_CLASS(tst_PatternLevels)
#include "tst_PatternLevels.moc"
