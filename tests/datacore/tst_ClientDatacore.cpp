#include "datacore/ClientDatacore.h"
#include "datacore/DatacorePacket.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <memory>

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

DatacorePacket valuePacket(const QString& value, int packetId = -1)
{
    const QJsonObject own{{text("class"), text("C")}, {text("data"), value}};
    DatacorePacket packet(QJsonObject{{text("n"), own}}, text("a/n"));
    if (packetId >= 0)
        packet.setPacketID(packetId);
    return packet;
}

/// A node whose signals are written down in order.
class Recorded {
public:
    Recorded()
        : node(ClientDatacore::makeClientDatacoreRoot(text("a/n")))
    {
        using Node = ClientDatacore;
        QObject::connect(node.get(), &Node::datacoreUpdated, node.get(),
                         [this](const QStringList& values, const QStringList&, bool) {
                             events << text("value ") + values.join(text(","));
                         });
        QObject::connect(node.get(), &Node::clientDatacoreHasUpdateForServer, node.get(),
                         [this](int id, ClientDatacore* changed) {
                             const bool wouldSend = changed == node.get() && changed->getChangedStatus() == 2;
                             events << text(wouldSend ? "send " : "fault ") + QString::number(id);
                         });
        QObject::connect(node.get(), &Node::datacoreOutOfSyncWithServer, node.get(),
                         [this] { events << text("out"); });
        QObject::connect(node.get(), &Node::datacoreInSyncWithServer, node.get(),
                         [this] { events << text("in"); });
        QObject::connect(node.get(), &Node::lostPackets, node.get(),
                         [this](int count) { events << text("lost ") + QString::number(count); });
    }

    /// "w5" writes 5 locally; "s5" is the server's own change; "f3:5" another client's write 3; "e1:5" the
    /// echo of this client's write 1; "t5" this client's packet without an identifier.
    void play(const QString& step)
    {
        const QString value = step.mid(step.indexOf(QLatin1Char(':')) + 1).remove(QLatin1Char('w'));
        const int id = step.midRef(1, std::max(0, step.indexOf(QLatin1Char(':')) - 1)).toInt();
        switch (step.at(0).toLatin1()) {
        case 'w':
            node->setDataString(value);
            return;
        case 's':
            receive(valuePacket(step.mid(1)), false);
            return;
        case 'f':
            receive(valuePacket(value, id), false);
            return;
        case 'e':
            receive(valuePacket(value, id), true);
            return;
        case 't':
            receive(valuePacket(step.mid(1)), true);
            return;
        default:
            QFAIL("no such step");
        }
    }

    void receive(DatacorePacket packet, bool track) { node->populateDataFromDatacorePacket(packet, track); }

    std::unique_ptr<ClientDatacore> node;
    QStringList events;
};

} // namespace

class tst_ClientDatacore : public WzTest {
    Q_OBJECT

private slots:
    void echoes_data()
    {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("events");
        QTest::addColumn<QString>("last");
        const auto row = [](const char* name, const char* steps, const char* events, const char* last) {
            QTest::newRow(name) << text(steps) << text(events) << text(last);
        };
        row("server's values", "s1 s2", "in|value 1|in|value 2", "2");
        row("server repeats a value", "s1 s1", "in|value 1|in|value 1", "1");
        row("write and echo", "w1 e0:1", "value 1|out|send 0|in|value 1", "1");
        row("the server decides otherwise", "w1 e0:7", "value 1|out|send 0|in|value 7", "7");
        row("identifiers begin anew", "w1 e0:1 w2 e0:2",
            "value 1|out|send 0|in|value 1|value 2|out|send 0|in|value 2", "2");
        row("the same value written twice is sent twice", "w1 w1", "value 1|out|send 0|value 1|out|send 1",
            "1");
        row("only the last echo counts", "w1 w2 e0:1 e1:2",
            "value 1|out|send 0|value 2|out|send 1|in|value 2", "2");
        row("identifiers go on while one is outstanding", "w1 w2 e0:1 w3 e1:2 e2:3",
            "value 1|out|send 0|value 2|out|send 1|value 3|out|send 2|in|value 3", "3");
        row("the first echo is lost", "w1 w2 e1:2", "value 1|out|send 0|value 2|out|send 1|lost 2|in|value 2",
            "2");
        row("lost in the middle", "w1 w2 w3 e1:2 e2:3",
            "value 1|out|send 0|value 2|out|send 1|value 3|out|send 2|lost 2|in|value 3", "3");
        row("out of order", "w1 w2 e1:2 e0:1", "value 1|out|send 0|value 2|out|send 1|lost 2|in|value 2",
            "2");
        row("doubled", "w1 e0:1 e0:9", "value 1|out|send 0|in|value 1", "1");
        row("invented", "e0:9 w1 e5:9", "value 1|out|send 0", "1");
        row("another client's write, none of ours", "f0:5", "in|value 5", "5");
        row("another client's write under ours", "w1 f0:5 e0:1", "value 1|out|send 0|value 5|in|value 1",
            "1");
        row("server's change under ours", "w1 s5", "value 1|out|send 0|value 5", "5");
        row("ours without an identifier", "t5", "in|value 5", "5");
    }
    void echoes()
    {
        QFETCH(QString, steps);
        Recorded recorded;
        for (const QString& step : steps.split(QLatin1Char(' ')))
            recorded.play(step);
        QTEST(recorded.events.join(QLatin1Char('|')), "events");
        QTEST(recorded.node->getData(), "last");
        QCOMPARE(recorded.node->getChangedStatus(), 0);
    }

