#include "server/measure/waveform/RenderWaveform.h"
#include "server/measure/waveform/WaveformRasteriser.h"

#include "server/support/BrightestRow.h"
#include "server/support/SyntheticFrame.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <array>
#include <cmath>

using namespace Velmora::Server;
using namespace Velmora::WaveformTypes;

using Depth = SyntheticFrame::Depth;
using Sampling = SyntheticFrame::Sampling;

Q_DECLARE_METATYPE(WaveformSettings)
Q_DECLARE_METATYPE(Depth)
Q_DECLARE_METATYPE(Sampling)
Q_DECLARE_METATYPE(Velmora::WaveformTypes::Filter)
Q_DECLARE_METATYPE(Velmora::WaveformTypes::FullRangeMode)

namespace {

constexpr int kBars = 8;
/// Tall enough for a row of its own for each code of 12 bits.
constexpr QSize kTall{480, 119 * 36 + 1};
constexpr QSize kFull{1920, 1050};

/// Y, Cb, Cr in 10 bit: ITU-R BT.709 bars at 100 %, with the ends of what SDI can carry in place of white and
/// black.
constexpr std::array<std::array<int, kBars>, 3> kYCbCrBars{{{1019, 877, 754, 690, 314, 250, 127, 4},
                                                            {4, 64, 615, 167, 857, 409, 960, 1019},
                                                            {1019, 553, 64, 105, 919, 960, 471, 4}}};

int bitsOf(Depth depth)
{
    return depth == Depth::Bits8 ? 8 : depth == Depth::Bits12 ? 12 : 10;
}

/// The code at another depth; 12-bit ones with the lowest bits set as well, where that stays in range.
int atDepth(int code10, Depth depth)
{
    return depth == Depth::Bits8 ? std::clamp(code10 / 4, 1, 254)
        : depth == Depth::Bits12 ? std::min(code10 * 4 + 3, 4079)
                                 : code10;
}

void fillBars(SyntheticFrame& frame, std::size_t plane, const std::array<int, kBars>& codes)
{
    const int width = frame.frame().planes[plane].width;
    frame.fill(plane, [&](int x, int) {
        return atDepth(codes[static_cast<std::size_t>(x * kBars / width)], frame.frame().format.depth);
    });
}

int lightAt(const QImage& image, const QRect& cell, int column, int row)
{
    return qAlpha(image.pixel(cell.x() + column, cell.y() + row));
}

WaveformGeometry geometryOf(const WaveformSettings& settings, QSize content)
{
    const auto channels = channelsOf(settings.displayMode, settings.customChannels);
    return {content, settings.presentation, static_cast<int>(channels.size()), settings.fullWidth,
            settings.view};
}

/// One channel in one cell.
WaveformSettings single(Component component)
{
    WaveformSettings settings;
    settings.displayMode = DisplayMode::Custom;
    settings.customChannels[0] = {true, component};
    return settings;
}

/// An own formula for what a component of three codes is, as a code of its own.
double expectedCode(Component component, const std::array<int, 3>& yCbCr, int bits)
{
    const double step = 1 << (bits - 8);
    const double y = (yCbCr[0] / step - 16.0) / 219.0;
    const double cb = (yCbCr[1] / step - 128.0) / 224.0;
    const double cr = (yCbCr[2] / step - 128.0) / 224.0;
    const auto code = [&](double value) { return (219.0 * value + 16.0) * step; };
    switch (component) {
    case Component::Red:
        return code(y + 1.5748 * cr);
    case Component::Green:
        return code(y - 0.1873 * cb - 0.4681 * cr);
    case Component::Blue:
        return code(y + 1.8556 * cb);
    default:
        return yCbCr[static_cast<std::size_t>(component)];
    }
}

} // namespace

class tst_WaveformRasteriser : public WzTest {
    Q_OBJECT

private slots:
    void readsEveryBarToTheCode_data();
    void readsEveryBarToTheCode();
    void convertsRgb_data();
    void convertsRgb();
    void readsFullRange_data();
    void readsFullRange();
    void filters_data();
    void filters();
    void losesNoSample();
    void drawsWaysBetweenLevels();
    void givesLightByTheShareOfLines();
    void countsMoreHitsThanSixteenBitsHold();
    void magnifiesAndMoves();
    void appliesGainsAboutZero();
    void showsASingleLine();
    void persists();
    void cellsAreTheSameFromSeveralThreads();
    void coloursTheTrace();
    void staysWithinOddPictures_data();
    void staysWithinOddPictures();
};

