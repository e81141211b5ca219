#include "support/TestRunner.h"
#include "support/WzTest.h"
#include "types/waveform/NitsScale.h"

using namespace Velmora::WaveformTypes;
using Curve = NitsScale::Curve;

Q_DECLARE_METATYPE(NitsScale)

namespace {

const NitsScale kSdr(Curve::SdrTv);
const NitsScale kHlg(Curve::Hlg);
const NitsScale kPq(Curve::Pq);
const NitsScale kSLog3(Curve::SLog3, SLog3Mode::SLog3);
const NitsScale kSrLive(Curve::SLog3, SLog3Mode::SrLive);

} // namespace

class tst_NitsScale : public WzTest {
    Q_OBJECT
private slots:
    /// Values of BT.1886, BT.2100, ST 2084 and the published formula of S-Log3.
    void levelsAndLight_data()
    {
        QTest::addColumn<NitsScale>("scale");
        QTest::addColumn<double>("percent");
        QTest::addColumn<double>("nits");
        const auto row = [](const NitsScale& scale, const char* name, double percent, double nits) {
            QTest::addRow("%s %g nits", name, nits) << scale << percent << nits;
        };
        row(kSdr, "SDR", 50.0, 18.946);
        row(kSdr, "SDR", 100.0, 100.0);
        row(kSdr, "SDR", 109.0, 122.98);
        row(kHlg, "HLG", 9.74, 1.0);
        row(kHlg, "HLG", 49.71, 50.0); // below the knee of the curve
        row(kHlg, "HLG", 50.0, 50.697); // on it
        row(kHlg, "HLG", 62.96, 100.0);
        row(kHlg, "HLG", 74.99, 203.0);
        row(kHlg, "HLG", 100.0, 1000.0);
        row(kHlg, "HLG", 109.0, 1808.7);
        row(kPq, "PQ", 6.234, 0.1);
        row(kPq, "PQ", 14.995, 1.0);
        row(kPq, "PQ", 50.808, 100.0);
        row(kPq, "PQ", 58.069, 203.0);
        row(kPq, "PQ", 75.183, 1000.0);
        row(kPq, "PQ", 82.742, 2000.0);
        row(kPq, "PQ", 90.257, 4000.0);
        row(kPq, "PQ", 100.0, 10000.0);
        row(kSLog3, "S-Log3", 40.64, 20.0); // 18 % grey
        row(kSLog3, "S-Log3", 60.95, 100.0);
        row(kSLog3, "S-Log3", 70.05, 203.0);
        row(kSLog3, "S-Log3", 90.67, 1000.0);
        row(kSLog3, "S-Log3", 10.0, 0.929); // on the straight part
        row(kSrLive, "SR Live", 60.95, 100.0);
        row(kSrLive, "SR Live", 68.53, 203.0);
        row(kSrLive, "SR Live", 85.70, 1000.0);
        row(NitsScale(Curve::SLog3, SLog3Mode::SLog3, true), "S-Log3 full range", 58.45, 100.0);
        row(NitsScale(Curve::Pq, SLog3Mode::SLog3, true), "PQ full range", 58.069, 203.0);
    }
    void levelsAndLight()
    {
        QFETCH(NitsScale, scale);
        QFETCH(double, percent);
        QFETCH(double, nits);
        QVERIFY2(std::abs(scale.percent(nits) - percent) < 0.01,
                 qPrintable(QString::number(scale.percent(nits))));
        QVERIFY2(std::abs(scale.nits(percent) - nits) < 0.006 * nits,
                 qPrintable(QString::number(scale.nits(percent))));
    }

    void nothingIsDarkerThanBlackNorBrighterThanPq()
    {
        for (const NitsScale& scale : {kSdr, kHlg, kPq, kSLog3, kSrLive}) {
            QCOMPARE(scale.nits(-7.0), 0.0);
            QVERIFY(scale.percent(-1.0) <= 3.6); // where S-Log3 has its black
        }
        QCOMPARE(kPq.nits(109.0), 10000.0);
    }

    void theReferenceLevelFollowsTheCurve()
    {
        QCOMPARE(kSdr.referencePercent(), 0.0);
        QCOMPARE(kHlg.referencePercent(), 75.0);
        QCOMPARE(kPq.referencePercent(), 58.1);
        QCOMPARE(kSLog3.referencePercent(), 70.0);
        QCOMPARE(kSrLive.referencePercent(), 68.5);
        // All of them are the same light, as closely as the rounded figures can say it.
        for (const NitsScale& scale : {kHlg, kPq, kSLog3, kSrLive})
            QVERIFY(std::abs(scale.nits(scale.referencePercent()) - 203.0) < 1.0);
    }

    void ticksAreOnTheScale()
    {
        for (const NitsScale& scale : {kSdr, kHlg, kPq, kSLog3, kSrLive}) {
            double last = -1.0;
            for (const double tick : scale.ticks()) {
                const double level = scale.percent(tick);
                QVERIFY(level > last && level < 109.1);
                last = level;
            }
        }
    }
};

WZ_TEST_CLASS(tst_NitsScale)
#include "tst_NitsScale.moc"
