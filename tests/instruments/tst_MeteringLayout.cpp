#include "instruments/audiometering/MeterFigures.h"
#include "instruments/audiometering/MeteringLayout.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <limits>

using Type = MeterScale::Type;
using Ticks = std::vector<double>;

Q_DECLARE_METATYPE(Ticks)

namespace {

constexpr auto kLeft = PairLayout::Left;
constexpr auto kRight = PairLayout::Right;

/// Contents of windows of 480 x 270, 960 x 540 and 1920 x 1080.
constexpr QSize kSixteenth(476, 238);
constexpr QSize kQuarter(956, 508);
constexpr QSize kFull(1916, 1048);

MeteringLayout layoutFor(const QSize& content, int pairs, int buttonRows = 0)
{
    return MeteringLayout::forContent(content, pairs, *MeterScale::of(Type::DbFs), buttonRows);
}

} // namespace

class tst_MeteringLayout : public WzTest {
    Q_OBJECT

private slots:
    void ticksOfScales_data()
    {
        QTest::addColumn<Type>("type");
        QTest::addColumn<Ticks>("major");
        QTest::addColumn<int>("minorCount");
        QTest::addColumn<double>("firstMinor");
        QTest::addColumn<double>("lastMinor");
        const Ticks dbu{-45, -36, -27, -18, -9, 0, 9, 18};
        QTest::newRow("dBFS") << Type::DbFs << Ticks{-63, -54, -45, -36, -27, -18, -9, 0} << 16 << -69.0
                              << -3.0;
        QTest::newRow("dBu -18") << Type::DbuMinus18DbFs << dbu << 16 << -51.0 << 15.0;
        QTest::newRow("dBu -20") << Type::DbuMinus20DbFs << dbu << 15 << -48.0 << 15.0;
        QTest::newRow("BBC") << Type::Bbc << Ticks{0, 1, 2, 3, 4, 5, 6, 7} << 21 << 0.25 << 6.75;
        QTest::newRow("NordicN9") << Type::NordicN9 << Ticks{-36, -30, -24, -18, -12, -6, 0, 6} << 8 << -33.0
                                  << 9.0;
        QTest::newRow("DIN45406") << Type::Din45406 << Ticks{-50, -40, -30, -20, -10, 0} << 6 << -45.0 << 5.0;
    }
    void ticksOfScales()
    {
        QFETCH(Type, type);
        const MeterScale& scale = *MeterScale::of(type);
        QTEST(scale.majorTicks(), "major");
        const Ticks minor = scale.minorTicks();
        QTEST(static_cast<int>(minor.size()), "minorCount");
        QTEST(minor.front(), "firstMinor");
        QTEST(minor.back(), "lastMinor");
    }

    void onlySixScales() { QVERIFY(!MeterScale::of(static_cast<Type>(6))); }

    void levelsOnScales_data()
    {
        QTest::addColumn<Type>("type");
        QTest::addColumn<double>("alignment"); // -18 dBFS
        QTest::addColumn<double>("fullScale");
        QTest::newRow("dBFS") << Type::DbFs << -18.0 << 0.0;
        QTest::newRow("dBu -18") << Type::DbuMinus18DbFs << 0.0 << 18.0;
        QTest::newRow("dBu -20") << Type::DbuMinus20DbFs << 2.0 << 20.0;
        QTest::newRow("BBC") << Type::Bbc << 4.0 << 8.5;
        QTest::newRow("NordicN9") << Type::NordicN9 << 0.0 << 18.0;
        QTest::newRow("DIN45406") << Type::Din45406 << -9.0 << 9.0;
    }
    void levelsOnScales()
    {
        QFETCH(Type, type);
        QTEST(MeterScale::of(type)->fromDbfs(-18), "alignment");
        QTEST(MeterScale::of(type)->fromDbfs(0), "fullScale");
    }

    void labelsThinOut_data()
    {
        QTest::addColumn<Type>("type");
        QTest::addColumn<int>("pixelsPerStep");
        QTest::addColumn<Ticks>("labelled");
        QTest::addColumn<bool>("minorTicks");
        QTest::newRow("dBFS small") << Type::DbFs << 2 << Ticks{-54, -36, -18, 0} << false;
        QTest::newRow("dBFS") << Type::DbFs << 5 << Ticks{-63, -54, -45, -36, -27, -18, -9, 0} << true;
        QTest::newRow("BBC small") << Type::Bbc << 5 << Ticks{0, 2, 4, 6} << false;
        QTest::newRow("DIN tiny") << Type::Din45406 << 1 << Ticks{-40, 0} << false;
    }
    void labelsThinOut()
    {
        QFETCH(Type, type);
        QFETCH(int, pixelsPerStep);
        const FixedScale scale(*MeterScale::of(type), 0, pixelsPerStep);
        QTEST(scale.labelledTicks(36), "labelled");
        QTEST(scale.showsMinorTicks(), "minorTicks");
    }

    void rowsOfReadings_data()
    {
        QTest::addColumn<double>("reading");
        QTest::addColumn<int>("row");
        QTest::newRow("full scale") << 0.0 << 124;
        QTest::newRow("beyond") << 6.0 << 124;
        QTest::newRow("-14.6") << -14.6 << 197;
        QTest::newRow("alignment") << -18.0 << 214;
        QTest::newRow("lowest") << -70.0 << 474;
        QTest::newRow("below") << -99.0 << 474;
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 474;
        QTest::newRow("silence") << -std::numeric_limits<double>::infinity() << 474;
    }
    void rowsOfReadings()
    {
        QFETCH(double, reading);
        QTEST(layoutFor(kQuarter, 8).pair.scale.rowOf(reading), "row");
    }

