#include "instruments/waveform/WaveformDisplay.h"
#include "instruments/waveform/WaveformHorizontalScale.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::WaveformTypes;
using Detail = WaveformGeometry::Detail;
using Range = CodeScale::Range;
using Unit = VerticalScale;

namespace {

struct Size {
    Detail detail;
    double pixelsPerPercent;
};
constexpr Size kSmall{Detail::Small, 2.0};
constexpr Size kMedium{Detail::Medium, 4.0};
constexpr Size kFull{Detail::Full, 8.0};

WaveformScale scaleOf(Unit unit, Size size, int bits = 10, bool colourDifference = false,
                      Range range = Range::Narrow)
{
    return {
        unit,       CodeScale(bits, range, colourDifference), bits, colourDifference, size.pixelsPerPercent,
        size.detail};
}

QString textsOf(const std::vector<WaveformScale::Label>& labels)
{
    QStringList texts;
    for (const auto& label : labels) {
        const QString text = label.text;
        texts << (label.isBold ? text + QLatin1Char('*') : text);
    }
    return texts.join(QLatin1Char(' '));
}

} // namespace

Q_DECLARE_METATYPE(std::optional<WaveformScale>)
Q_DECLARE_METATYPE(NitsScale::Curve)
Q_DECLARE_METATYPE(HorizontalScale)

class tst_WaveformScale : public WzTest {
    Q_OBJECT
private slots:
    void labelsThinOutWithTheSize_data()
    {
        QTest::addColumn<std::optional<WaveformScale>>("scale");
        QTest::addColumn<QString>("texts");
        const auto row = [](const char* name, const WaveformScale& scale, const char* texts) {
            QTest::newRow(name) << std::optional(scale) << QString::fromUtf8(texts);
        };
        row("percent, small", scaleOf(Unit::Percent, kSmall), "0* 20 40 60 80 100*");
        row("percent, medium", scaleOf(Unit::Percent, kMedium), "−7 0* 10 20 30 40 50 60 70 80 90 100* 109");
        row("percent, full", scaleOf(Unit::Percent, kFull), "−7 0* 10 20 30 40 50 60 70 80 90 100* 109");
        row("CbCr, small", scaleOf(Unit::Percent, kSmall, 10, true), "−50* −20 0* +20 +50*");
        row("CbCr, medium", scaleOf(Unit::Percent, kMedium, 10, true),
            "−50* −40 −30 −20 −10 0* +10 +20 +30 +40 +50*");
        row("mV, small", scaleOf(Unit::Millivolts, kSmall), "0* 100 200 300 400 500 600 700*");
        row("mV, full", scaleOf(Unit::Millivolts, kFull),
            "−48 0* 50 100 150 200 250 300 350 400 450 500 550 600 650 700* 763");
        row("mV of CbCr", scaleOf(Unit::Millivolts, kMedium, 10, true),
            "−350* −300 −250 −200 −150 −100 −50 0* +50 +100 +150 +200 +250 +300 +350*");
        row("decimal, 10 bits", scaleOf(Unit::Decimal, kMedium),
            "4 64* 200 300 400 500 600 700 800 900 940* 1019");
        row("decimal, 8 bits", scaleOf(Unit::Decimal, kMedium, 8),
            "1 16* 40 60 80 100 120 140 160 180 200 220 235* 254");
        row("decimal, 12 bits", scaleOf(Unit::Decimal, kMedium, 12),
            "16 256* 500 1000 1500 2000 2500 3000 3500 3760* 4079");
        row("hexadecimal, 10 bits", scaleOf(Unit::Hex, kMedium),
            "4 40* 80 C0 100 140 180 1C0 200 240 280 2C0 300 340 380 3AC* 3FB");
        row("hexadecimal, 8 bits", scaleOf(Unit::Hex, kMedium, 8),
            "1 10* 20 30 40 50 60 70 80 90 A0 B0 C0 D0 E0 EB* FE");
        row("hexadecimal, 12 bits, small", scaleOf(Unit::Hex, kSmall, 12), "100* 400 600 800 A00 C00 EB0*");
        row("hexadecimal of CbCr", scaleOf(Unit::Hex, kSmall, 10, true), "40* 100 180 200* 280 300 3C0*");
        row("RP 2077", scaleOf(Unit::Decimal, kMedium, 10, false, Range::FullRp2077),
            "4* 100 200 300 400 500 600 700 800 900 1019*");
        row("SDI protected", scaleOf(Unit::Decimal, kMedium, 10, false, Range::FullSdiProtected),
            "0* 100 200 300 400 500 600 700 800 900 1023*");
        row("too small", scaleOf(Unit::Percent, {Detail::Small, 0.0}), "");
    }
    void labelsThinOutWithTheSize()
    {
        QFETCH(std::optional<WaveformScale>, scale);
        QTEST(textsOf(scale->labels()), "texts");
    }

    void labelsStandAtTheirLevels()
    {
        for (const Unit unit : {Unit::Percent, Unit::Hex, Unit::Decimal, Unit::Millivolts}) {
            for (const bool isCbCr : {false, true}) {
                const CodeScale codes(12, Range::Narrow, isCbCr);
                const WaveformScale scale = scaleOf(unit, kFull, 12, isCbCr);
                for (const auto& label : scale.labels()) {
                    const QString text = QString(label.text).replace(QChar(0x2212), QLatin1Char('-'));
                    const double level = unit == Unit::Hex ? codes.percent(text.toInt(nullptr, 16))
                        : unit == Unit::Decimal            ? codes.percent(text.toInt())
                        : unit == Unit::Millivolts         ? text.toDouble() / 7.0 + (isCbCr ? 50.0 : 0.0)
                                                           : text.toDouble() + (isCbCr ? 50.0 : 0.0);
                    const double tolerance = label.isLimit ? 0.2 : 1e-9;
                    QVERIFY2(std::abs(level - label.percent) < tolerance, qPrintable(label.text));
                }
            }
        }
    }

