#include "instruments/waveform/CursorReadOut.h"
#include "instruments/waveform/MeasurementCursorLabels.h"
#include "instruments/waveform/MeasurementCursors.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <limits>
#include <optional>

using namespace Velmora::WaveformTypes;
using Axis = MeasurementCursors::Axis;
using Cursor = MeasurementCursors::Cursor;
using XMode = MeasurementCursorLabels::XScaleMode;
using YMode = MeasurementCursorLabels::YScaleMode;
using Curve = NitsScale::Curve;
using Range = CodeScale::Range;

namespace {

/// 1080p50.
constexpr MeasurementCursorLabels::Line kLine{1920, 148.5e6};

MeasurementCursorLabels labelsFor(int bits = 10, Curve curve = Curve::SdrTv, Range range = Range::Narrow,
                                  MeasurementCursorLabels::Line line = kLine)
{
    return {line, CodeScale(bits, range, false), NitsScale(curve)};
}

} // namespace

Q_DECLARE_METATYPE(std::optional<MeasurementCursorLabels>)
Q_DECLARE_METATYPE(XMode)
Q_DECLARE_METATYPE(YMode)

class tst_MeasurementCursors : public WzTest {
    Q_OBJECT
private slots:
    void xLabels_data()
    {
        QTest::addColumn<XMode>("mode");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("label");
        const auto row = [](XMode mode, int position, const char* label) {
            QTest::addRow("%d at %d", int(mode), position) << mode << position << QString::fromLatin1(label);
        };
        row(XMode::Percent, 0, "0.0%");
        row(XMode::Percent, 33333, "33.3%");
        row(XMode::Percent, 100000, "100.0%");
        row(XMode::Percent, -49, "0.0%");
        row(XMode::Time, 0, "0.000us");
        row(XMode::Time, 50000, "6.465us");
        row(XMode::Time, 100000, "12.929us");
        row(XMode::Pixels, 0, "0Pix");
        row(XMode::Pixels, 50000, "960Pix");
        row(XMode::Pixels, 26, "0Pix");
        row(XMode::Pixels, 27, "1Pix");
        row(XMode::Frequency, 0, "0.000kHz");
        row(XMode::Frequency, 100000, "77.344kHz");
        row(XMode::Frequency, 1000, "7734.375kHz");
    }
    void xLabels()
    {
        QFETCH(XMode, mode);
        QFETCH(int, position);
        QTEST(labelsFor().getMeasurementCursorXLabel(mode, position), "label");
    }

    void timeFollowsTheLine_data()
    {
        QTest::addColumn<int>("pixels");
        QTest::addColumn<double>("sampleRate");
        QTest::addColumn<QString>("label");
        QTest::newRow("625i") << 720 << 13.5e6 << QStringLiteral("53.333us");
        QTest::newRow("720p50") << 1280 << 74.25e6 << QStringLiteral("17.239us");
        QTest::newRow("1080p59.94") << 1920 << 148.5e6 / 1.001 << QStringLiteral("12.942us");
        QTest::newRow("2160p50") << 3840 << 594e6 << QStringLiteral("6.465us");
        QTest::newRow("no clock") << 1920 << 0.0 << QStringLiteral("0.000us");
    }
    void timeFollowsTheLine()
    {
        QFETCH(int, pixels);
        QFETCH(double, sampleRate);
        const auto labels = labelsFor(10, Curve::SdrTv, Range::Narrow, {pixels, sampleRate});
        QTEST(labels.getMeasurementCursorXLabel(XMode::Time, 100000), "label");
    }