void tst_WaveformRasteriser::readsEveryBarToTheCode_data()
{
    QTest::addColumn<Depth>("depth");
    QTest::addColumn<Sampling>("sampling");
    QTest::addColumn<WaveformSettings>("settings");
    const std::array<std::pair<const char*, Depth>, 3> depths{
        {{"8 bit", Depth::Bits8}, {"10 bit", Depth::Bits10}, {"12 bit", Depth::Bits12}}};
    int turn = 0;
    for (const auto& [name, depth] : depths) {
        for (int mode = 0; mode < static_cast<int>(DisplayMode::Custom); ++mode) {
            // All filters leave flat parts alone; they and the presentations take turns.
            WaveformSettings settings;
            settings.displayMode = static_cast<DisplayMode>(mode);
            settings.filter = static_cast<Velmora::WaveformTypes::Filter>(turn % 4);
            settings.presentation = turn % 3 == 1 ? Presentation::Stacked : Presentation::Parade;
            settings.fullWidth = turn % 5 == 0;
            const Sampling sampling = turn % 2 == 0 ? Sampling::YCbCrA4224 : Sampling::YCbCrA4444;
            QTest::addRow("%s, mode %d", name, mode) << depth << sampling << settings;
            ++turn;
        }
    }
}

void tst_WaveformRasteriser::readsEveryBarToTheCode()
{
    QFETCH(Depth, depth);
    QFETCH(Sampling, sampling);
    QFETCH(WaveformSettings, settings);
    SyntheticFrame frame(512, 8, sampling, depth);
    for (std::size_t plane = 0; plane < 3; ++plane)
        fillBars(frame, plane, kYCbCrBars[plane]);
    fillBars(frame, 3, kYCbCrBars[0]);

    const auto channels = channelsOf(settings.displayMode, settings.customChannels);
    const bool isStacked = settings.presentation == Presentation::Stacked;
    const QSize content(kTall.width(),
                        kTall.height() * (isStacked ? static_cast<int>(channels.size()) + 1 : 1));
    const QImage image = renderWaveform(frame.frame(), settings, content);
    const WaveformGeometry geometry = geometryOf(settings, content);
    QCOMPARE(image.size(), geometry.imageRect().size());
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const Component component = channels[i].component;
        const CodeScale scale(bitsOf(depth), CodeScale::Range::Narrow, isColourDifference(component));
        const QRect& cell = geometry.cells()[i];
        for (int bar = 0; bar < kBars; ++bar) {
            const int middle = (2 * bar + 1) * cell.width() / (2 * kBars);
            std::array<int, 3> codes{};
            for (std::size_t plane = 0; plane < 3; ++plane)
                codes[plane] = atDepth(kYCbCrBars[plane][static_cast<std::size_t>(bar)], depth);
            const double code =
                component == Component::Alpha ? codes[0] : expectedCode(component, codes, bitsOf(depth));
            const int row = brightestRow(image, cell, middle);
            if (scale.percent(code) > 110.0 || scale.percent(code) < -8.0) {
                QVERIFY2(row < 0, "a level out of sight is drawn");
                continue;
            }
            const double read = scale.code(geometry.percent(row));
            // What is converted is rounded once more than what is read as it is.
            const bool isConverted = component >= Component::Red && component <= Component::Blue;
            const double tolerance = isConverted ? 1.0 : 0.5;
            QVERIFY2(
                std::abs(read - code) <= tolerance,
                qPrintable(
                    QStringLiteral("bar %1 of channel %2: %3 for %4").arg(bar).arg(i).arg(read).arg(code)));
        }
    }
}

void tst_WaveformRasteriser::convertsRgb_data()
{
    using Velmora::Sdi::PayloadId::Colourimetry;
    QTest::addColumn<int>("colourimetry");
    QTest::addColumn<int>("y"); // of 100 % red in 10 bit
    QTest::addColumn<int>("cb");
    QTest::addColumn<int>("cr");
    QTest::newRow("601") << static_cast<int>(Colourimetry::Rec601) << 326 << 361 << 960;
    QTest::newRow("709") << static_cast<int>(Colourimetry::Rec709) << 250 << 409 << 960;
    QTest::newRow("2020") << static_cast<int>(Colourimetry::Rec2020) << 294 << 387 << 960;
}

