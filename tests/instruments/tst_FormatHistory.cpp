#include "instruments/inputstatistics/FormatHistory.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace std::chrono_literals;

class tst_FormatHistory : public WzTest {
    Q_OBJECT

    const QString m_hd = QStringLiteral("1920x1080");
    const QString m_uhd = QStringLiteral("3840x2160");

private slots:
    void countsWhatChanges()
    {
        FormatHistory history;
        QVERIFY(history.unchangedFor(9s) == 0s && history.longestUnchanged(9s) == 0s);
        history.note(m_hd, 10s);
        history.note(m_hd, 14s); // the same again
        QCOMPARE(history.changes(), 0);
        QVERIFY(history.unchangedFor(15s) == 5s);
        history.note(m_uhd, 16s);
        QCOMPARE(history.changes(), 1);
        QVERIFY(history.unchangedFor(18s) == 2s);
        QVERIFY(history.longestUnchanged(18s) == 6s);
        QVERIFY(history.longestUnchanged(30s) == 14s);
    }

    void whatIsNotKnownIsNoChange()
    {
        FormatHistory history;
        history.note(m_hd, 10s);
        history.forget(13s);
        QCOMPARE(history.format(), QString());
        QVERIFY(history.unchangedFor(20s) == 0s);
        QVERIFY(history.longestUnchanged(20s) == 3s);
        history.note(m_uhd, 21s);
        QCOMPARE(history.changes(), 0);
        QVERIFY(history.unchangedFor(22s) == 1s);
    }

    void countsBeginAnewWithinAFormat()
    {
        FormatHistory history;
        history.note(m_hd, 10s);
        history.note(m_uhd, 20s);
        history.resetCounts(25s);
        QCOMPARE(history.changes(), 0);
        QVERIFY(history.unchangedFor(26s) == 6s);
        QVERIFY(history.longestUnchanged(26s) == 1s);
        history.note(m_hd, 27s);
        QCOMPARE(history.changes(), 1);
        QVERIFY(history.longestUnchanged(28s) == 2s);
    }
};

WZ_TEST_CLASS(tst_FormatHistory)

#include "tst_FormatHistory.moc"
