#include "datacore/ElementPaths.h"
#include "remote/DriverCalibration.h"
#include "remote/RemoteDesk.h"
#include "server/core/Instrument.h"

#include "server/support/MirrorClient.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QThread>

#include <optional>

using namespace Velmora::Server;
using ServerCommon::DatacoreTree;
using OutputSpigot = Velmora::Types::OutputSpigot;
using Progress = WzExternalApi::DriverCalibrationProgress;
namespace Paths = ElementPaths;

namespace {

QString persistent(QLatin1String path)
{
    return fullPath(DatacoreTree::PersistentConfiguration, path);
}

} // namespace

/// The calibration against the instrument's outputs, with the interface on its own thread.
class tst_DriverCalibration : public WzTest {
    Q_OBJECT
private slots:
    void init()
    {
        WzTest::init();
        qRegisterMetaType<Progress>("WzExternalApi::DriverCalibrationProgress");
        qRegisterMetaType<OutputSpigot>("Velmora::Types::OutputSpigot");
        m_lines.clear();
        m_progress.clear();
        m_finished = 0;
        m_instrument.emplace(SignalChoice());
        QString error;
        QVERIFY2(m_instrument->listen(QHostAddress::LocalHost, error, 0, 0), qPrintable(error));
        m_client.emplace(m_instrument->server());
        m_api = new WzExternalApi;
        m_desk.emplace(*m_api, m_client->datacores.getClientDatacoreRegistry());
        connect(m_api, &WzExternalApi::newConsoleLine, &*m_desk,
                [this](const QString& line) { m_lines << line; });
        connect(m_api, &WzExternalApi::commandFinished, &*m_desk, [this] { ++m_finished; });
        connect(m_api, &WzExternalApi::driverCalibrationProgressUpdated, &*m_desk,
                [this](Progress progress, OutputSpigot, double, double) { m_progress << progress; });
        m_thread.emplace();
        m_api->moveToThread(&*m_thread);
        m_thread->start();
    }
    void cleanup()
    {
        m_thread->quit();
        m_thread->wait();
        delete m_api;
        m_desk.reset();
        m_client.reset();
        m_instrument.reset();
        m_thread.reset();
        WzTest::cleanup();
    }