void tst_WaveformRasteriser::convertsRgb()
{
    QFETCH(int, colourimetry);
    SyntheticFrame frame(64, 4, Sampling::Rgb444, Depth::Bits10);
    frame.format().colourimetry = static_cast<Velmora::Sdi::PayloadId::Colourimetry>(colourimetry);
    frame.fill(0, 940);
    frame.fill(1, 64);
    frame.fill(2, 64);
    const WaveformSettings settings;
    const QImage image = renderWaveform(frame.frame(), settings, kTall);
    const WaveformGeometry geometry = geometryOf(settings, kTall);
    const std::array<const char*, 3> columns{"y", "cb", "cr"};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const CodeScale scale(10, CodeScale::Range::Narrow, i > 0);
        QFETCH(int, y);
        QFETCH(int, cb);
        QFETCH(int, cr);
        const int code = std::array<int, 3>{y, cb, cr}[i];
        const double read = scale.code(geometry.percent(brightestRow(image, geometry.cells()[i], 10)));
        QVERIFY2(std::abs(read - code) <= 0.8, qPrintable(QStringLiteral("%1 for %2").arg(read).arg(code)));
    }
}

void tst_WaveformRasteriser::readsFullRange_data()
{
    QTest::addColumn<Depth>("depth");
    QTest::addColumn<FullRangeMode>("mode");
    QTest::addColumn<int>("white"); // in R, G and B, so that Y is as well
    QTest::newRow("10 bit RP 2077") << Depth::Bits10FullRange << FullRangeMode::Rp2077 << 1019;
    QTest::newRow("10 bit protected") << Depth::Bits10FullRange << FullRangeMode::SdiProtected << 1023;
    QTest::newRow("12 bit RP 2077") << Depth::Bits12FullRange << FullRangeMode::Rp2077 << 4079;
}

void tst_WaveformRasteriser::readsFullRange()
{
    QFETCH(Depth, depth);
    QFETCH(FullRangeMode, mode);
    QFETCH(int, white);
    SyntheticFrame frame(64, 4, Sampling::Rgb444, depth);
    for (std::size_t plane = 0; plane < 3; ++plane)
        frame.fill(plane, white);
    WaveformSettings settings;
    settings.displayMode = DisplayMode::Yrgb;
    settings.fullRangeMode = mode;
    const QImage image = renderWaveform(frame.frame(), settings, kFull);
    const WaveformGeometry geometry = geometryOf(settings, kFull);
    for (const QRect& cell : geometry.cells())
        // The spot is three rows wide.
        QCOMPARE(brightestRow(image, cell, 5) + 1, geometry.row(100.0));
}

void tst_WaveformRasteriser::filters_data()
{
    using Velmora::WaveformTypes::Filter;
    QTest::addColumn<Filter>("filter");
    QTest::addColumn<double>("highest"); // what a step from 0 to 100 % reaches
    QTest::addColumn<double>("finest"); // the level that lines of single samples at 0 and 100 % have
    QTest::newRow("technical") << Filter::Technical << 100.0 * 277.0 / 256.0 << 50.0;
    QTest::newRow("production") << Filter::Production << 100.0 << 50.0;
    QTest::newRow("low pass") << Filter::LowPass << 100.0 << 50.0;
    QTest::newRow("raw") << Filter::Raw << 100.0 << 100.0;
}

void tst_WaveformRasteriser::filters()
{
    QFETCH(Velmora::WaveformTypes::Filter, filter);
    QFETCH(double, highest);
    QFETCH(double, finest);
    WaveformSettings settings = single(Component::Y);
    settings.filter = filter;
    const QSize content(1920, 240);
    const WaveformGeometry geometry = geometryOf(settings, content);
    const QRect cell = geometry.cells().front();
    SyntheticFrame frame(cell.width(), 4, Sampling::YCbCr422, Depth::Bits10);

    frame.fill(0, [&](int x, int) { return x < cell.width() / 2 ? 64 : 940; });
    QImage image = renderWaveform(frame.frame(), settings, content);
    int top = cell.height();
    for (int column = 0; column < cell.width(); ++column)
        top = std::min(top, brightestRow(image, cell, column));
    QCOMPARE(top, geometry.row(highest));

    frame.fill(0, [](int x, int) { return x % 2 == 0 ? 64 : 940; });
    image = renderWaveform(frame.frame(), settings, content);
    QCOMPARE(brightestRow(image, cell, 201), geometry.row(finest));
}

