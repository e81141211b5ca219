#include "remote/DriverFit.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <cmath>

using Velmora::Sdi::DriverCharacteristics;

class tst_DriverFit : public WzTest {
    Q_OBJECT
private slots:
    void parabolasAreFound_data()
    {
        QTest::addColumn<double>("offset");
        QTest::addColumn<double>("slope");
        QTest::addColumn<double>("curvature");
        QTest::newRow("bent") << 560.0 << 8.6 << -0.03;
        QTest::newRow("straight") << 500.0 << 10.0 << 0.0;
        QTest::newRow("flat") << 800.0 << 0.0 << 0.0;
    }
    void parabolasAreFound()
    {
        QFETCH(double, offset);
        QFETCH(double, slope);
        QFETCH(double, curvature);
        const DriverCharacteristics truth{offset, slope, curvature, 0};
        std::vector<DriverReading> readings;
        for (int step = 0; step < DriverCharacteristics::kGainSteps; step += 3) {
            // Equal deviations to both sides leave the parabola where it is.
            readings.push_back({step, truth.amplitudeAt(step) + 2});
            readings.push_back({step, truth.amplitudeAt(step) - 2});
        }
        const auto found = DriverFit::fit(readings);
        QVERIFY(found);
        QVERIFY(std::abs(found->offset - offset) < 1e-6);
        QVERIFY(std::abs(found->slope - slope) < 1e-6);
        QVERIFY(std::abs(found->curvature - curvature) < 1e-6);
        QVERIFY(std::abs(found->residual - 2) < 1e-6);
        const auto travelled = DriverCharacteristics::fromItems(found->toItems());
        QVERIFY(travelled && std::abs(travelled->amplitudeAt(63) - found->amplitudeAt(63)) < 1e-3);
    }

    void tooFewStepsGiveNothing()
    {
        QVERIFY(!DriverFit::fit({}));
        QVERIFY(!DriverFit::fit({{5, 600}, {5, 601}, {5, 602}}));
        QVERIFY(!DriverFit::fit({{5, 600}, {9, 630}, {9, 631}}));
    }

    void theNearestStepIsChosen()
    {
        const DriverCharacteristics straight{500, 10, 0, 0};
        QCOMPARE(straight.stepFor(800), 30);
        QCOMPARE(straight.stepFor(804), 30);
        QCOMPARE(straight.stepFor(0), 0);
        QCOMPARE(straight.stepFor(5000), 63);
    }

    void itemsAreChecked()
    {
        QVERIFY(!DriverCharacteristics::fromItems({}));
        QVERIFY(!DriverCharacteristics::fromItems(QString::fromLatin1("1 2 3").split(QLatin1Char(' '))));
        QVERIFY(!DriverCharacteristics::fromItems(QString::fromLatin1("1 2 3 nan").split(QLatin1Char(' '))));
        QVERIFY(!DriverCharacteristics::fromItems(QString::fromLatin1("1 2 3 x").split(QLatin1Char(' '))));
    }
};

WZ_TEST_CLASS(tst_DriverFit)
#include "tst_DriverFit.moc"
