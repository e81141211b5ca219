#include "instruments/eventlog/EventLogExport.h"
#include "instruments/eventlog/EventLogModel.h"
#include "instruments/eventlog/EventRows.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSignalSpy>

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

const QDateTime kTime(QDate(2026, 11, 23), QTime(13, 5, 7, 9));

QStringList messages(const EventRing& entries)
{
    QStringList list;
    for (quint64 number = entries.begin(); number < entries.end(); ++number)
        list << entries.at(number).message;
    return list;
}

/// An instrument that keeps its events and sends them again on each connection.
class Instrument {
public:
    explicit Instrument(EventLogModel& log)
        : m_log(log)
    {
    }
    void connect()
    {
        m_log.onConnected();
        for (const EventEntry& event : m_kept)
            send(event);
    }
    void raise(EventKind kind, const char* message)
    {
        if (kind == EventKind::LogReset)
            m_kept.clear();
        m_kept.push_back({kind, kTime.addMSecs(m_raised++), text(message)});
        send(m_kept.back());
    }

private:
    void send(const EventEntry& event)
    {
        if (event.kind == EventKind::LogReset)
            m_log.onResetEventLog();
        m_log.onNewEvent(event.kind, event.time, event.message);
    }

    EventLogModel& m_log;
    std::vector<EventEntry> m_kept;
    int m_raised = 0;
};

} // namespace

class tst_EventLogModel : public WzTest {
    Q_OBJECT

private slots:
    void oldestGoAtTheLimit()
    {
        EventLogModel log;
        const int more = 3;
        const int capacity = static_cast<int>(EventRing::kCapacity);
        for (int i = 0; i < capacity + more; ++i)
            log.onNewEvent(EventKind::Ptp, {}, QString::number(i));
        QCOMPARE(log.entries().begin(), quint64(more));
        QCOMPARE(log.entries().end(), quint64(capacity + more));
        QCOMPARE(log.entries().at(log.entries().begin()).message, text("3"));
        QCOMPARE(log.unseenCount(), capacity);
    }

    void reconnectionDoublesNothing()
    {
        EventLogModel log;
        Instrument instrument(log);
        instrument.connect();
        instrument.raise(EventKind::Sfp, "a");
        instrument.raise(EventKind::Ptp, "b");
        instrument.connect();
        instrument.raise(EventKind::Ptp, "c");
        instrument.connect();
        QCOMPARE(messages(log.entries()), (QStringList{text("a"), text("b"), text("c")}));
    }

    void resetClearsOnceOnly()
    {
        EventLogModel log;
        Instrument instrument(log);
        instrument.connect();
        instrument.raise(EventKind::Sfp, "before");
        instrument.raise(EventKind::LogReset, "reset");
        instrument.raise(EventKind::Sfp, "after");
        const QStringList afterReset{text("reset"), text("after")};
        QCOMPARE(messages(log.entries()), afterReset);
        log.markAllSeen();
        // The reset comes again with the events that the instrument keeps.
        instrument.connect();
        QCOMPARE(messages(log.entries()), afterReset);
        QCOMPARE(log.unseenCount(), 0);
        instrument.raise(EventKind::LogReset, "reset 2");
        QCOMPARE(messages(log.entries()), QStringList(text("reset 2")));
        QCOMPARE(log.unseenCount(), 1);
    }

    void unseenCountIsToldCollected()
    {
        EventLogModel log;
        QSignalSpy counts(&log, &EventLogModel::unseenCountChanged);
        QSignalSpy changes(&log, &EventLogModel::changed);
        for (int i = 0; i < 100; ++i)
            log.onNewEvent(EventKind::Nmos, kTime, QString::number(i));
        QTRY_COMPARE(counts.size(), 1);
        QCOMPARE(counts.first().first().toInt(), 100);
        QCOMPARE(changes.size(), 1);
        log.markAllSeen();
        QTRY_COMPARE(counts.size(), 2);
        QCOMPARE(counts.last().first().toInt(), 0);
    }