void tst_WaveformRasteriser::losesNoSample()
{
    SyntheticFrame frame(1920, 1080, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, 502);
    WaveformSettings settings;
    settings.filter = Velmora::WaveformTypes::Filter::Raw;
    const QSize content(480, 240);
    const WaveformGeometry geometry = geometryOf(settings, content);
    const QRect cell = geometry.cells().front();
    for (const QPoint& odd : {QPoint(0, 0), QPoint(1919, 1079), QPoint(255, 16), QPoint(256, 15)}) {
        frame.at(0, odd.x(), odd.y()) = 940;
        const QImage image = renderWaveform(frame.frame(), settings, content);
        QVERIFY(lightAt(image, cell, odd.x() * cell.width() / 1920, geometry.row(100.0)) > 0);
        frame.at(0, odd.x(), odd.y()) = 502;
    }
}

void tst_WaveformRasteriser::drawsWaysBetweenLevels()
{
    // One step in the middle of the line; no sample stands between the levels.
    SyntheticFrame frame(1920, 8, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, [](int x, int) { return x < 960 ? 64 : 940; });
    WaveformSettings settings = single(Component::Y);
    settings.filter = Velmora::WaveformTypes::Filter::Raw;
    settings.brightness = 1.0;
    const QImage image = renderWaveform(frame.frame(), settings, kFull);
    const WaveformGeometry geometry = geometryOf(settings, kFull);
    const QRect cell = geometry.cells().front();
    const int step = cell.width() / 2;
    for (const double percent : {10.0, 50.0, 90.0}) {
        QCOMPARE(lightAt(image, cell, step, geometry.row(percent)), 107); // 42 %
        QCOMPARE(lightAt(image, cell, step - 1, geometry.row(percent)), 0);
        QCOMPARE(lightAt(image, cell, step + 1, geometry.row(percent)), 0);
    }
}

void tst_WaveformRasteriser::givesLightByTheShareOfLines()
{
    // A twelfth, five twelfths and half of the lines.
    SyntheticFrame frame(480, 120, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, [](int, int y) { return y < 10 ? 64 : y < 60 ? 502 : 940; });
    WaveformSettings settings = single(Component::Y);
    const auto lights = [&] {
        const QImage image = renderWaveform(frame.frame(), settings, kFull);
        const WaveformGeometry geometry = geometryOf(settings, kFull);
        const auto light = [&](double percent) {
            return lightAt(image, geometry.cells().front(), 100, geometry.row(percent));
        };
        return std::array<int, 3>{light(0.0), light(50.0), light(100.0)};
    };
    const auto normal = lights();
    QCOMPARE(normal[2], 255);
    QVERIFY(normal[1] < 255 && normal[1] > normal[0]);
    QCOMPARE(normal[0], static_cast<int>(std::lround(255 * std::pow(1.0 / 6.0, 0.3))));
    settings.gamma = 1.0;
    QVERIFY(lights()[0] < normal[0]);
    settings.brightness = 0.25;
    QVERIFY(lights()[2] < 255);
}

void tst_WaveformRasteriser::countsMoreHitsThanSixteenBitsHold()
{
    // 32 samples of 2160 lines fall on each column.
    SyntheticFrame frame(3840, 2160, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, [](int, int y) { return y == 1080 ? 940 : 64; });
    WaveformSettings settings;
    settings.brightness = 0.0; // full light for five times of all lines, which is never reached
    settings.gamma = 1.0;
    const QSize content(480, 240);
    const QImage image = renderWaveform(frame.frame(), settings, content);
    const WaveformGeometry geometry = geometryOf(settings, content);
    QCOMPARE(lightAt(image, geometry.cells().front(), 60, geometry.row(0.0)), 51);
    QVERIFY(lightAt(image, geometry.cells().front(), 60, geometry.row(100.0)) > 0);
}

