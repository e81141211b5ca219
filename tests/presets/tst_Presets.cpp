#include "network/SerialisableDataPacketDistributor.h"
#include "presets/ClientPresetCollection.h"
#include "presets/ClientPresetInteraction.h"
#include "presets/PresetFile.h"
#include "presets/PresetInventory.h"
#include "presets/WzClientPreset.h"
#include "presets/WzClientPresetManager.h"
#include "network/NetworkConnection.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

namespace {

QJsonObject jsonOf(const SerialisableDataPacket& packet)
{
    return QJsonDocument::fromJson(packet.serialise()).object();
}

/// The packet as it is after it has crossed the wire.
template<typename Preset>
Preset received(const SerialisableDataPacket& packet)
{
    bool ok = false;
    QJsonParseError error;
    auto preset = SerialisableDataPacket::createChildTypePacketFromParentTypePacket<Preset>(
        SerialisableDataPacket::deserialise(packet.serialise(), error), ok);
    return ok ? preset : Preset();
}

WzSubWindowPreset presetWith(const QString& key, const QJsonValue& value)
{
    QJsonObject object = jsonOf(WzSubWindowPreset(QStringLiteral("Waveform")));
    object.insert(key, value);
    return received<WzSubWindowPreset>(SerialisableDataPacket::fromJson(object));
}

} // namespace

class tst_Presets : public WzTest {
    Q_OBJECT
private slots:
    void aWindowKeepsItsKeys()
    {
        WzSubWindowPreset preset(QStringLiteral("Waveform"));
        preset.setWindowTitle(QStringLiteral("Waveform"));
        preset.setWindowRole(WindowRole::Generator);
        preset.setWindowBounds({480, 270, 960, 540});
        preset.setWindowLockedDefaultBounds({0, 0, 480, 270});
        preset.setWindowFullScreenInFocus(true);
        preset.setStayOnTopState(true);
        preset.setInstanceNumber(3);
        preset.setAnalyserId(4000000000U);
        const QJsonObject json = jsonOf(preset);
        const QJsonObject expected{{QStringLiteral("Class"), QStringLiteral("WzSubWindowPreset")},
                                   {QStringLiteral("windowContentClass"), QStringLiteral("Waveform")},
                                   {QStringLiteral("windowTitle"), QStringLiteral("Waveform")},
                                   {QStringLiteral("windowRole"), 1},
                                   {QStringLiteral("windowX"), 480},
                                   {QStringLiteral("windowY"), 270},
                                   {QStringLiteral("windowWidth"), 960},
                                   {QStringLiteral("windowHeight"), 540},
                                   {QStringLiteral("windowLockedDefaultX"), 0},
                                   {QStringLiteral("windowLockedDefaultY"), 0},
                                   {QStringLiteral("windowLockedDefaultWidth"), 480},
                                   {QStringLiteral("windowLockedDefaultHeight"), 270},
                                   {QStringLiteral("windowFullScreenInFocus"), true},
                                   {QStringLiteral("stayOnTop"), true},
                                   {QStringLiteral("instanceNumber"), 3},
                                   {QStringLiteral("analyserId"), 4000000000.0}};
        QCOMPARE(json, expected);
        const auto back = received<WzSubWindowPreset>(preset);
        QCOMPARE(back.getWindowBounds(), QRect(480, 270, 960, 540));
        QCOMPARE(back.getAnalyserId(), 4000000000U);
        QCOMPARE(back.getWindowRole(), WindowRole::Generator);
        QVERIFY(!back.containsWindowContentPreset());
    }