    void yLabels_data()
    {
        QTest::addColumn<std::optional<MeasurementCursorLabels>>("labels");
        QTest::addColumn<YMode>("mode");
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("label");
        const auto row = [](const MeasurementCursorLabels& labels, YMode mode, int level, const char* label) {
            QTest::addRow("%s", label)
                << std::optional(labels) << mode << level << QString::fromLatin1(label);
        };
        const auto sdr = labelsFor();
        row(sdr, YMode::Percent, 100000, "100.0%");
        row(sdr, YMode::Percent, 75000, "75.0%");
        row(sdr, YMode::Percent, -6849, "-6.8%");
        row(sdr, YMode::Percent, -49, "0.0%");
        row(sdr, YMode::Millivolts, 100000, "700mV");
        row(sdr, YMode::Millivolts, 109020, "763mV");
        row(sdr, YMode::Millivolts, -5000, "-35mV");
        row(sdr, YMode::Millivolts, -71, "0mV");
        row(sdr, YMode::Decimal, 0, "64[DEC]");
        row(sdr, YMode::Decimal, 75000, "721[DEC]");
        row(sdr, YMode::Decimal, 100000, "940[DEC]");
        row(sdr, YMode::Hex, 100000, "3AC[HEX]");
        row(sdr, YMode::Hex, -6850, "4[HEX]");
        row(labelsFor(8), YMode::Hex, 100000, "EB[HEX]");
        row(labelsFor(8), YMode::Decimal, 0, "16[DEC]");
        row(labelsFor(12), YMode::Hex, 75000, "B44[HEX]");
        row(labelsFor(12), YMode::Decimal, 100000, "3760[DEC]");
        row(labelsFor(10, Curve::Pq, Range::FullRp2077), YMode::Decimal, 58070, "593[DEC]");
        row(labelsFor(10, Curve::Pq, Range::FullSdiProtected), YMode::Decimal, 100000, "1023[DEC]");
        row(sdr, YMode::Nits, 100000, "100Nits");
        row(labelsFor(10, Curve::Hlg), YMode::Nits, 75000, "203Nits");
        row(labelsFor(10, Curve::Hlg), YMode::Nits, 100000, "1000Nits");
        row(labelsFor(10, Curve::Pq), YMode::Nits, 15000, "1.00Nits");
        row(labelsFor(10, Curve::Pq), YMode::Nits, 100000, "10000Nits");
        row(labelsFor(10, Curve::SLog3), YMode::Nits, 40640, "20.0Nits");
        row(sdr, YMode::PercentRelative, 25000, "25.0%[REF]");
    }
    void yLabels()
    {
        QFETCH(std::optional<MeasurementCursorLabels>, labels);
        QFETCH(YMode, mode);
        QFETCH(int, level);
        QTEST(labels->getMeasurementCursorYLabel(mode, level), "label");
    }

    void percentsOfAReference()
    {
        auto labels = labelsFor();
        labels.setPercentReference(20000);
        QCOMPARE(labels.getMeasurementCursorYLabel(YMode::PercentRelative, 20000),
                 QStringLiteral("0.0%[REF]"));
        QCOMPARE(labels.getMeasurementCursorYLabel(YMode::PercentRelative, 60000),
                 QStringLiteral("50.0%[REF]"));
        QCOMPARE(labels.getMeasurementCursorYLabel(YMode::PercentRelative, 0), QStringLiteral("-25.0%[REF]"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::PercentRelative, 20000, 40000),
                 QStringLiteral("25.0%[REF]"));
        labels.setPercentReference(100000);
        QCOMPARE(labels.getMeasurementCursorYLabel(YMode::PercentRelative, 100000), QStringLiteral("INF"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::PercentRelative, 0, 1), QStringLiteral("INF"));
    }