    void theOutputThenHasItsAmplitude_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("output");
        QTest::addColumn<double>("amplitude");
        QTest::newRow("a") << QStringLiteral("calibrate_driver_a") << 0 << 800.0;
        QTest::newRow("c, 700 mV") << QStringLiteral("calibrate_driver_c 700") << 2 << 700.0;
        QTest::newRow("d, 0") << QStringLiteral("calibrate_driver_d 0") << 3 << 800.0;
    }
    void theOutputThenHasItsAmplitude()
    {
        QFETCH(QString, command);
        QFETCH(int, output);
        QFETCH(double, amplitude);
        QTRY_VERIFY(m_client->hasValue(persistent(Paths::VelmEth::kAddresses[1])));
        m_client->node(config(Paths::SdiOutput::kTestPattern))->setDataString(QStringLiteral("ramp"));
        QTest::qWait(50);
        run(command);
        QTRY_COMPARE_WITH_TIMEOUT(m_finished, 1, 20'000);
        QVERIFY2(m_progress.last() == Progress::Finished, qPrintable(m_lines.join(QLatin1Char('\n'))));
        QCOMPARE(m_progress.first(), Progress::Started);
        QCOMPARE(m_progress.count(Progress::Measuring), 22 * DriverCalibration::kPasses);
        // The generator is as it was.
        QTRY_COMPARE(value(config(Paths::SdiOutput::kTestPattern)), QStringLiteral("ramp"));
        QTRY_COMPARE(value(status(Paths::SdiOutputStatus::kIdle)), QStringLiteral("true"));
        // What an oscilloscope shows, not what the calibration thinks: within two steps of the gain.
        m_client->node(config(Paths::SdiOutput::kGenerate))->setDataBool(true);
        const QString shown = status(Paths::SdiDriverStatus::kAmplitude.at(std::size_t(output)));
        QTRY_VERIFY(!value(shown).isEmpty());
        QVERIFY2(qAbs(value(shown).toDouble() - amplitude) < 10, qPrintable(value(shown)));
        const auto found = Velmora::Sdi::DriverCharacteristics::fromItems(
            m_client->node(persistent(Paths::SdiDriver::kCharacteristics.at(std::size_t(output))))
                ->getDataList());
        QVERIFY(found && found->residual > 0 && found->residual < 5);
    }

    void whatCannotBeIsRefused_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("says");
        QTest::newRow("too much") << QStringLiteral("calibrate_driver_b 1200")
                                  << QStringLiteral("1200 mV cannot be had: 500 to 1100 mV can");
        QTest::newRow("beyond the driver")
            << QStringLiteral("calibrate_driver_b 500") << QStringLiteral("It does not reach 500 mV");
        QTest::newRow("no number") << QStringLiteral("calibrate_driver_b much")
                                   << QStringLiteral("\"much\" is no amplitude in mV");
    }
    void whatCannotBeIsRefused()
    {
        QFETCH(QString, command);
        QFETCH(QString, says);
        const QString gain = persistent(Paths::SdiDriver::kGain[1]);
        QTRY_VERIFY(m_client->hasValue(gain));
        const QString before = value(gain);
        run(command);
        QTRY_COMPARE_WITH_TIMEOUT(m_finished, 1, 20'000);
        QVERIFY2(m_lines.last().startsWith(says), qPrintable(m_lines.last()));
        QCOMPARE(value(gain), before);
    }

    void itIsCancelledAndOthersAreRefusedMeanwhile()
    {
        const QString gain = persistent(Paths::SdiDriver::kGain[0]);
        QTRY_VERIFY(m_client->hasValue(persistent(Paths::VelmEth::kAddresses[1])));
        const QString before = value(gain);
        invoke([this] { m_api->startDriverCalibration(OutputSpigot::A, 0); });
        QTRY_VERIFY(m_progress.contains(Progress::Measuring));
        run(QStringLiteral("calibrate_driver_b"));
        QTRY_COMPARE(m_finished, 1);
        QCOMPARE(m_lines,
                 QStringList({QStringLiteral("Calibrating driver B"),
                              QStringLiteral("A driver is being calibrated already")}));
        QVERIFY(!m_progress.contains(Progress::Finished));
        invoke([this] { m_api->cancelDriverCalibration(); });
        QTRY_COMPARE(m_progress.last(), Progress::Cancelled);
        QTRY_COMPARE(value(config(Paths::SdiOutput::kGenerate)), QStringLiteral("false"));
        QCOMPARE(value(gain), before);
        // The next one finds nothing in its way.
        run(QStringLiteral("calibrate_driver_b"));
        QTRY_COMPARE_WITH_TIMEOUT(m_finished, 2, 20'000);
        QCOMPARE(m_progress.last(), Progress::Finished);
    }

    void itEndsWithTheConnection()
    {
        QTRY_VERIFY(m_client->hasValue(persistent(Paths::VelmEth::kAddresses[1])));
        run(QStringLiteral("calibrate_driver_a"));
        QTRY_VERIFY(m_progress.count(Progress::Measuring) > 3);
        m_instrument.reset();
        QTRY_COMPARE_WITH_TIMEOUT(m_finished, 1, 10'000);
        QCOMPARE(m_progress.last(), Progress::Failed);
        QVERIFY2(m_lines.last().contains(QStringLiteral("connect")), qPrintable(m_lines.last()));
        QTest::qWait(100);
        QCOMPARE(m_finished, 1);
    }

    void addressesAreCheckedByTheInstrument_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<bool>("taken");
        const auto row = [](const char* arguments, bool taken) {
            QTest::newRow(arguments) << QString::fromLatin1(arguments) << taken;
        };
        row("10.1.2.3 24 10.1.2.1 8.8.8.8 0.0.0.0", true);
        row("10.1.2.3 24 0.0.0.0 0.0.0.0 0.0.0.0", true);
        row("10.1.2.2 31 10.1.2.3 0.0.0.0 0.0.0.0", true);
        row("10.1.2.3 24 10.1.3.1 0.0.0.0 0.0.0.0", false); // the gateway is elsewhere
        row("10.1.2.3 24 10.1.2.3 0.0.0.0 0.0.0.0", false); // its own gateway
        row("10.1.2.0 24 10.1.2.1 0.0.0.0 0.0.0.0", false); // the network itself
        row("10.1.2.255 24 10.1.2.1 0.0.0.0 0.0.0.0", false); // everybody
        row("0.0.0.0 24 10.1.2.1 0.0.0.0 0.0.0.0", false);
        row("239.1.2.3 24 10.1.2.1 0.0.0.0 0.0.0.0", false);
        row("127.0.0.2 24 127.0.0.1 0.0.0.0 0.0.0.0", false);
        row("10.1.2.3 0 10.1.2.1 0.0.0.0 0.0.0.0", false);
        row("10.1.2.3 32 0.0.0.0 0.0.0.0 0.0.0.0", false);
        row("10.1.2.3 255.255.255.0 10.1.2.1 0.0.0.0 0.0.0.0", false);
        row("10.1.2.300 24 10.1.2.1 0.0.0.0 0.0.0.0", false);
        row("10.1.2.3 24 10.1.2.1 dns.example 0.0.0.0", false);
    }
    void addressesAreCheckedByTheInstrument()
    {
        QFETCH(QString, arguments);
        QFETCH(bool, taken);
        const QString present = status(Paths::VelmEthStatus::kAddresses[1]);
        QTRY_VERIFY(m_client->hasValue(present));
        const QStringList before = m_client->node(present)->getDataList();
        run(QStringLiteral("set_velmeth1_ip ") + arguments);
        QTRY_COMPARE(m_finished, 1);
        QVERIFY(m_lines.first().startsWith(QStringLiteral("Set velmEth1 IP addr = ")));
        if (taken) {
            QCOMPARE(m_lines.size(), 1);
            QTRY_COMPARE(m_client->node(present)->getDataList(), arguments.split(QLatin1Char(' ')));
            QTRY_VERIFY(m_client->events.last().startsWith(QStringLiteral("velmeth1 is set to 10.1.2.")));
        } else {
            QCOMPARE(m_lines.size(), 2);
            QVERIFY2(m_lines.last().startsWith(QStringLiteral("The instrument refuses it: ")),
                     qPrintable(m_lines.last()));
            QCOMPARE(m_client->node(present)->getDataList(), before);
        }
    }

private:
    template<typename Function>
    void invoke(Function function)
    {
        QMetaObject::invokeMethod(m_api, function, Qt::QueuedConnection);
    }
    void run(const QString& line)
    {
        invoke([this, line] { m_api->processCommand(line); });
    }
    QString value(const QString& path)
    {
        return m_client->node(path) ? m_client->node(path)->getData() : QString();
    }

    std::optional<Instrument> m_instrument;
    std::optional<MirrorClient> m_client;
    WzExternalApi* m_api = nullptr;
    std::optional<RemoteDesk> m_desk;
    std::optional<QThread> m_thread;
    QStringList m_lines;
    QList<Progress> m_progress;
    int m_finished = 0;
};

WZ_TEST_CLASS(tst_DriverCalibration)
#include "tst_DriverCalibration.moc"