void tst_WaveformRasteriser::magnifiesAndMoves()
{
    SyntheticFrame frame(1920, 4, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, [](int x, int) { return x < 1800 ? 64 : 502; });
    WaveformSettings settings = single(Component::Y);
    settings.filter = Velmora::WaveformTypes::Filter::Raw;
    settings.view = {16.0, 1.0, 5.0, 0.0}; // the last 120 samples, all above the step
    const QImage image = renderWaveform(frame.frame(), settings, kFull);
    const WaveformGeometry geometry = geometryOf(settings, kFull);
    const QRect cell = geometry.cells().front();
    // 14.4 columns for each sample: none may be dark, not even where no new sample begins.
    for (int column = 0; column < cell.width(); ++column)
        QCOMPARE(lightAt(image, cell, column, geometry.row(50.0)), 255);
}

void tst_WaveformRasteriser::appliesGainsAboutZero()
{
    SyntheticFrame frame(64, 4, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, 283); // 25 %
    frame.fill(1, 512);
    frame.fill(2, 736); // +25 %
    WaveformSettings settings;
    settings.gains = {2.0, 3.0, 2.0, 1.0};
    const QSize content(480, 240);
    const QImage image = renderWaveform(frame.frame(), settings, content);
    const WaveformGeometry geometry = geometryOf(settings, content);
    const std::array<double, 3> levels{50.0, 50.0, 100.0};
    for (std::size_t i = 0; i < levels.size(); ++i)
        QCOMPARE(brightestRow(image, geometry.cells()[i], 10), geometry.row(levels[i]));
}

void tst_WaveformRasteriser::showsASingleLine()
{
    SyntheticFrame frame(64, 8, Sampling::YCbCr420, Depth::Bits10);
    frame.fill(0, [](int, int y) { return 64 + 100 * y; });
    frame.fill(1, [](int, int y) { return 512 + 100 * y; });
    WaveformSettings settings;
    const WaveformGeometry geometry = geometryOf(settings, kFull);
    for (const auto& [wanted, line] : {std::pair(0, 0), std::pair(5, 5), std::pair(7, 7), std::pair(99, 7)}) {
        settings.singleLine = wanted;
        const QImage image = renderWaveform(frame.frame(), settings, kFull);
        const auto read = [&](std::size_t cell) {
            return brightestRow(image, geometry.cells()[cell], 10) + 1;
        };
        QCOMPARE(read(0), geometry.row(line * 10000.0 / 876.0));
        QCOMPARE(read(1), geometry.row(50.0 + line / 2 * 10000.0 / 896.0));
    }
}

void tst_WaveformRasteriser::persists()
{
    SyntheticFrame frame(64, 4, Sampling::YCbCr422, Depth::Bits10);
    frame.fill(0, 502);
    WaveformSettings settings = single(Component::Y);
    settings.attackSeconds = 0.02; // one frame
    settings.decaySeconds = 0.2;
    WaveformRasteriser rasteriser;
    rasteriser.setSettings(settings);
    rasteriser.setContentSize({480, 240});
    QImage image(rasteriser.imageSize(), QImage::Format_ARGB32_Premultiplied);
    const PixelBuffer target{reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
                             image.width()};
    const QRect cell = rasteriser.geometry().cells().front();
    const auto light = [&] { return lightAt(image, cell, 20, rasteriser.geometry().row(50.0)); };

    rasteriser.render(frame.frame(), target);
    QVERIFY(std::abs(light() - 255 * (1.0 - std::exp(-1.0))) <= 1.0);
    for (int i = 0; i < 30; ++i)
        rasteriser.render(frame.frame(), target);
    QCOMPARE(light(), 255);

    frame.fill(0, 64);
    for (int i = 0; i < 10; ++i)
        rasteriser.render(frame.frame(), target);
    QVERIFY(std::abs(light() - 255 * std::exp(-1.0)) <= 2.0);
    // Without a signal the rest glows on until nothing is left.
    QVERIFY(rasteriser.renderLoss(target));
    QVERIFY(light() > 0);
    for (int i = 0; i < 200; ++i)
        rasteriser.renderLoss(target);
    QCOMPARE(light(), 0);
    settings.onVideoLoss = OnVideoLoss::Hold;
    rasteriser.setSettings(settings);
    QVERIFY(!rasteriser.renderLoss(target));
}