    void differences()
    {
        const auto labels = labelsFor(10, Curve::Hlg);
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Percent, 50000, 85000),
                 QStringLiteral("35.0%"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Percent, 85000, 50000),
                 QStringLiteral("-35.0%"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Millivolts, 0, 100000),
                 QStringLiteral("700mV"));
        // 809 and 502, as both cursors read.
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Decimal, 50000, 85000),
                 QStringLiteral("307[DEC]"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Hex, 50000, 85000), QStringLiteral("133[HEX]"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Hex, 85000, 50000),
                 QStringLiteral("-133[HEX]"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Nits, 75000, 100000),
                 QStringLiteral("797Nits"));
        QCOMPARE(labels.getMeasurementCursorYDiffLabel(YMode::Nits, 75000, 75000), QStringLiteral("0Nits"));
        QCOMPARE(labels.getMeasurementCursorXDiffLabel(XMode::Pixels, 0, 50000), QStringLiteral("960Pix"));
        QCOMPARE(labels.getMeasurementCursorXDiffLabel(XMode::Time, 50000, 0), QStringLiteral("-6.465us"));
        QCOMPARE(labels.getMeasurementCursorXDiffLabel(XMode::Frequency, 50000, 50000),
                 QStringLiteral("0.000kHz"));
        QCOMPARE(labels.getMeasurementCursorXDiffLabel(XMode::Frequency, 50000, 0),
                 QStringLiteral("154.688kHz"));
    }

    void noZeroHasASign_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("corrected");
        QTest::newRow("with decimals") << QStringLiteral("-0.0") << QStringLiteral("0.0");
        QTest::newRow("whole") << QStringLiteral("-0") << QStringLiteral("0");
        QTest::newRow("many decimals") << QStringLiteral("-0.000") << QStringLiteral("0.000");
        QTest::newRow("no zero") << QStringLiteral("-0.1") << QStringLiteral("-0.1");
        QTest::newRow("positive") << QStringLiteral("0.0") << QStringLiteral("0.0");
        QTest::newRow("ten") << QStringLiteral("-10.0") << QStringLiteral("-10.0");
    }
    void noZeroHasASign()
    {
        QFETCH(QString, number);
        QTEST(MeasurementCursorLabels::correctZeroRounding(number), "corrected");
    }

    void linkedCursorsKeepTheirDistance()
    {
        MeasurementCursors cursors;
        cursors.moveTo(Axis::Y, Cursor::Reference, 20000);
        cursors.moveTo(Axis::Y, Cursor::Delta, 80000);
        cursors.setLinked(true);
        cursors.moveTo(Axis::Y, Cursor::Reference, 30000);
        QCOMPARE(cursors.position(Axis::Y, Cursor::Delta), 90000);
        // Both stop where the upper one has to.
        cursors.moveTo(Axis::Y, Cursor::Reference, 90000);
        QCOMPARE(cursors.position(Axis::Y, Cursor::Delta), MeasurementCursors::most(Axis::Y));
        QCOMPARE(cursors.differential(Axis::Y), 60000);
        cursors.moveTo(Axis::Y, Cursor::Delta, -100000);
        QCOMPARE(cursors.position(Axis::Y, Cursor::Reference), MeasurementCursors::least(Axis::Y));
        QCOMPARE(cursors.differential(Axis::Y), 60000);
        // The other pair is another matter.
        QCOMPARE(cursors.differential(Axis::X), 50000);
    }

    void positionsStayWithinTheScale()
    {
        MeasurementCursors cursors;
        cursors.moveTo(Axis::X, Cursor::Reference, -5);
        QCOMPARE(cursors.position(Axis::X, Cursor::Reference), 0);
        cursors.moveTo(Axis::X, Cursor::Delta, std::numeric_limits<int>::max());
        QCOMPARE(cursors.position(Axis::X, Cursor::Delta), 100000);
        cursors.setDifferential(Axis::X, std::numeric_limits<int>::min());
        QCOMPARE(cursors.differential(Axis::X), 0);
        cursors.setDifferential(Axis::X, 40000);
        QCOMPARE(cursors.position(Axis::X, Cursor::Delta), 40000);
    }

    void theTableOfFigures()
    {
        MeasurementCursors cursors;
        const auto labels = labelsFor(10, Curve::Hlg);
        QVERIFY(CursorReadOut::of(cursors, labels, {}, {}, true, 3).rows.empty());
        cursors.setShown(MeasurementCursors::Shown::Single);
        auto readOut = CursorReadOut::of(cursors, labels, {}, YMode::Hex, true, 3);
        QCOMPARE(int(readOut.rows.size()), 1);
        QCOMPARE(readOut.rows.front().values,
                 QStringList({QStringLiteral("40[HEX]"), QStringLiteral("0.0%"), QStringLiteral("64[DEC]")}));
        cursors.setShown(MeasurementCursors::Shown::Both);
        readOut = CursorReadOut::of(cursors, labels, {}, YMode::Percent, true, 3);
        QCOMPARE(int(readOut.rows.size()), 3);
        QCOMPARE(
            readOut.rows.back().values,
            QStringList({QStringLiteral("100.0%"), QStringLiteral("876[DEC]"), QStringLiteral("1000Nits")}));
        QCOMPARE(CursorReadOut::of(cursors, labels, {}, YMode::Nits, true, 1).headings,
                 QStringList{QStringLiteral("Nits")});
    }
};

WZ_TEST_CLASS(tst_MeasurementCursors)
#include "tst_MeasurementCursors.moc"
