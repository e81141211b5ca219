#include "presets/PresetFile.h"

#include "endtoend/Program.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

const QString kConnected = QStringLiteral("info: connected to 127.0.0.1:29440");

/// The offscreen platform has a small screen: the design size is scaled to fit it.
std::unique_ptr<Program> startClient(const QString& presetFile)
{
    return std::make_unique<Program>("wz_displayclient",
                                     QStringList{QStringLiteral("-DpresetFile=") + presetFile,
                                                 QStringLiteral("-Dwindowed=true"),
                                                 QStringLiteral("-Dtrace=startup")});
}

} // namespace

class tst_DisplayClient : public WzTest {
    Q_OBJECT
private slots:
    void layoutsSurviveARestart()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("state.json"));
        const auto instrument = startInstrument();
        QVERIFY(instrument);
        auto client = startClient(path);
        QVERIFY(client->complains(QStringLiteral("first frame painted")));
        QVERIFY(client->prints(kConnected));
        client->signal(SIGTERM);
        QCOMPARE(client->exitCode(), 0);
        // Every element that a window asks for is there.
        QVERIFY2(!client->output().contains(QLatin1String("Invalid path")), qPrintable(client->output()));

        auto preset = PresetFile::load(path);
        QVERIFY(preset);
        auto layouts = preset->getWindowLayoutPresets();
        QCOMPARE(int(layouts.size()), 1);
        auto windows = layouts.front().getSubWindowPresets();
        QCOMPARE(int(windows.size()), 4);
        windows.resize(2);
        windows.back().setWindowBounds({1440, 810, 480, 270});
        layouts.front().setLayoutName(QStringLiteral("Mine"));
        layouts.front().setSubWindowPresets(windows);
        preset->setWindowLayoutPresets(layouts);
        QVERIFY(PresetFile::save(path, *preset));

        client = startClient(path);
        QVERIFY(client->complains(QStringLiteral("first frame painted")));
        client->signal(SIGTERM);
        QCOMPARE(client->exitCode(), 0);
        const auto restored = PresetFile::load(path)->getWindowLayoutPresets().front();
        QCOMPARE(restored.getLayoutName(), QStringLiteral("Mine"));
        QCOMPARE(restored.subWindowCount(), 2);
        QCOMPARE(restored.getSubWindowPresets().back().getWindowBounds(), QRect(1440, 810, 480, 270));
    }

    void theInstrumentMayComeAndGo()
    {
        QTemporaryDir folder;
        const auto client = startClient(folder.filePath(QStringLiteral("state.json")));
        QVERIFY(client->prints(QStringLiteral("info: no answer from 127.0.0.1:29440")));
        for (int i = 0; i < 2; ++i) {
            auto instrument = startInstrument();
            QVERIFY(instrument);
            QVERIFY(
                QTest::qWaitFor([&] { return client->output().count(kConnected) == i + 1; }, kStartTimeMs));
            instrument->signal(SIGKILL);
            QVERIFY(QTest::qWaitFor(
                [&] { return client->output().count(QStringLiteral("29440 lost")) == i + 1; }, kStartTimeMs));
        }
        client->signal(SIGTERM);
        QCOMPARE(client->exitCode(), 0);
    }

    /// Windows go while the connection does.
    void bothMayEndAtOnce()
    {
        QTemporaryDir folder;
        const auto instrument = startInstrument();
        QVERIFY(instrument);
        // Freed memory is overwritten, so that nobody gets away with using it.
        qputenv("MALLOC_PERTURB_", "165");
        const auto client = startClient(folder.filePath(QStringLiteral("state.json")));
        qunsetenv("MALLOC_PERTURB_");
        QVERIFY(client->prints(kConnected));
        QTest::qWait(2000); // for the meters to come
        client->signal(SIGTERM);
        instrument->signal(SIGKILL);
        QCOMPARE(client->exitCode(), 0);
    }

    void theChosenInstrumentIsRemembered_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("tried");
        QTest::newRow("another host") << QByteArray("127.0.0.2") << QStringLiteral("127.0.0.2");
        QTest::newRow("no address") << QByteArray("localhost;") << QStringLiteral("127.0.0.1");
    }
    void theChosenInstrumentIsRemembered()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, tried);
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("connection.ini")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("[connection]\naddress=" + stored + '\n') > 0);
        file.close();
        const auto client = startClient(folder.filePath(QStringLiteral("state.json")));
        QVERIFY(client->prints(QStringLiteral("no answer from %1:29440").arg(tried)));
        client->signal(SIGTERM);
        QCOMPARE(client->exitCode(), 0);
    }

    void aDamagedStateFileCostsNothingElse()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("state.json"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{\"Class\":\"ClientPreset\",\"window") > 0);
        file.close();
        const auto client = startClient(path);
        QVERIFY(client->complains(QStringLiteral("first frame painted")));
        QVERIFY(client->prints(QStringLiteral("is damaged")));
        client->signal(SIGTERM);
        QCOMPARE(client->exitCode(), 0);
        QCOMPARE(QDir(folder.path()).entryList({QStringLiteral("state.json.damaged-*")}).size(), 1);
        QVERIFY(PresetFile::load(path));
    }
};

WZ_TEST_CLASS(tst_DisplayClient)
#include "tst_DisplayClient.moc"
