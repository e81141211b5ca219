#include "gui/support/WindowFixture.h"
#include "instruments/diagnostics/ClientFigures.h"
#include "instruments/diagnostics/DrawClock.h"
#include "instruments/diagnostics/LoopWatch.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace {

/// Holds up the event loop.
void beBusy(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds) { }
}

} // namespace

class tst_Diagnostics : public WzTest {
    Q_OBJECT
private slots:
    void stallsAreCountedAndNamed()
    {
        LoopWatch watch;
        {
            const LoopWatch::Scope event;
            beBusy(1);
        }
        QCOMPARE(watch.stalls(), 0);
        {
            const LoopWatch::Scope event;
            const LoopWatch::Scope sentWithin; // counts with the event that sends it
            beBusy(30);
        }
        QCOMPARE(watch.stalls(), 1);
        QVERIFY(watch.longest() >= std::chrono::milliseconds(30));
        QVERIFY(watch.longestCause().isEmpty());
        {
            const LoopWatch::Scope event;
            beBusy(60);
            watch.nameCause(QStringLiteral("connection attempt"));
        }
        QCOMPARE(watch.longestCause(), QStringLiteral("connection attempt"));
        {
            const LoopWatch::Scope event; // opens a dialog, in which the program goes on
            QEventLoop loop;
            QTimer::singleShot(90, &loop, [&loop] {
                const LoopWatch::Scope inDialog;
                loop.quit();
            });
            loop.exec();
        }
        QCOMPARE(watch.stalls(), 2);
        {
            const LoopWatch::Scope event;
            beBusy(1);
        }
        QCOMPARE(watch.stalls(), 2);
    }

    void drawingBelongsToItsWindow()
    {
        WindowFixture fixture;
        fixture.addKind(QStringLiteral("Scope"));
        WzSubWindow* const window = fixture.open(QStringLiteral("Scope"));
        DrawClock& clock = DrawClock::getInstance();
        clock.start();
        clock.note(window->content(), std::chrono::microseconds(200));
        clock.note(window, std::chrono::microseconds(100));
        clock.note(&fixture, std::chrono::microseconds(50));
        const std::vector<DrawClock::Share> shares = clock.take();
        QCOMPARE(shares.size(), 2U);
        QCOMPARE(shares[0].window, QString());
        QCOMPARE(shares[1].window, QStringLiteral("Scope 1"));
        QCOMPARE(shares[1].events, 2);
        QVERIFY(shares[1].time == std::chrono::microseconds(300));
        QVERIFY(clock.take().empty());
        clock.stop();
        QVERIFY(!clock.isRunning());
    }

    /// Without an instrument nothing is made up.
    void figuresWithoutAConnectionSayNothing()
    {
        ClientFigures figures;
        figures.startWatching();
        ClientFigures::Reading reading = figures.read();
        QVERIFY(!reading.udpFramesPerSecond && !reading.dataAge && !reading.echoTime);
        QVERIFY(reading.residentKiB > 1000 && reading.peakKiB >= reading.residentKiB);
        QTest::qWait(2);
        reading = figures.read();
        QCOMPARE(reading.updatesPerSecond.value_or(-1), 0.0);
        figures.stopWatching();
    }
};

WZ_TEST_CLASS(tst_Diagnostics)

#include "tst_Diagnostics.moc"
