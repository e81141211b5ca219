#include "datacore/ElementPaths.h"
#include "server/core/DatacoreService.h"
#include "server/core/FaultPlan.h"
#include "server/core/InstrumentServer.h"
#include "server/core/InstrumentTrees.h"
#include "server/core/PlatformElements.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDateTime>

using namespace Velmora::Server;

namespace {

const QString kDegrees = QStringLiteral("\u00B0C");

/// The elements of a machine whose sensors read what the test says.
struct Machine {
    explicit Machine(const std::vector<HealthReading>& first)
        : readings(first)
    {
    }
    const DatacoreBase& status(QLatin1String path) const
    {
        return *trees.find(QStringLiteral("statusCoreRouter/") + path);
    }

    std::vector<HealthReading> readings;
    InstrumentServer server{FaultPlan(), 1};
    InstrumentTrees trees;
    DatacoreService datacores{server, trees};
    PlatformElements elements{trees, datacores, [this] { return readings; }};
};

} // namespace

class tst_PlatformElements : public WzTest {
    Q_OBJECT
private slots:
    void healthFollowsTheSensors()
    {
        Machine machine({{QStringLiteral("Board"), kDegrees, 47, 80},
                         {QStringLiteral("Fan"), QStringLiteral("rpm"), 1200, 0}});
        const DatacoreBase& readings = machine.status(ElementPaths::HealthStatus::kReadings);
        const DatacoreBase& alarms = machine.status(ElementPaths::HealthStatus::kAlarms);
        QVERIFY(readings.isActive());
        QVERIFY(HealthReading::fromItems(readings.getDataList()) == machine.readings);
        QVERIFY(alarms.getDataList().isEmpty());
        machine.readings.front().value = 80;
        machine.elements.publishHealth();
        QCOMPARE(alarms.getDataList(), QStringList(QStringLiteral("Board: 80 ") + kDegrees));
        // Nothing is sent of what has not changed.
        machine.elements.publishHealth();
        QVERIFY(machine.trees.takeChangedNodes().empty());
        machine.readings.clear();
        machine.elements.publishHealth();
        QVERIFY(!readings.isActive());
        QVERIFY(!alarms.isActive());
    }

    void withoutSensorsHealthIsInactive()
    {
        const Machine machine({});
        QVERIFY(!machine.status(ElementPaths::HealthStatus::kReadings).isActive());
        QVERIFY(!machine.status(ElementPaths::HealthStatus::kAlarms).isActive());
    }

    void theTimeIsThatOfNow()
    {
        Machine machine({});
        const DatacoreBase& utc = machine.status(ElementPaths::SystemTimeStatus::kUtc);
        const QString first = utc.getData();
        QTest::qWait(2);
        machine.elements.publishTime();
        QVERIFY(utc.getData() > first);
        const QDateTime time = QDateTime::fromString(utc.getData(), Qt::ISODateWithMs);
        QCOMPARE(time.timeSpec(), Qt::UTC);
        QVERIFY(qAbs(time.msecsTo(QDateTime::currentDateTimeUtc())) < 1000);
    }

    void damagedReadingsEndTheList_data()
    {
        QTest::addColumn<QString>("items");
        QTest::addColumn<int>("count");
        QTest::newRow("none") << QString() << 0;
        QTest::newRow("two") << QStringLiteral("a,C,1,2,b,C,3,4") << 2;
        QTest::newRow("cut short") << QStringLiteral("a,C,1,2,b,C,3") << 1;
        QTest::newRow("no number") << QStringLiteral("a,C,1,2,b,C,x,4,c,C,5,6") << 1;
        QTest::newRow("no end") << QStringLiteral("a,C,inf,2") << 0;
    }
    void damagedReadingsEndTheList()
    {
        QFETCH(QString, items);
        QTEST(int(HealthReading::fromItems(items.split(QLatin1Char(','))).size()), "count");
    }
};

WZ_TEST_CLASS(tst_PlatformElements)
#include "tst_PlatformElements.moc"
