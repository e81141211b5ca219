#include "instruments/audiolevels/MeterFigures.h"
#include "instruments/audiolevels/MeterLayout.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <limits>

namespace {

/// Contents of windows of 480 x 270, 960 x 540 and 1920 x 1080.
constexpr QSize kSixteenth(476, 238);
constexpr QSize kQuarter(956, 508);
constexpr QSize kFull(1916, 1048);

} // namespace

class tst_MeterLayout : public WzTest {
    Q_OBJECT

private slots:
    void measures_data()
    {
        QTest::addColumn<QSize>("content");
        QTest::addColumn<int>("pixelsPerDb");
        QTest::addColumn<QRect>("first");
        QTest::addColumn<QRect>("second");
        QTest::addColumn<int>("labelStep");
        QTest::addColumn<int>("tickStep");
        QTest::newRow("sixteenth") << kSixteenth << 2 << QRect(52, 72, 18, 140) << QRect(74, 72, 18, 140)
                                   << 18 << 9;
        QTest::newRow("quarter") << kQuarter << 5 << QRect(81, 104, 30, 350) << QRect(117, 104, 30, 350) << 9
                                 << 3;
        QTest::newRow("full") << kFull << 12 << QRect(123, 142, 66, 840) << QRect(201, 142, 66, 840) << 9
                              << 1;
    }
    void measures()
    {
        QFETCH(QSize, content);
        const MeterLayout layout = MeterLayout::forSize(content);
        QTEST(layout.scale.pixelsPerDb, "pixelsPerDb");
        QTEST(layout.bar(0), "first");
        QTEST(layout.bar(1), "second");
        QTEST(layout.scale.labelStepDb(), "labelStep");
        QTEST(layout.scale.tickStepDb(), "tickStep");
    }

    /// Also in windows that are smaller than any that is offered.
    void everythingStandsBesideEachOther_data()
    {
        QTest::addColumn<QSize>("content");
        for (const QSize size : {kSixteenth, kQuarter, kFull, QSize(956, 238), QSize(300, 120)})
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
    }
    void everythingStandsBesideEachOther()
    {
        QFETCH(QSize, content);
        const MeterLayout layout = MeterLayout::forSize(content);
        const QRect room(QPoint(), content);
        for (int i = 0; i < MeterLayout::kChannels; ++i) {
            QVERIFY(layout.bar(i).left() >= 0 && layout.bar(i).right() < content.width());
            QCOMPARE(layout.channelAt(layout.bar(i).center()), i);
            QVERIFY(i == 0 || layout.bar(i).left() > layout.bar(i - 1).right());
            QVERIFY(i == 0 || !layout.litClipLamp(i, 41).intersects(layout.litClipLamp(i - 1, 41)));
            if (layout.hasReadOuts())
                QVERIFY(i == 0 || !layout.levelArea(i).intersects(layout.levelArea(i - 1)));
        }
        QCOMPARE(layout.channelAt(QPoint(-1, 0)), -1);
        QCOMPARE(layout.channelAt(QPoint(layout.right(), 0)), -1);
        QVERIFY(content.height() < 200 || room.contains(layout.bar(15)));
    }

    void levelsFillFromTheirRow_data()
    {
        QTest::addColumn<float>("level");
        QTest::addColumn<int>("row");
        QTest::newRow("full scale") << 0.0F << 104;
        QTest::newRow("beyond") << 6.0F << 104;
        QTest::newRow("-14.6") << -14.6F << 177;
        QTest::newRow("alignment") << -18.0F << 194;
        QTest::newRow("lowest") << -70.0F << 454;
        QTest::newRow("below") << -99.0F << 454;
        QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN() << 454;
        QTest::newRow("silence") << -std::numeric_limits<float>::infinity() << 454;
    }
    void levelsFillFromTheirRow()
    {
        QFETCH(float, level);
        const MeterLayout layout = MeterLayout::forSize(kQuarter);
        QTEST(layout.scale.rowOf(level), "row");
        // The hat stays on the bar, and where there is no level there is no hat.
        const QRect hat = layout.hat(0, layout.barFor(level, level));
        QCOMPARE(hat.height(), layout.scale.rowOf(level) == 454 ? 0 : MeterLayout::kHatHeight);
        QVERIFY(hat.isEmpty() || layout.bar(0).contains(hat));
    }

    /// Whatever differs between two bars lies in the rectangle that is painted anew.
    void changesAreRepainted()
    {
        const MeterLayout layout = MeterLayout::forSize(kQuarter);
        const float nothing = std::numeric_limits<float>::quiet_NaN();
        const float levels[] = {nothing, -69.9F, -69.0F, -18.2F, -18.0F, -3.0F, 0.0F};
        for (const float from : levels) {
            for (const float to : levels) {
                const auto before = layout.barFor(from, from);
                const auto after = layout.barFor(to, -3.0F);
                const QRect changed = layout.changed(3, before, after);
                for (int row = layout.scale.top; row < layout.scale.bottom(); ++row) {
                    const QPoint point(layout.bar(3).left(), row);
                    const bool differs = (row >= before.row) != (row >= after.row)
                        || layout.hat(3, before).contains(point) != layout.hat(3, after).contains(point);
                    QVERIFY(!differs || changed.contains(point));
                }
                QVERIFY(layout.bar(3).contains(changed) || changed.isEmpty());
            }
            QVERIFY(layout.changed(3, layout.barFor(from, from), layout.barFor(from, from)).isEmpty());
        }
    }

    void phaseMarkers()
    {
        const MeterLayout layout = MeterLayout::forSize(kQuarter);
        const QRect track = layout.phaseTrack(0);
        QCOMPARE(layout.phaseMarkerLeft(0, -1.0F), track.left() - 2);
        QCOMPARE(layout.phaseMarkerLeft(0, 0.0F), track.left() + 31);
        QCOMPARE(layout.phaseMarkerLeft(0, 1.0F), track.right() + 1 - 2);
        QCOMPARE(layout.phaseMarkerLeft(0, 40.0F), track.right() + 1 - 2);
    }

    void levelsRoundToTenths()
    {
        QCOMPARE(MeterFigures::tenthsOf(-17.96F), -180);
        QCOMPARE(MeterFigures::tenthsOf(-0.04F), 0);
        QCOMPARE(MeterFigures::tenthsOf(-1000.0F), -999);
        QCOMPARE(MeterFigures::tenthsOf(std::numeric_limits<float>::quiet_NaN()), -999);
    }
};

WZ_TEST_CLASS(tst_MeterLayout)
#include "tst_MeterLayout.moc"