    void refusedValuesChangeNothing()
    {
        Recorded recorded;
        recorded.play(text("s1"));
        recorded.events.clear();
        DatacorePacket packet(QJsonObject{{text("m"), QJsonObject()}}, text("a/n"));
        recorded.receive(packet, false);
        QCOMPARE(recorded.events, QStringList{text("in")});
        QCOMPARE(recorded.node->getData(), text("1"));
        QVERIFY(
            log().contains(text("W ClientDatacore: value for 'a/n' refused: New data instance name does")));
    }

    void theClassIsThatOfTheServer()
    {
        Recorded recorded;
        QVERIFY(!recorded.node->hasValueOfServer());
        recorded.play(text("s1"));
        QVERIFY(recorded.node->hasValueOfServer());
        QCOMPARE(recorded.node->getClassName(), text("C"));
        QCOMPARE(
            DatacorePacket::fromNode(*recorded.node, text("a/n"), true).serialise(),
            QByteArray("{\"Class\":\"DatacorePacket\",\"Datacore\":{\"n\":{\"class\":\"C\",\"data\":\"1\"}},"
                       "\"Path\":\"a/n\"}"));
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a") << "a";
        QTest::newRow("a/b/c") << "c";
        QTest::newRow("a/") << "";
    }
    void names()
    {
        const QString path = text(QTest::currentDataTag());
        const std::unique_ptr<ClientDatacore> node(ClientDatacore::makeClientDatacoreRoot(path));
        QTEST(node->getInstanceName(), "name");
        QCOMPARE(node->getDatacorePathOnServer(), path);
    }

    void setters()
    {
        Recorded recorded;
        ClientDatacore& node = *recorded.node;
        node.setDataStringList({text("a"), QString()});
        node.setDataBool(true);
        node.setDataInt(-1);
        node.setDataUint(4294967295U);
        node.setDataInt16(-32768);
        node.setDataInt32(-2147483647 - 1);
        node.setDataInt64(-9223372036854775807LL - 1);
        node.setDataUint16(65535);
        node.setDataUint32(4294967295U);
        node.setDataUint64(18446744073709551615ULL);
        node.setDataFloat(0.1F);
        node.setDataDouble(-0.1);
        node.setDataPoint(QPoint(-1, 2));
        node.setDataSize(QSize(3, 4));
        QCOMPARE(recorded.events.filter(text("value")).join(QLatin1Char(' ')).remove(text("value ")),
                 text("a, true -1 4294967295 -32768 -2147483648 -9223372036854775808 65535 4294967295 "
                      "18446744073709551615 0.1 -0.1 -1,2 3,4"));
        QCOMPARE(recorded.events.filter(text("send")).size(), 14);
    }

