#include "datacore/DatacoreBase.h"

#include "JsonText.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QJsonArray>

class tst_DatacoreMessages : public WzTest {
    Q_OBJECT

private slots:
    /// First and last of each table, both sides of a gap, and the spellings that must not be mended.
    void texts_data()
    {
        QTest::addColumn<int>("content");
        QTest::addColumn<QString>("json");
        QTest::addColumn<QString>("active");
        QTest::addColumn<QString>("valid");
        const auto row = [](int content, const char* json, const char* active, const char* valid) {
            QTest::addRow("%d", content) << content << QString::fromLatin1(json)
                                         << QString::fromLatin1(active) << QString::fromLatin1(valid);
        };
        row(-1, "", "", "");
        row(0, "Datacore path could not be resolved", "", "");
        row(2, "New data class name does not match destination class name", "Command Executor is Busy",
            "Stored integer is Oversized");
        row(5, "MessageContentPathDoesNotEndAtDatacoreElementLeafNode",
            "One or more child datacores are invalid.", "Stored number is Undersized");
        row(6, "MessageContentJsonDoesNotContainDatacoreElementKey", "",
            "Stored value could not be deserialised into the specified integral type");
        row(7, "", "", "Stored value could not be deserialised into the specified floating point type");
        row(28, "", "", "Not enouch space in active line for pathological pairs");
        row(35, "", "",
            "IPV4 address inside range of multicast address space (224.0.0.0 to 239.255.255.255)");
        row(44, "", "", "Packets per marker bit not stable, 2110-21 will not function correctly");
        row(45, "", "", "");
        row(46, "", "", "");
        row(47, "", "", "25G SFPs are not supported on this Wz device");
        row(52, "", "",
            "OP47 unboxed captions are being shown, these characters should not be displayed by decoders "
            "when "
            "bit C6 (subtitle) is set");
        row(53, "", "", "");
    }
    void texts()
    {
        QFETCH(int, content);
        QTEST(DatacoreJsonMessage(content).getText(), "json");
        QTEST(DatacoreActiveStatusMessage(content).getText(), "active");
        QTEST(DatacoreValidStatusMessage(content).getText(), "valid");
    }

    void jsonForm()
    {
        const DatacoreValidStatusMessage message(21);
        QCOMPARE(jsonText(message.serialiseMessage()),
                 QByteArray("{'DatacoreValidStatusMessage':{},'MessageBase':{'identifier':21,'type':2}}"));
        QVERIFY(DatacoreValidStatusMessage(message.serialiseMessage()) == message);
        // Read as another class it says nothing.
        const DatacoreActiveStatusMessage foreign(message.serialiseMessage());
        QCOMPARE(foreign.getIdentifier(), 0);
        QCOMPARE(int(foreign.getType()), 3);
    }

    void aNodeMakesTheClassesKnown()
    {
        const DatacoreBase node(QStringLiteral("x"), nullptr);
        QJsonArray array{DatacoreActiveStatusMessage(4).serialiseMessage(),
                         DatacoreValidStatusMessage(1, MessageBase::MessageType(3)).serialiseMessage(),
                         DatacoreJsonMessage(6).serialiseMessage(),
                         DatacoreJsonMessage(6, MessageBase::MessageType(9)).serialiseMessage()};
        log().expectError(QStringLiteral("Unsupported message type: 9"));
        const auto built = MessageBase::buildMessages(array);
        QCOMPARE(built.size(), size_t(3));
        QCOMPARE(built[0]->getText(), QStringLiteral("Parameter not supported for current video standard"));
        QCOMPARE(built[1]->getClass(), QStringLiteral("DatacoreValidStatusMessage"));
        QCOMPARE(built[2]->getClass(), QStringLiteral("DatacoreJsonMessage"));
        QCOMPARE(log().lines().size(), 1);
    }
};

WZ_TEST_CLASS(tst_DatacoreMessages)
#include "tst_DatacoreMessages.moc"