void tst_WaveformRasteriser::cellsAreTheSameFromSeveralThreads()
{
    SyntheticFrame frame(320, 180, Sampling::YCbCr422, Depth::Bits10);
    for (std::size_t plane = 0; plane < 3; ++plane)
        frame.fill(plane, [&](int x, int y) { return 64 + (x * 7 + y * 3 + int(plane) * 31) % 800; });
    for (const auto presentation : {Presentation::Parade, Presentation::Stacked, Presentation::Overlay}) {
        WaveformSettings settings;
        settings.presentation = presentation;
        settings.displayMode = DisplayMode::Yrgb;
        settings.decaySeconds = 0.5;
        const QImage expected = renderWaveform(frame.frame(), settings, {960, 510});
        WaveformRasteriser rasteriser;
        rasteriser.setSettings(settings);
        rasteriser.setContentSize({960, 510});
        rasteriser.setParallel(true);
        QImage image(rasteriser.imageSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::red);
        rasteriser.render(frame.frame(),
                          {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
                           image.bytesPerLine() / 4});
        QCOMPARE(image, expected);
    }
}

void tst_WaveformRasteriser::coloursTheTrace()
{
    SyntheticFrame frame(64, 4, Sampling::Rgb444, Depth::Bits10);
    frame.fill(0, 1000); // above 100 %
    frame.fill(1, 502);
    frame.fill(2, 502);
    WaveformSettings settings;
    settings.displayMode = DisplayMode::Rgb;
    settings.presentation = Presentation::Overlay;
    const WaveformGeometry geometry = geometryOf(settings, kFull);
    const auto colours = [&] {
        const QImage image = renderWaveform(frame.frame(), settings, kFull);
        const auto pixel = [&](double percent) { return image.pixel(20, geometry.row(percent)); };
        return std::pair(pixel((1000 - 64) / 8.76), pixel(50.0));
    };
    // Green and blue add up where they meet.
    QCOMPARE(colours(), std::pair(0xFFFF5A50U, 0xFF8FFFFFU));
    settings.colourMode = ColourMode::Monochrome;
    QCOMPARE(colours().first, 0xFFE6E6E6U);
    settings.colourMode = ColourMode::Highlight;
    QCOMPARE(colours(), std::pair(0xFFFF4B3EU, 0xFFFFFFFFU));
}

void tst_WaveformRasteriser::staysWithinOddPictures_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Sampling>("sampling");
    for (const auto& size : {QSize(1, 1), QSize(3, 2), QSize(719, 487), QSize(4097, 3)}) {
        QTest::addRow("%d x %d, 4:2:2", size.width(), size.height()) << size << Sampling::YCbCr422;
        QTest::addRow("%d x %d, 4:2:0", size.width(), size.height()) << size << Sampling::YCbCr420;
        QTest::addRow("%d x %d, RGB", size.width(), size.height()) << size << Sampling::Rgb444;
    }
}

/// Also with codes beyond the depth, with no alpha where it is asked for, and with planes that are missing.
/// Run under the sanitizers this finds reads outside the planes.
void tst_WaveformRasteriser::staysWithinOddPictures()
{
    QFETCH(QSize, size);
    QFETCH(Sampling, sampling);
    SyntheticFrame frame(size.width(), size.height(), sampling, Depth::Bits10);
    for (std::size_t plane = 0; plane < 3; ++plane)
        frame.fill(plane, [](int x, int y) { return (x * 7919 + y * 104729) & 0xFFFF; });
    for (const auto mode : {DisplayMode::YCbCrA, DisplayMode::Rgba}) {
        for (int filter = 0; filter < 4; ++filter) {
            WaveformSettings settings;
            settings.displayMode = mode;
            settings.filter = static_cast<Velmora::WaveformTypes::Filter>(filter);
            settings.view.horizontalMagnification = filter + 1;
            settings.view.horizontalPosition = 1.0;
            const QImage image = renderWaveform(frame.frame(), settings, {960, 510});
            const WaveformGeometry geometry = geometryOf(settings, {960, 510});
            QCOMPARE(brightestRow(image, geometry.cells()[3], 0), -1);
        }
    }
    auto incomplete = frame.frame();
    incomplete.planes[1] = {};
    const QImage image = renderWaveform(incomplete, {}, {960, 510});
    QCOMPARE(brightestRow(image, geometryOf({}, {960, 510}).cells()[1], 0), -1);
    QVERIFY(renderWaveform(frame.frame(), {}, {10, 10}).isNull());
}

WZ_TEST_CLASS(tst_WaveformRasteriser)
#include "tst_WaveformRasteriser.moc"