    void rowsFollowTheFilter()
    {
        EventRing entries;
        EventRows rows;
        EventKindFilter filter;
        filter.toggle(EventKind::Ptp);
        rows.setFilter(filter, {});
        const auto append = [&entries](EventKind kind) { entries.append({kind, kTime, {}}); };
        append(EventKind::Ptp); // 0
        append(EventKind::Sfp);
        append(EventKind::Ptp); // 2
        QCOMPARE(rows.update(entries), 2);
        QCOMPARE(rows.number(0), quint64(2));
        QCOMPARE(rows.number(1), quint64(0));
        const bool shade = rows.isOdd(0);
        append(EventKind::Sfp);
        append(EventKind::Ptp); // 4
        QCOMPARE(rows.update(entries), 1);
        QCOMPARE(rows.number(0), quint64(4));
        QCOMPARE(rows.isOdd(1), shade);
        QVERIFY(rows.isOdd(0) != shade);
        entries.clear();
        append(EventKind::Ptp); // 5
        QCOMPARE(rows.update(entries), 1);
        QCOMPARE(rows.count(), 1);
        QCOMPARE(rows.number(0), quint64(5));
        rows.setFilter({}, {});
        append(EventKind::Sfp);
        rows.update(entries);
        QCOMPARE(rows.count(), 2);
    }

    void rowsFollowTheSearch()
    {
        EventRing entries;
        EventRows rows;
        EventKindFilter filter;
        filter.toggle(EventKind::Ptp);
        const auto append = [&entries](EventKind kind, const char* message) {
            entries.append({kind, kTime, text(message)});
        };
        append(EventKind::Ptp, "Locked to Grandmaster");
        append(EventKind::Sfp, "grandmaster");
        append(EventKind::Ptp, "");
        rows.setFilter({}, text("GRAND"));
        QCOMPARE(rows.update(entries), 2);
        rows.setFilter(filter, text("grand"));
        QCOMPARE(rows.update(entries), 1);
        append(EventKind::Ptp, "no grandmaster");
        append(EventKind::Ptp, "locked");
        QCOMPARE(rows.update(entries), 1);
        QCOMPARE(rows.number(0), quint64(3));
    }

    void filterIsKeptByName()
    {
        EventKindFilter filter =
            EventKindFilter::fromNames({text("ptp"), text("sdi-rate"), text("of later")});
        QVERIFY(filter.isChosen(EventKind::Ptp) && filter.isChosen(EventKind::SdiRate));
        QVERIFY(!filter.accepts(EventKind::Sfp));
        QCOMPARE(filter.text(), text("2 kinds"));
        QCOMPARE(EventKindFilter::fromNames(filter.names()), filter);
        filter.toggle(EventKind::SdiRate);
        QCOMPARE(filter.text(), text("PTP"));
        filter.toggle(EventKind::Ptp);
        QVERIFY(filter.isAll() && filter.accepts(EventKind::Sfp));
    }

    void exports_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QByteArray>("csv");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("plain") << text("locked") << QByteArray("locked") << QByteArray("locked");
        QTest::newRow("comma") << text("a, b") << QByteArray("\"a, b\"") << QByteArray("a, b");
        QTest::newRow("quotes") << text("\"x\"") << QByteArray("\"\"\"x\"\"\"") << QByteArray("\"x\"");
        QTest::newRow("lines") << text("a\r\nb") << QByteArray("\"a\r\nb\"") << QByteArray("a b");
        QTest::newRow("place marker") << text("%1 %3") << QByteArray("%1 %3") << QByteArray("%1 %3");
        QTest::newRow("not ASCII") << QStringLiteral(u"1 \u00B5s") << QByteArray("1 \xC2\xB5s")
                                   << QByteArray("1 \xC2\xB5s");
    }
    void exports()
    {
        QFETCH(QString, message);
        EventRing entries;
        entries.append({EventKind::Ptp, kTime, message});
        entries.append({EventKind::Sfp, {}, text("last")});
        EventRows rows;
        rows.update(entries);
        using namespace EventLogExport;
        QTEST(toBytes(entries, rows, Format::Csv)
                  .replace("time,kind,message\r\n2026-11-23T13:05:07.009,ptp,", "")
                  .replace("\r\n,sfp,last\r\n", ""),
              "csv");
        QTEST(toBytes(entries, rows, Format::Text)
                  .replace("2026-11-23T13:05:07.009  ptp               ", "")
                  .replace("\nUnknown time             sfp               last\n", ""),
              "line");
    }
};

WZ_TEST_CLASS(tst_EventLogModel)
#include "tst_EventLogModel.moc"