    /// What is missing, or of another type, counts as absent.
    void oddValuesCountAsAbsent_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QJsonValue>("value");
        const auto row = [](const char* key, const QJsonValue& value) {
            QTest::addRow("%s %s", key,
                          QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).constData())
                << QString::fromLatin1(key) << value;
        };
        for (const char* const key : {"windowTitle", "windowRole", "windowX", "windowFullScreenInFocus",
                                      "windowContentSettings", "stayOnTop", "instanceNumber", "analyserId"}) {
            row(key, QJsonValue());
            row(key, QJsonArray{1});
        }
        row("windowRole", 3);
        row("windowRole", -1);
        row("instanceNumber", 1.5);
        row("instanceNumber", 3e9);
        row("analyserId", -1);
        row("analyserId", 4294967296.0);
    }
    void oddValuesCountAsAbsent()
    {
        QFETCH(QString, key);
        QFETCH(QJsonValue, value);
        const WzSubWindowPreset preset = presetWith(key, value);
        QVERIFY(!preset.containsWindowTitle());
        QVERIFY(!preset.containsWindowRole());
        QVERIFY(!preset.containsWindowBounds());
        QVERIFY(!preset.containsWindowFullScreenInFocus());
        QVERIFY(!preset.containsWindowContentPreset());
        QVERIFY(!preset.containsStayOnTopState());
        QVERIFY(!preset.containsInstanceNumber());
        QVERIFY(!preset.containsAnalyserId());
        QCOMPARE(preset.getWindowRole(), WindowRole::Instrument);
    }

    void layoutsLeaveOutWhatIsNoWindow()
    {
        QJsonObject object = jsonOf(WindowLayoutPreset());
        object.insert(QStringLiteral("subWindowPresetArray"),
                      QJsonArray{jsonOf(WzSubWindowPreset(QStringLiteral("A"))), 7,
                                 jsonOf(WindowLayoutPreset()),
                                 jsonOf(WzSubWindowPreset(QStringLiteral("B")))});
        object.insert(QStringLiteral("subWindowOrderArray"),
                      QJsonArray{3, 1, 1, -1, 99, QStringLiteral("0"), 0});
        const auto layout = received<WindowLayoutPreset>(SerialisableDataPacket::fromJson(object));
        const auto windows = layout.getSubWindowPresets();
        QCOMPARE(int(windows.size()), 2);
        QCOMPARE(windows.back().getWindowContentClassName(), QStringLiteral("B"));
        QCOMPARE(layout.getSubWindowOrder(), (std::vector<int>{3, 1, 0}));
    }

    void interactionsCarryTheirKeysOnly()
    {
        WzClientPreset state;
        state.setPresetName(QStringLiteral("S"));
        ClientPresetInteraction interaction;
        interaction.setupAsCreateNewPresetInteraction(state, QStringLiteral("New"));
        QCOMPARE(received<ClientPresetInteraction>(interaction).getClientPreset().getPresetName(),
                 QStringLiteral("S"));
        interaction.setupAsUpdateExistingPresetNameInteraction(QStringLiteral("Now"),
                                                               QStringLiteral("Before"));
        const QJsonObject expected{{QStringLiteral("Class"), QStringLiteral("ClientPresetEncapsulator")},
                                   {QStringLiteral("InteractionId"), 4},
                                   {QStringLiteral("NewPresetName"), QStringLiteral("Now")},
                                   {QStringLiteral("PresetName"), QStringLiteral("Before")}};
        QCOMPARE(jsonOf(interaction), expected);
    }

    void theInventoryListsNames()
    {
        PresetInventory inventory;
        inventory.setPresetInventory({{QStringLiteral("A")}, {QStringLiteral("lastKnownState")}});
        const auto items = received<PresetInventory>(inventory).getPresetInventoryItems();
        QCOMPARE(int(items.size()), 2);
        QCOMPARE(items.back().name, QStringLiteral("lastKnownState"));
    }

    void aCollectionIsGivenOutOnce()
    {
        NetworkConnection connection(nullptr, false);
        SerialisableDataPacketDistributor distributor;
        WzClientPresetManager manager(connection, distributor);
        QStringList loaded;
        connect(&manager, &WzClientPresetManager::loadClientPreset, this,
                [&loaded](WzClientPreset& preset) { loaded << preset.getPresetName(); });
        QList<bool> disturb;
        connect(&manager, &WzClientPresetManager::doNotDisturbChanged, this,
                [&disturb](bool on) { disturb << on; });
        manager.onLoadPresetRequested(QStringLiteral("Studio"));
        WzClientPreset preset;
        preset.setPresetName(QStringLiteral("Studio"));
        ClientPresetCollection collection;
        collection.appendClientPreset(preset);
        distributor.acceptPacket(collection);
        distributor.acceptPacket(ClientPresetCollection());
        QCOMPARE(loaded, QStringList{QStringLiteral("Studio")});
        QCOMPARE(disturb, (QList<bool>{true, false, false}));
    }

    /// What was asked for to be written to a file changes nothing on the screen, and neither does what comes
    /// when the user has been told that it does not come.
    void onlyWhatIsWantedIsLoaded()
    {
        NetworkConnection connection(nullptr, false);
        SerialisableDataPacketDistributor distributor;
        WzClientPresetManager manager(connection, distributor);
        manager.setAnswerTimeout(20);
        QStringList loaded;
        QStringList fetched;
        QList<WzClientPresetManager::Answer> answers;
        connect(&manager, &WzClientPresetManager::loadClientPreset, this,
                [&loaded](WzClientPreset& preset) { loaded << preset.getPresetName(); });
        connect(&manager, &WzClientPresetManager::presetFetched, this,
                [&fetched](const WzClientPreset& preset) { fetched << preset.getPresetName(); });
        connect(&manager, &WzClientPresetManager::answered, this,
                [&answers](const QString&, WzClientPresetManager::Answer answer) { answers << answer; });
        const auto come = [&distributor](const char* name) {
            WzClientPreset preset;
            preset.setPresetName(QString::fromLatin1(name));
            ClientPresetCollection collection;
            collection.appendClientPreset(preset);
            distributor.acceptPacket(collection);
        };
        using Answer = WzClientPresetManager::Answer;
        manager.fetchPreset(QStringLiteral("A"));
        come("A");
        QCOMPARE(fetched, QStringList{QStringLiteral("A")});
        manager.onLoadPresetRequested(QStringLiteral("B"));
        QTRY_COMPARE(answers, (QList<Answer>{Answer::Came, Answer::None}));
        come("B");
        QVERIFY(loaded.isEmpty());
        // The next one is nobody's answer, and is shown; so is B when it is asked for again.
        come("C");
        manager.onLoadPresetRequested(QStringLiteral("B"));
        come("B");
        QCOMPARE(loaded, (QStringList{QStringLiteral("C"), QStringLiteral("B")}));
        manager.onLoadPresetRequested(QStringLiteral("D"));
        distributor.acceptPacket(ClientPresetCollection());
        QCOMPARE(answers.mid(2), (QList<Answer>{Answer::Came, Answer::NoSuchPreset}));
    }

    void aServerThatSaysNothingHoldsNobodyBack()
    {
        NetworkConnection connection(nullptr, false);
        SerialisableDataPacketDistributor distributor;
        WzClientPresetManager manager(connection, distributor);
        manager.setAnswerTimeout(20);
        bool doNotDisturb = false;
        connect(&manager, &WzClientPresetManager::doNotDisturbChanged, this,
                [&doNotDisturb](bool on) { doNotDisturb = on; });
        manager.onLoadPresetRequested(QStringLiteral("Nobody's"));
        QVERIFY(doNotDisturb);
        QTRY_VERIFY(!doNotDisturb);
    }

    void filesComeBack()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("new/state.json"));
        WzClientPreset preset;
        preset.setPresetName(QStringLiteral("Écran %1"));
        QVERIFY(PresetFile::save(path, preset));
        QCOMPARE(PresetFile::load(path)->getPresetName(), preset.getPresetName());
        QVERIFY(!PresetFile::load(folder.filePath(QStringLiteral("none"))));
    }

    /// Or it could not be read again.
    void whatIsTooLargeIsNotWritten()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("state.json"));
        WzClientPreset preset;
        QVERIFY(PresetFile::save(path, preset));
        preset.setPresetName(QString(static_cast<int>(PresetFile::kMaximumBytes), QLatin1Char('x')));
        QVERIFY(!PresetFile::save(path, preset));
        QVERIFY(PresetFile::load(path));
    }

    void damagedFilesAreSetAside_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("torn") << QByteArray("{\"Class\":\"ClientPr");
        QTest::newRow("no object") << QByteArray("[]");
        QTest::newRow("another class") << QByteArray("{\"Class\":\"WindowLayoutPreset\"}");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("binary") << QByteArray("\x00\xff\xfe", 3);
    }
    void damagedFilesAreSetAside()
    {
        QFETCH(QByteArray, content);
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("state.json"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QVERIFY(!PresetFile::load(path));
        QVERIFY(!QFile::exists(path));
        const QStringList kept = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(kept.size(), 1);
        QFile aside(folder.filePath(kept.first()));
        QVERIFY(aside.open(QIODevice::ReadOnly));
        QCOMPARE(aside.readAll(), content);
    }
};

WZ_TEST_CLASS(tst_Presets)
#include "tst_Presets.moc"
