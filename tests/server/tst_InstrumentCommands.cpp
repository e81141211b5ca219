#include "commands/NumberedCommand.h"
#include "datacore/ElementPaths.h"
#include "network/events/PtpEventPacket.h"
#include "network/events/SfpEventPacket.h"
#include "server/core/Instrument.h"
#include "server/core/SimulatedSdiDriver.h"

#include "server/support/MirrorClient.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDir>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <memory>
#include <optional>

using namespace Velmora::Server;
using ServerCommon::DatacoreTree;
using Command = NumberedCommand;
namespace Paths = ElementPaths;

namespace {

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

QString persistent(QLatin1String path)
{
    return fullPath(DatacoreTree::PersistentConfiguration, path);
}

QString command(QLatin1String path)
{
    return fullPath(DatacoreTree::Command, path);
}

} // namespace

/// What the instrument does of itself for a client that gives it a number, and what it keeps.
class tst_InstrumentCommands : public WzTest {
    Q_OBJECT
private slots:
    void init()
    {
        WzTest::init();
        start();
    }
    void cleanup()
    {
        m_client.reset();
        m_instrument.reset();
        WzTest::cleanup();
    }

    void logsComeToWhoeverAsks()
    {
        m_instrument->events().raise(SfpEventPacket(text("SFP 1 came")));
        m_instrument->events().raise(anotherEvent());
        m_instrument->events().raise(SfpEventPacket(text("SFP 1 went")));
        QTRY_VERIFY(m_client->events.contains(text("SFP 1 went")));
        QTcpSocket other;
        other.connectToHost(QHostAddress::LocalHost, m_instrument->server().port());
        QTRY_COMPARE(m_instrument->server().clientCount(), 2);
        // Until it has all that a new client gets.
        QByteArray heard;
        QTRY_VERIFY((heard += other.readAll()).contains("SFP 1 went"));
        QTest::qWait(50);
        other.readAll();
        const int before = m_client->events.size();
        QVERIFY(execute(numberOf(Command::RequestSfpLogs)));
        // They are there before the answer is, each marked, and none of another kind.
        QCOMPARE(m_requested, QStringList({text("SFP 1 came"), text("SFP 1 went")}));
        QCOMPARE(m_client->events.size(), before);
        QTest::qWait(50);
        QVERIFY(!other.readAll().contains("SequencePackagedLogPacket"));
        // Once more, and of a kind that there is nothing of.
        QVERIFY(execute(numberOf(Command::RequestSfpLogs)));
        QVERIFY(execute(numberOf(Command::RequestScte104Logs)));
        QCOMPARE(m_requested.size(), 4);
    }

    void theLogIsReset()
    {
        m_instrument->events().raise(SfpEventPacket(text("SFP 1 came")));
        QVERIFY(execute(numberOf(Command::ResetEventLog)));
        QCOMPARE(m_client->events, QStringList{text("Event Logging Reset")});
        QVERIFY(execute(numberOf(Command::RequestSfpLogs)));
        QVERIFY(m_requested.isEmpty());
    }

    void inputsAreChosen()
    {
        const QStringList names = SignalInput::sourceNames();
        QCOMPARE(names.size(), numberOf(Command::SelectSource11) - numberOf(Command::SelectSource1) + 1);
        const QString chosen = config(Paths::SignalSource::kName);
        for (const int position : {1, 10, 0}) {
            QVERIFY(execute(numberOf(numbered(Command::SelectSource1, position))));
            QTRY_COMPARE(m_client->node(chosen)->getData(), names.at(position));
        }
        QVERIFY(execute(numberOf(Command::AnalyseSdi)));
        // There is no such input here, which leaves all as it is.
        QVERIFY(!execute(numberOf(Command::AnalyseIp2110)));
        const QString mode = config(Paths::Analyser::kMode);
        QCOMPARE(m_client->node(mode)->getData(), text("SDI"));
        QVERIFY(m_client->node(mode)->isValid());
    }