    void magnifiedScalesAreFiner()
    {
        const auto lines = scaleOf(Unit::Percent, {Detail::Medium, 64.0}).lines();
        QCOMPARE(lines.at(1) - lines.at(0), 0.5);
        QCOMPARE(scaleOf(Unit::Percent, {Detail::Medium, 64.0}).readingOf(lines.at(1)),
                 QStringLiteral("0.5 %"));
    }

    void lightIsLabelledWhereItIs_data()
    {
        QTest::addColumn<NitsScale::Curve>("curve");
        QTest::addColumn<double>("pixelsPerPercent");
        QTest::addColumn<QString>("texts");
        using Curve = NitsScale::Curve;
        QTest::newRow("HLG, full") << Curve::Hlg << 8.0
                                   << QStringLiteral("0* 1 5 10 20 50 100 203* 300 400 600 800 1000* 1800");
        QTest::newRow("HLG, small") << Curve::Hlg << 2.0 << QStringLiteral("0* 10 50 100 203* 1k*");
        QTest::newRow("PQ, full") << Curve::Pq << 8.0
                                  << QStringLiteral(
                                         "0* 0.1 1 5 10 20 50 100 203* 400 600 1000 2000 4000 10000*");
        QTest::newRow("S-Log3, full")
            << Curve::SLog3 << 8.0 << QStringLiteral("0* 20 50 100 203* 400 1000 2000 4000");
    }
    void lightIsLabelledWhereItIs()
    {
        QFETCH(NitsScale::Curve, curve);
        QFETCH(double, pixelsPerPercent);
        const NitsScale nits(curve);
        const Detail detail = pixelsPerPercent > 4.0 ? Detail::Full : Detail::Small;
        const auto labels = WaveformScale::nitsLabels(nits, pixelsPerPercent, detail);
        QTEST(textsOf(labels), "texts");
        for (const auto& label : labels) {
            const double light =
                QString(label.text).replace(QLatin1Char('k'), QLatin1String("000")).toDouble();
            QVERIFY(std::abs(nits.nits(label.percent) - light) < 1e-3 * light + 1e-9);
        }
    }

    /// What is not as the graticule says is told in its cell.
    void cellsTellOfGainsAndOfWhatIsMissing()
    {
        WaveformDisplay display;
        display.content = {960, 510};
        display.channels = channelsOf(DisplayMode::YCbCrA, {});
        display.gains[1] = 2.5;
        const auto notes = [&display](int cell) { return display.notesOf(cell).join(QLatin1Char(',')); };
        QCOMPARE(notes(0), QString());
        QCOMPARE(notes(1), QStringLiteral("Cb \u00D72.50"));
        QCOMPARE(notes(3), QString()); // nothing is known of a signal that is not there
        display.signal = WaveformSignal::ofSdiStandard({QStringLiteral("false"), QStringLiteral("89CA0001")});
        QVERIFY(display.signal.isPresent);
        QCOMPARE(notes(3), QStringLiteral("No A in the signal"));
        display.presentation = Presentation::Overlay;
        QCOMPARE(notes(0), QStringLiteral("Cb \u00D72.50,No A in the signal"));
        display.signal.hasAlpha = true;
        QCOMPARE(notes(0), QStringLiteral("Cb \u00D72.50"));
    }

    void marksOfTheLine_data()
    {
        QTest::addColumn<HorizontalScale>("scale");
        QTest::addColumn<int>("channels");
        QTest::addColumn<double>("magnification");
        QTest::addColumn<QString>("texts");
        QTest::newRow("percent") << HorizontalScale::PercentOfLine << 3 << 1.0
                                 << QStringLiteral("0 25 50 75 100");
        QTest::newRow("one wide cell") << HorizontalScale::PercentOfLine << 1 << 1.0
                                       << QStringLiteral("0 10 20 30 40 50 60 70 80 90 100");
        QTest::newRow("pixels") << HorizontalScale::Pixels << 3 << 1.0
                                << QStringLiteral("0 480 960 1440 1919");
        QTest::newRow("magnified") << HorizontalScale::PercentOfLine << 3 << 4.0
                                   << QStringLiteral("0 5 10 15 20");
    }
    void marksOfTheLine()
    {
        QFETCH(HorizontalScale, scale);
        QFETCH(int, channels);
        QFETCH(double, magnification);
        WaveformDisplay display;
        display.content = {1920, 1050};
        display.horizontalScale = scale;
        display.view.horizontalMagnification = magnification;
        display.channels.resize(static_cast<std::size_t>(channels));
        const auto geometry = display.geometry();
        QStringList texts;
        for (const auto& mark : WaveformHorizontalScale::marks(display, geometry)) {
            QVERIFY(mark.column >= 0 && mark.column < geometry.cells().front().width());
            texts << mark.text;
        }
        QTEST(texts.join(QLatin1Char(' ')), "texts");
    }
};

WZ_TEST_CLASS(tst_WaveformScale)
#include "tst_WaveformScale.moc"
