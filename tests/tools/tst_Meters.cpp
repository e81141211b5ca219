#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"
#include "tools/MeterBars.h"
#include "network/packets/MeterSet.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <limits>

using MeterValue = AudioProcessingRegisterApi::MeterValue<float>;

namespace {

MeterSet exampleSet()
{
    MeterSet meters(9);
    meters.add(MeterSet::Ppm,
               PpmMetersData(
                   {{0, 0, 0, 0, -20.0F}, {1, 0, 0, 0, -0.0004F}, {200, 0, 0, 0, -1.0F}, {3, 0, 2, 0, -1.0F}},
                   1, 0, 9));
    meters.add(MeterSet::Phase,
               PhaseMetersData({{0, 0, 0, MeterValue::kNotMeasured, 0.0F}, {1, 0, 0, 0, 0.5F}}, 1, 0, 9));
    return meters;
}

} // namespace

class tst_Meters : public WzTest {
    Q_OBJECT

private slots:
    void barLengths_data()
    {
        QTest::addColumn<float>("level");
        QTest::addColumn<int>("columns");
        QTest::newRow("silence") << -99.0F << 0;
        QTest::newRow("bottom of the scale") << -70.0F << 0;
        QTest::newRow("just above") << -69.9F << 1;
        QTest::newRow("middle") << -36.0F << 17;
        QTest::newRow("full scale") << 0.0F << 35;
        QTest::newRow("beyond") << 20.0F << 35;
        QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN() << 0;
    }
    void barLengths()
    {
        QFETCH(float, level);
        QTEST(MeterBars::barLength(level), "columns");
    }

    void jsonHasNullWhereNothingWasMeasured()
    {
        QCOMPARE(
            exampleSet().toJson(),
            QByteArray(
                "{\"instantPeakDb\":[null,null],\"instantPeakLinear\":[null,null],\"peakHold\":[null,null],"
                "\"phase\":[null,0.5],\"ppm\":[-20,0],\"sequence\":9}"));
        QVERIFY(!exampleSet().isComplete());
    }

    void barsNeverShowADeadValueAsLive()
    {
        const QString server = QStringLiteral("10.0.0.1:29440");
        const QString live = MeterBars::draw(exampleSet(), MeterBars::State::Live, server);
        QVERIFY2(live.contains(QStringLiteral(" 1  -20.0  #########################..........  phase --.--")),
                 qPrintable(live));
        QVERIFY2(live.contains(QStringLiteral(" 2    0.0  ###################################")),
                 qPrintable(live));
        QVERIFY2(live.contains(QStringLiteral(" 3   --.-  ..................................")),
                 qPrintable(live));

        for (const auto state : {MeterBars::State::Waiting, MeterBars::State::NotConnected}) {
            const QString dead = MeterBars::draw(exampleSet(), state, server);
            QVERIFY(dead.contains(QStringLiteral(" 1   --.-  ....")));
            QVERIFY(!dead.contains(QLatin1Char('#')));
        }
        QVERIFY(MeterBars::draw(exampleSet(), MeterBars::State::NotConnected, server)
                    .startsWith(QStringLiteral("Not connected to 10.0.0.1:29440, retrying\n")));
    }
};

WZ_TEST_CLASS(tst_Meters)
#include "tst_Meters.moc"