    void othersAreRefused_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("of the client") << 0;
        QTest::newRow("reserved") << numberOf(Command::Reserved47);
        QTest::newRow("beyond") << 106;
        QTest::newRow("negative") << -1;
    }
    void othersAreRefused()
    {
        QFETCH(int, number);
        QVERIFY(!execute(number));
        QVERIFY(log().contains(text("Command %1 cannot be carried out here").arg(number)));
        // The next one is not refused for it.
        QVERIFY(execute(numberOf(Command::ResetPeakHold)));
    }

    void outputsAreMeasuredWhileTheySend()
    {
        ClientDatacore* const measure = m_client->node(command(Paths::SdiDriverCommands::kMeasure));
        ClientDatacore* const measured = m_client->node(status(Paths::SdiDriverStatus::kMeasurement));
        measure->setDataStringList({text("1"), text("40")});
        QTRY_VERIFY(!measure->isValid());
        m_client->node(config(Paths::SdiOutput::kGenerate))->setDataBool(true);
        QTRY_COMPARE(m_client->node(status(Paths::SdiOutputStatus::kIdle))->getData(), text("false"));
        measure->setDataStringList({text("1"), text("40")});
        QTRY_COMPARE(measured->getDataList().mid(0, 2), QStringList({text("1"), text("40")}));
        QVERIFY(measure->isValid());
        // Default seed 1; the outputs follow.
        const double expected = SimulatedSdiDriver(1 + 1).amplitudeAt(40);
        QVERIFY(qAbs(measured->getDataList().at(2).toDouble() - expected) < 6 * SimulatedSdiDriver::kNoise);
        for (const QStringList& wrong :
             {QStringList{text("4"), text("0")}, QStringList{text("0"), text("64")}, QStringList{text("0")},
              QStringList{text("a"), text("b")}, QStringList{}}) {
            measure->setDataStringList(wrong);
            QTRY_VERIFY2(!measure->isValid(), qPrintable(wrong.join(QLatin1Char(' '))));
            measure->setDataStringList({text("0"), text("0")});
            QTRY_VERIFY(measure->isValid());
        }
    }

    void settingsOutliveTheInstrument()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(text("state/settings.json"));
        restart(file);
        const QString gain = persistent(Paths::SdiDriver::kGain[2]);
        const QString address = persistent(Paths::VelmEth::kAddresses[0]);
        const QStringList addresses = text("10.1.2.3 24 10.1.2.1 0.0.0.0 0.0.0.0").split(QLatin1Char(' '));
        m_client->node(gain)->setDataUint(33);
        m_client->node(address)->setDataStringList(addresses);
        // Invalid: it is shown, and not kept.
        m_client->node(persistent(Paths::SdiDriver::kGain[3]))->setDataUint(64);
        QTRY_VERIFY(!m_client->node(persistent(Paths::SdiDriver::kGain[3]))->isValid());
        QTRY_VERIFY(m_client->node(address)->isInSyncWithServer());
        restart(file);
        QCOMPARE(m_client->node(gain)->getData(), text("33"));
        QCOMPARE(m_client->node(address)->getDataList(), addresses);
        QCOMPARE(m_client->node(status(Paths::VelmEthStatus::kAddresses[0]))->getDataList(), addresses);
        QCOMPARE(m_client->node(persistent(Paths::SdiDriver::kGain[3]))->getData(), text("20"));
    }

    void damagedSettingsAreSetAside_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("setAside");
        const QByteArray gain = "\"persistentConfigCoreRouter/sdiDriverA/gain\"";
        QTest::newRow("torn") << QByteArray("{" + gain + ": [\"3") << 1;
        QTest::newRow("no object") << QByteArray("[1, 2]") << 1;
        QTest::newRow("empty") << QByteArray() << 1;
        QTest::newRow("another tree")
            << QByteArray("{\"configCoreRouter/sdiOutput/generate\": [\"true\"]}") << 0;
        QTest::newRow("unknown, and no array") << QByteArray("{\"nothing\": 3, " + gain + ": 7}") << 0;
        QTest::newRow("beyond its limits") << QByteArray("{" + gain + ": [\"99\"]}") << 0;
    }
    void damagedSettingsAreSetAside()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, setAside);
        const QTemporaryDir folder;
        QFile file(folder.filePath(text("settings.json")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        restart(file.fileName());
        QCOMPARE(m_client->node(persistent(Paths::SdiDriver::kGain[0]))->getData(), text("20"));
        QCOMPARE(m_client->node(config(Paths::SdiOutput::kGenerate))->getData(), text("false"));
        QVERIFY(log().contains(setAside ? text("is damaged") : text("cannot be used")));
        QCOMPARE(QDir(folder.path()).entryList({text("settings.json.damaged-*")}).size(), setAside);
    }

private:
    static PtpEventPacket anotherEvent() { return PtpEventPacket(); }

    void start(const QString& settings = {})
    {
        m_instrument.emplace(SignalChoice());
        if (!settings.isEmpty())
            m_instrument->keepSettings(settings);
        QString error;
        QVERIFY2(m_instrument->listen(QHostAddress::LocalHost, error, 0, 0), qPrintable(error));
        m_client.emplace(m_instrument->server());
        m_requested.clear();
        using Handler = WzClientSequencePackagedLogPacketHandler;
        connect(&m_client->logHandler, &Handler::requestedLogEvent, this,
                [this](EventKind, const QDateTime&, const QString& event) { m_requested << event; });
        // The last of all.
        QTRY_VERIFY(m_client->hasValue(status(Paths::LoggingStatus::kKeptEvents)));
        QTRY_VERIFY(m_client->hasValue(persistent(Paths::VelmEth::kAddresses[1])));
    }
    void restart(const QString& settings)
    {
        m_client.reset();
        m_instrument.reset();
        start(settings);
    }
    /// Whether the instrument has taken it.
    bool execute(int number)
    {
        ClientDatacore* const node = m_client->node(command(Paths::CommandExecutor::kExecute));
        node->setDataInt(number);
        if (!QTest::qWaitFor([node] { return node->isInSyncWithServer(); }))
            return false;
        QCoreApplication::processEvents();
        return node->isValid();
    }

    std::optional<Instrument> m_instrument;
    std::optional<MirrorClient> m_client;
    QStringList m_requested;
};

WZ_TEST_CLASS(tst_InstrumentCommands)
#include "tst_InstrumentCommands.moc"