    void measures_data()
    {
        QTest::addColumn<QSize>("content");
        QTest::addColumn<int>("pairs");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QRect>("first"); // in the content
        QTest::addColumn<QRect>("second");
        QTest::newRow("sixteenth, 8")
            << kSixteenth << 8 << 1 << QRect(52, 72, 18, 140) << QRect(74, 72, 18, 140);
        QTest::newRow("sixteenth, 32")
            << kSixteenth << 32 << 1 << QRect(53, 72, 4, 140) << QRect(58, 72, 4, 140);
        QTest::newRow("quarter, 1") << kQuarter << 1 << 1 << QRect(409, 124, 60, 350)
                                    << QRect(487, 124, 60, 350);
        QTest::newRow("quarter, 8") << kQuarter << 8 << 1 << QRect(81, 124, 30, 350)
                                    << QRect(117, 124, 30, 350);
        QTest::newRow("quarter, 16") << kQuarter << 16 << 1 << QRect(68, 122, 18, 350)
                                     << QRect(90, 122, 18, 350);
        QTest::newRow("quarter, 32") << kQuarter << 32 << 2 << QRect(54, 72, 18, 140)
                                     << QRect(76, 72, 18, 140);
        QTest::newRow("full, 8") << kFull << 8 << 1 << QRect(123, 168, 66, 840) << QRect(201, 168, 66, 840);
        QTest::newRow("full, 16") << kFull << 16 << 1 << QRect(85, 124, 30, 840) << QRect(121, 124, 30, 840);
        QTest::newRow("full, 32") << kFull << 32 << 2 << QRect(85, 124, 30, 350) << QRect(121, 124, 30, 350);
    }
    void measures()
    {
        QFETCH(QSize, content);
        QFETCH(int, pairs);
        const MeteringLayout layout = layoutFor(content, pairs);
        QTEST(layout.rows, "rows");
        const QPoint cell = layout.cell(0, pairs).topLeft();
        QTEST(layout.layoutOf(0, pairs).bar(kLeft).translated(cell), "first");
        QTEST(layout.layoutOf(0, pairs).bar(kRight).translated(cell), "second");
    }

    /// Also in windows that are smaller than any that is offered, and with buttons.
    void everythingStandsBesideEachOther_data()
    {
        QTest::addColumn<QSize>("content");
        QTest::addColumn<int>("pairs");
        QTest::addColumn<int>("buttonRows");
        for (const QSize size : {kSixteenth, kQuarter, kFull, QSize(956, 238), QSize(300, 150)}) {
            for (const int pairs : {1, 2, 5, 8, 16, 31, 32})
                QTest::addRow("%d x %d, %d", size.width(), size.height(), pairs)
                    << size << pairs << (pairs % 2 == 0 ? 0 : 4);
        }
    }
    void everythingStandsBesideEachOther()
    {
        QFETCH(QSize, content);
        QFETCH(int, pairs);
        QFETCH(int, buttonRows);
        const MeteringLayout layout = layoutFor(content, pairs, buttonRows);
        QRegion taken;
        for (int i = 0; i < pairs; ++i) {
            const QRect cell = layout.cell(i, pairs);
            QVERIFY(QRect(QPoint(), content).contains(cell));
            QVERIFY(!taken.intersects(cell));
            taken += cell;
            const PairLayout pair = layout.layoutOf(i, pairs);
            const QRect room(QPoint(), cell.size());
            QVERIFY(content.height() < 200 || room.contains(pair.bars()));
            QVERIFY(!pair.bar(kLeft).intersects(pair.bar(kRight)));
            QVERIFY(!pair.litClipLamp(kLeft, 41).intersects(pair.litClipLamp(kRight, 41)));
            QVERIFY(pair.field().contains(pair.phaseTrack()));
            if (pair.levelBaseline > 0)
                QVERIFY(room.contains(pair.levelArea(kLeft) | pair.levelArea(kRight))
                        && !pair.levelArea(kLeft).intersects(pair.levelArea(kRight)));
            if (pair.hasButtons)
                QVERIFY(pair.button(buttonRows - 1, 1, 2).bottom() < pair.scale.top());
        }
    }

    void phaseMarkers()
    {
        const PairLayout layout = layoutFor(kQuarter, 8).pair;
        const QRect track = layout.phaseTrack();
        QCOMPARE(layout.phaseMarkerLeft(-1.0F), track.left() - 2);
        QCOMPARE(layout.phaseMarkerLeft(0.0F), track.left() + 31);
        QCOMPARE(layout.phaseMarkerLeft(1.0F), track.right() + 1 - 2);
        QCOMPARE(layout.phaseMarkerLeft(40.0F), track.right() + 1 - 2);
    }

    void readingsRoundToTheirDecimals()
    {
        QCOMPARE(MeterFigures::numberOf(-17.96F, 1), -180);
        QCOMPARE(MeterFigures::numberOf(-0.04F, 1), 0);
        QCOMPARE(MeterFigures::numberOf(3.996F, 2), 400);
        QCOMPARE(MeterFigures::numberOf(-1000.0F, 1), -999);
        QCOMPARE(MeterFigures::numberOf(std::numeric_limits<float>::quiet_NaN(), 1), -999);
    }
};

WZ_TEST_CLASS(tst_MeteringLayout)
#include "tst_MeteringLayout.moc"
