#include "logging/LocalTimeTable.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

namespace {

constexpr std::time_t kHour = 60 * 60;
constexpr std::time_t kYear = 365 * 24 * kHour;
constexpr std::time_t kStart = 1767225600; // 2026-01-01

} // namespace

class tst_LocalTimeTable : public WzTest {
    Q_OBJECT

private slots:
    void cleanup()
    {
        qunsetenv("TZ");
        ::tzset();
        WzTest::cleanup();
    }

    void agreesWithTheSystem_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::newRow("no offset") << QByteArray("UTC0");
        QTest::newRow("part of an hour, no summer time") << QByteArray("<+0545>-5:45");
        QTest::newRow("Central Europe") << QByteArray("CET-1CEST,M3.5.0,M10.5.0/3");
        QTest::newRow("Eastern America") << QByteArray("EST5EDT,M3.2.0,M11.1.0");
        QTest::newRow("southern summer") << QByteArray("<+1030>-10:30<+11>-11,M10.1.0,M4.1.0");
    }
    void agreesWithTheSystem()
    {
        QFETCH(QByteArray, zone);
        qputenv("TZ", zone);
        LocalTimeTable table;
        table.prepare(kStart);
        for (std::time_t when = kStart; when < kStart + 19 * kYear; when += kHour / 2) {
            for (const std::time_t second : {when - 1, when}) {
                std::tm local{};
                ::localtime_r(&second, &local);
                if (table.utcOffset(second) != local.tm_gmtoff)
                    QFAIL(qPrintable(QStringLiteral("wrong at %1").arg(second)));
            }
        }
    }

    void anUnsetClockDoesNotMatter()
    {
        qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
        LocalTimeTable table;
        table.prepare(0);
        QCOMPARE(table.utcOffset(kStart), kHour);
        QCOMPARE(table.utcOffset(kStart + kYear / 2), 2 * kHour);
        QCOMPARE(table.utcOffset(0), kHour);
        QCOMPARE(table.utcOffset(kStart + 100 * kYear) % kHour, 0L);
    }
};

WZ_TEST_CLASS(tst_LocalTimeTable)
#include "tst_LocalTimeTable.moc"