    void reasonsForTheWindow()
    {
        Recorded recorded;
        QStringList reasons;
        bool active = true;
        connect(recorded.node.get(), &ClientDatacore::datacoreUpdated, this,
                [&](const QStringList&, const QStringList& texts, bool isActive) {
                    reasons = texts;
                    active = isActive;
                });
        recorded.node->setActive({DatacoreActiveStatusMessage(2)});
        recorded.node->setValid({DatacoreValidStatusMessage(40),
                                 DatacoreValidStatusMessage(41, MessageBase::MessageType::Warning),
                                 DatacoreValidStatusMessage(42, MessageBase::MessageType(3))});
        QVERIFY(!active);
        QCOMPARE(reasons,
                 (QStringList{text("Error: Jitter lock failed"),
                              text("Warning: Jitter measurement unreliable (H)"),
                              text("Info: Jitter measurement unreliable (L)")}));
        bool hasError = false;
        bool hasWarning = false;
        QCOMPARE(ClientDatacore::makeToolTip(reasons, &hasError, &hasWarning),
                 reasons.join(QLatin1Char('\n')));
        QVERIFY(hasError && hasWarning);
        ClientDatacore::makeToolTip(reasons.mid(2), &hasError, &hasWarning);
        QVERIFY(!hasError && !hasWarning);
        QCOMPARE(ClientDatacore::makeToolTip({}, nullptr, nullptr), QString());
    }

    /// What a slot writes while a change is under way is sent too, and nothing stays outstanding for ever.
    void writesFromWithinSlots_data()
    {
        QTest::addColumn<bool>("whenOutOfSync");
        QTest::newRow("datacoreUpdated") << false;
        QTest::newRow("datacoreOutOfSyncWithServer") << true;
    }
    void writesFromWithinSlots()
    {
        QFETCH(bool, whenOutOfSync);
        Recorded recorded;
        ClientDatacore* const node = recorded.node.get();
        bool done = false;
        const auto writeOnce = [&] {
            if (!std::exchange(done, true))
                node->setDataString(text("2"));
        };
        if (whenOutOfSync)
            connect(node, &ClientDatacore::datacoreOutOfSyncWithServer, this, writeOnce);
        else
            connect(node, &ClientDatacore::datacoreUpdated, this, writeOnce);
        node->setDataString(text("1"));
        QVERIFY(recorded.events.filter(text("fault")).isEmpty());
        const int sent = recorded.events.filter(text("send")).size();
        QVERIFY(sent > 0);
        for (int id = 0; id < sent; ++id)
            recorded.play(QStringLiteral("e%1:2").arg(id));
        QVERIFY(node->isInSyncWithServer());
        QCOMPARE(node->getData(), text("2"));
    }

    /// Dialogs run event loops of their own, in which the node may be cleared away and deleted.
    void slotsMayDestroyTheNode_data()
    {
        QTest::addColumn<QString>("signal");
        QTest::addColumn<QString>("step");
        QTest::newRow("value from the server") << "value"
                                               << "s1";
        QTest::newRow("local value") << "value"
                                     << "w1";
        QTest::newRow("out of sync") << "out"
                                     << "w1";
        QTest::newRow("sent") << "send"
                              << "w1";
        QTest::newRow("in sync, server") << "in"
                                         << "s1";
        QTest::newRow("in sync, echo") << "in"
                                       << "e2:1";
        QTest::newRow("lost") << "lost"
                              << "e2:1";
    }
    void slotsMayDestroyTheNode()
    {
        QFETCH(QString, signal);
        QFETCH(QString, step);
        Recorded recorded;
        if (step.startsWith(QLatin1Char('e'))) {
            for (const char* write : {"w1", "w2", "w3"})
                recorded.play(text(write));
        }
        ClientDatacore* const node = recorded.node.get();
        const auto destroy = [&] { recorded.node.reset(); };
        if (signal == text("value"))
            connect(node, &ClientDatacore::datacoreUpdated, this, destroy);
        else if (signal == text("out"))
            connect(node, &ClientDatacore::datacoreOutOfSyncWithServer, this, destroy);
        else if (signal == text("send"))
            connect(node, &ClientDatacore::clientDatacoreHasUpdateForServer, this, destroy);
        else if (signal == text("in"))
            connect(node, &ClientDatacore::datacoreInSyncWithServer, this, destroy);
        else
            connect(node, &ClientDatacore::lostPackets, this, destroy);
        recorded.play(step);
        QVERIFY(!recorded.node);
    }
};

WZ_TEST_CLASS(tst_ClientDatacore)
#include "tst_ClientDatacore.moc"
