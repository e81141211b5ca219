#include "types/waveform/CodeScale.h"
#include "types/waveform/WaveformGeometry.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::WaveformTypes;

Q_DECLARE_METATYPE(Velmora::WaveformTypes::CodeScale::Range)
Q_DECLARE_METATYPE(Velmora::WaveformTypes::Presentation)

class tst_WaveformGeometry : public WzTest {
    Q_OBJECT

private slots:
    void standsWhereTheDrawingsHaveIt_data();
    void standsWhereTheDrawingsHaveIt();
    void fitsEveryCellOfTheScreenGrid_data();
    void fitsEveryCellOfTheScreenGrid();
    void magnifies();
    void turnsCodesIntoPercent_data();
    void turnsCodesIntoPercent();
};

void tst_WaveformGeometry::standsWhereTheDrawingsHaveIt_data()
{
    QTest::addColumn<QSize>("content");
    QTest::addColumn<int>("rowOfZero"); // in the content
    QTest::addColumn<int>("rowOfHundred");
    QTest::addColumn<int>("rowOfLowest");
    QTest::addColumn<int>("firstX");
    QTest::addColumn<int>("secondX");
    QTest::addColumn<int>("cellWidth");
    QTest::newRow("480 x 270") << QSize(480, 240) << 222 << 22 << 239 << 44 << 180 << 120;
    QTest::newRow("960 x 540") << QSize(960, 510) << 450 << 50 << 484 << 56 << 344 << 272;
    QTest::newRow("1920 x 1080") << QSize(1920, 1050) << 918 << 118 << 986 << 96 << 680 << 560;
}

void tst_WaveformGeometry::standsWhereTheDrawingsHaveIt()
{
    QFETCH(QSize, content);
    QFETCH(int, rowOfZero);
    const WaveformGeometry geometry(content, Presentation::Parade, 3);
    const QPoint origin = geometry.imageRect().topLeft();
    QCOMPARE(geometry.row(0.0) + origin.y(), rowOfZero);
    QTEST(geometry.row(100.0) + origin.y(), "rowOfHundred");
    QTEST(geometry.imageRect().bottom(), "rowOfLowest");
    QTEST(geometry.cells().front().x() + origin.x(), "firstX");
    QTEST(geometry.cells()[1].x() + origin.x(), "secondX");
    QTEST(geometry.cells().back().width(), "cellWidth");
    QCOMPARE(geometry.cells().front().height(), geometry.imageRect().height());
}

void tst_WaveformGeometry::fitsEveryCellOfTheScreenGrid_data()
{
    QTest::addColumn<Presentation>("presentation");
    QTest::newRow("parade") << Presentation::Parade;
    QTest::newRow("stacked") << Presentation::Stacked;
    QTest::newRow("overlay") << Presentation::Overlay;
}

void tst_WaveformGeometry::fitsEveryCellOfTheScreenGrid()
{
    QFETCH(Presentation, presentation);
    for (int width = 480; width <= 1920; width += 480) {
        for (int height = 270; height <= 1080; height += 270) {
            for (int channels = 1; channels <= 4; ++channels) {
                const QSize content(width, height - 30);
                const WaveformGeometry geometry(content, presentation, channels, width == 1440);
                QVERIFY(QRect(QPoint(0, 0), content).contains(geometry.imageRect()));
                QCOMPARE(static_cast<int>(geometry.cells().size()),
                         presentation == Presentation::Overlay ? 1 : channels);
                const QRect image(QPoint(0, 0), geometry.imageRect().size());
                for (const QRect& cell : geometry.cells()) {
                    QVERIFY(image.contains(cell));
                    QVERIFY(geometry.row(110.0) >= 0 && geometry.row(-8.0) < cell.height());
                }
                // Tens are exact, and so is the way back.
                const int tenPercent = geometry.row(0.0) - geometry.row(10.0);
                for (int ten = 0; ten <= 10; ++ten) {
                    QCOMPARE(geometry.row(10.0 * ten), geometry.row(0.0) - ten * tenPercent);
                    QCOMPARE(geometry.percent(geometry.row(10.0 * ten)), 10.0 * ten);
                }
            }
        }
    }
    QVERIFY(WaveformGeometry({480, 100}, presentation, 3).cells().empty());
    QVERIFY(WaveformGeometry({80, 240}, presentation, 3).cells().empty());
}

void tst_WaveformGeometry::magnifies()
{
    const WaveformView view{4.0, 1.0, 10.0, 25.0};
    const WaveformGeometry plain({960, 510}, Presentation::Overlay, 3);
    const WaveformGeometry geometry({960, 510}, Presentation::Overlay, 3, false, view);
    // The level 25 % above 50 % stands where 50 % was, and each percent takes ten times the rows.
    QCOMPARE(geometry.row(75.0), plain.row(50.0));
    QCOMPARE(geometry.row(74.0), plain.row(50.0) + 40);
    // The last quarter of the line.
    QCOMPARE(geometry.linePosition(0), 0.75);
    QCOMPARE(geometry.column(0.75), 0);
    QCOMPARE(geometry.column(0.875), geometry.cells().front().width() / 2);
    QVERIFY(geometry.column(0.7) < 0);
    QVERIFY(geometry.row(-1e300) > geometry.row(-10.0));
}

void tst_WaveformGeometry::turnsCodesIntoPercent_data()
{
    using Range = CodeScale::Range;
    QTest::addColumn<int>("bits");
    QTest::addColumn<Range>("range");
    QTest::addColumn<bool>("colourDifference");
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("percent");
    QTest::newRow("8 bit black") << 8 << Range::Narrow << false << 16 << 0.0;
    QTest::newRow("8 bit white") << 8 << Range::Narrow << false << 235 << 100.0;
    QTest::newRow("10 bit white") << 10 << Range::Narrow << false << 940 << 100.0;
    QTest::newRow("10 bit greatest") << 10 << Range::Narrow << false << 1019 << 95500.0 / 876.0;
    QTest::newRow("12 bit half") << 12 << Range::Narrow << false << 2008 << 50.0;
    QTest::newRow("10 bit no colour") << 10 << Range::Narrow << true << 512 << 50.0;
    QTest::newRow("10 bit -50") << 10 << Range::Narrow << true << 64 << 0.0;
    QTest::newRow("12 bit +50") << 12 << Range::Narrow << true << 3840 << 100.0;
    QTest::newRow("RP 2077, 0 %") << 10 << Range::FullRp2077 << false << 4 << 0.0;
    QTest::newRow("RP 2077, 100 %") << 10 << Range::FullRp2077 << false << 1019 << 100.0;
    QTest::newRow("RP 2077, 12 bit") << 12 << Range::FullRp2077 << false << 4079 << 100.0;
    QTest::newRow("protected, 100 %") << 10 << Range::FullSdiProtected << false << 1023 << 100.0;
    QTest::newRow("protected, no colour") << 10 << Range::FullSdiProtected << true << 512 << 50.0;
}

void tst_WaveformGeometry::turnsCodesIntoPercent()
{
    QFETCH(int, bits);
    QFETCH(CodeScale::Range, range);
    QFETCH(bool, colourDifference);
    QFETCH(int, code);
    QFETCH(double, percent);
    const CodeScale scale(bits, range, colourDifference);
    QVERIFY(qAbs(scale.percent(code) - percent) < 1e-9);
    QVERIFY(qAbs(scale.code(percent) - code) < 1e-9);
}

WZ_TEST_CLASS(tst_WaveformGeometry)
#include "tst_WaveformGeometry.moc"
