#include "logging/LogThrottle.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace std::chrono_literals;
using Velmora::LogThrottle;

class tst_LogThrottle : public WzTest {
    Q_OBJECT

private slots:
    void cutsAFloodAndCountsTheRest()
    {
        LogThrottle throttle;
        for (int i = 0; i < 25; ++i)
            throttle.log(spdlog::level::info, "flood {}", i);
        QCOMPARE(log().count(QStringLiteral("flood")), 10);

        QVERIFY(throttle.admit(spdlog::level::info, LogThrottle::Clock::now() + 1s));
        QCOMPARE(log().count(QStringLiteral("15 more messages")), 1);
    }

    void slowLinesAllPass()
    {
        LogThrottle throttle;
        auto now = LogThrottle::Clock::now();
        for (int i = 0; i < 40; ++i, now += 100ms)
            QVERIFY(throttle.admit(spdlog::level::info, now));
    }

    void kindsDoNotShareTheirLimit()
    {
        LogThrottle first;
        LogThrottle second;
        for (int i = 0; i < 20; ++i)
            first.log(spdlog::level::info, "first");
        second.log(spdlog::level::info, "second");
        QVERIFY(log().contains(QStringLiteral("second")));
    }

    void theRestIsReportedWhenTheLogEnds()
    {
        LogThrottle throttle;
        for (int i = 0; i < 13; ++i)
            throttle.log(spdlog::level::info, "flood");
        LogThrottle::flushAll();
        QCOMPARE(log().count(QStringLiteral("3 more messages")), 1);
    }
};

WZ_TEST_CLASS(tst_LogThrottle)
#include "tst_LogThrottle.moc"
