#include "server/core/FaultPlan.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::Server;

class tst_FaultPlan : public WzTest {
    Q_OBJECT

private slots:
    void reads_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        const auto row = [](const char* text, bool valid) {
            QTest::newRow(text) << QString::fromLatin1(text) << valid;
        };
        row("", true);
        row("drop=0.25,delay=20,split=7,corrupt=1,disconnect=3", true);
        row("drop=1.5", false);
        row("drop=-0.1", false);
        row("drop=nan", false);
        row("drop", false);
        row("drop=", false);
        row("split=20000", false);
        row("delay=99999999999", false);
        row("fire=1", false);
    }
    void reads()
    {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QString error;
        const auto plan = FaultPlan::parse(text, error);
        QCOMPARE(plan.has_value(), valid);
        QCOMPARE(error.isEmpty(), valid);
        if (text.contains(QLatin1String("split=7"))) {
            const FaultPlan expected{0.25, std::chrono::milliseconds(20), 7, 1.0, 3};
            QVERIFY(*plan == expected);
        }
    }

    void happensAsOftenAsPlannedAndRepeatably()
    {
        const FaultPlan plan{0.25, {}, 0, 0.5, 0};
        FaultInjector injector(plan, 7);
        FaultInjector same(plan, 7);
        int lost = 0;
        int damaged = 0;
        for (int i = 0; i < 4000; ++i) {
            const bool loses = injector.loses();
            QCOMPARE(same.loses(), loses);
            lost += loses;
            QByteArray frame("0123456789");
            QByteArray twin = frame;
            injector.damage(frame);
            same.damage(twin);
            QCOMPARE(frame, twin);
            damaged += frame != "0123456789";
        }
        QVERIFY2(lost > 850 && lost < 1150, qPrintable(QString::number(lost)));
        QVERIFY2(damaged > 1850 && damaged < 2150, qPrintable(QString::number(damaged)));
    }
};

WZ_TEST_CLASS(tst_FaultPlan)
#include "tst_FaultPlan.moc"
