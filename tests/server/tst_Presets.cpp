#include "datacore/ElementPaths.h"
#include "presets/PresetInventory.h"
#include "presets/WzClientPresetManager.h"
#include "server/core/Instrument.h"
#include "server/presets/PresetStore.h"

#include "server/support/MirrorClient.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Velmora::Server;

namespace {

WzClientPreset presetWithLayout(const QString& layout)
{
    WindowLayoutPreset layoutPreset;
    layoutPreset.setLayoutName(layout);
    WzClientPreset preset;
    preset.setWindowLayoutPresets({layoutPreset});
    return preset;
}

QString layoutOf(const WzClientPreset& preset)
{
    return preset.containsWindowLayoutPresets() ? preset.getWindowLayoutPresets().front().getLayoutName()
                                                : QString();
}

/// Hears what presets there are.
struct InventoryAcceptor : SerialisableDataPacketAcceptorInterface {
    bool canAcceptPacket(const QString& className) const override
    {
        return className == PresetInventory::kClassName;
    }
    void acceptPacket(const SerialisableDataPacket& packet) override
    {
        bool ok = false;
        const auto inventory =
            SerialisableDataPacket::createChildTypePacketFromParentTypePacket<PresetInventory>(packet, ok);
        names.clear();
        for (const auto& item : inventory.getPresetInventoryItems())
            names << item.name;
        ++count;
    }
    QStringList names;
    int count = 0;
};

} // namespace

/// Presets as the instrument keeps them.
class tst_Presets : public WzTest {
    Q_OBJECT

private slots:
    void init()
    {
        WzTest::init();
        m_folder.emplace();
    }
    void cleanup()
    {
        stop();
        m_folder.reset();
        WzTest::cleanup();
    }

    void namesAreKeptAsTheyAre_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isPossible");
        const auto row = [](const char* title, const QString& name, bool isPossible) {
            QTest::newRow(title) << name << isPossible;
        };
        row("plain", QStringLiteral("Studio 1"), true);
        row("path", QStringLiteral("../../etc/passwd"), true);
        row("hidden", QStringLiteral(".x"), true);
        row("escape", QStringLiteral("%2F"), true);
        row("control characters", QStringLiteral("a\nb"), true);
        row("not Latin", QStringLiteral("Übertragungswagen 東京"), true);
        row("longest", QString(PresetStore::kLongestFileName - 5, QLatin1Char('x')), true);
        row("too long", QString(PresetStore::kLongestFileName - 4, QLatin1Char('x')), false);
        row("too long as a file", QString(80, QChar(0x6771)), false);
        row("empty", QString(), false);
        row("blank", QStringLiteral("  "), false);
        row("half a character", QString(QChar(0xD800)), false);
    }
    void namesAreKeptAsTheyAre()
    {
        QFETCH(QString, name);
        QFETCH(bool, isPossible);
        PresetStore store(path());
        QCOMPARE(store.save(name, presetWithLayout(QStringLiteral("one"))), isPossible);
        if (!isPossible)
            return;
        QVERIFY(store.save(QStringLiteral("other"), presetWithLayout(QStringLiteral("two"))));
        PresetStore again(path());
        QVERIFY(again.names().contains(name));
        QCOMPARE(again.names(), store.names());
        QCOMPARE(layoutOf(*again.load(name)), QStringLiteral("one"));
        QVERIFY(again.remove(name));
        QCOMPARE(PresetStore(path()).names(), QStringList{QStringLiteral("other")});
        QCOMPARE(QDir(path()).entryList(QDir::Files).size(), 1);
    }

    void caseMatters()
    {
        PresetStore store(path());
        QVERIFY(store.save(QStringLiteral("news"), presetWithLayout(QStringLiteral("one"))));
        QVERIFY(store.save(QStringLiteral("News"), presetWithLayout(QStringLiteral("two"))));
        QCOMPARE(layoutOf(*store.load(QStringLiteral("news"))), QStringLiteral("one"));
        QCOMPARE(layoutOf(*store.load(QStringLiteral("News"))), QStringLiteral("two"));
        QVERIFY(!store.rename(QStringLiteral("news"), QStringLiteral("News")));
        QCOMPARE(layoutOf(*store.load(QStringLiteral("News"))), QStringLiteral("two"));
        QVERIFY(store.rename(QStringLiteral("news"), QStringLiteral("sport")));
        const auto renamed = PresetStore(path()).load(QStringLiteral("sport"));
        QCOMPARE(layoutOf(*renamed), QStringLiteral("one"));
        QCOMPARE(renamed->getPresetName(), QStringLiteral("sport"));
    }

    void aDamagedFileIsSetAside()
    {
        PresetStore store(path());
        QVERIFY(store.save(QStringLiteral("good"), presetWithLayout(QStringLiteral("one"))));
        QFile file(path() + QStringLiteral("/bad.json"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("{\"half");
        file.close();
        PresetStore again(path());
        QVERIFY(!again.load(QStringLiteral("bad")));
        QCOMPARE(again.names(), QStringList{QStringLiteral("good")});
        QCOMPARE(QDir(path()).entryList({QStringLiteral("bad.json.damaged-*")}, QDir::Files).size(), 1);
    }

    void clientsKeepAndFindThem()
    {
        start();
        QTRY_COMPARE(m_inventory.count, 1); // which comes by itself
        m_layout = QStringLiteral("one");
        m_manager->onCreatePresetRequested(QStringLiteral("A"));
        QTRY_COMPARE(m_inventory.names, names("A"));
        m_layout = QStringLiteral("two");
        m_manager->onCreatePresetRequested(QStringLiteral("A"));
        QTRY_COMPARE(m_inventory.names, names("A,A (2)"));
        m_manager->onRenamePresetRequested(QStringLiteral("A (2)"), QStringLiteral("B"));
        QTRY_COMPARE(m_inventory.names, names("A,B"));
        m_layout = QStringLiteral("three");
        m_manager->onModifyPresetRequested(QStringLiteral("A"));
        m_layout = QStringLiteral("last");
        m_manager->onSaveLastKnownStateRequested();
        stop();

        start();
        QTRY_COMPARE(m_inventory.names, names("A,B"));
        // Whoever mirrors the trees can see them as well.
        const QString element = status(ElementPaths::ClientPresetsStatus::kNames);
        QTRY_VERIFY(m_client->hasValue(element));
        QTRY_COMPARE(m_client->node(element)->getDataList(), names("A,B"));
        QCOMPARE(loaded("A"), QStringLiteral("three"));
        QCOMPARE(loaded("B"), QStringLiteral("two"));
        QCOMPARE(loaded("lastKnownState"), QStringLiteral("last"));
        m_manager->onDeletePresetRequested(QStringLiteral("A"));
        QTRY_COMPARE(m_inventory.names, names("B"));
        QTRY_COMPARE(m_client->node(element)->getDataList(), names("B"));
    }

    void whatCannotBeDoneIsAnsweredToo()
    {
        start();
        QTRY_COMPARE(m_inventory.count, 1);
        QSignalSpy disturbing(m_manager.get(), &WzClientPresetManager::doNotDisturbChanged);
        m_manager->onLoadPresetRequested(QStringLiteral("none"));
        QTRY_COMPARE(disturbing.size(), 2);
        m_manager->onRenamePresetRequested(QStringLiteral("none"), QStringLiteral("other"));
        QTRY_COMPARE(m_inventory.count, 2);
        m_manager->onCreatePresetRequested(QStringLiteral("lastKnownState"));
        QTRY_COMPARE(m_inventory.count, 3);
        QVERIFY(m_inventory.names.isEmpty());
    }

private:
    QString path() const { return m_folder->filePath(QStringLiteral("presets")); }
    static QStringList names(const char* list) { return QString::fromLatin1(list).split(QLatin1Char(',')); }

    void start()
    {
        m_instrument.emplace(SignalChoice{});
        m_instrument->keepPresets(path());
        QString error;
        QVERIFY2(m_instrument->listen(QHostAddress::LocalHost, error, 0, 0), qPrintable(error));
        m_inventory = {};
        m_client.emplace(m_instrument->server());
        m_client->distributor.registerPacketAcceptor(&m_inventory, PresetInventory::kClassName);
        m_manager = std::make_unique<WzClientPresetManager>(m_client->connection, m_client->distributor);
        connect(m_manager.get(), &WzClientPresetManager::populateClientPreset, this,
                [this](WzClientPreset& preset) { preset = presetWithLayout(m_layout); });
        connect(m_manager.get(), &WzClientPresetManager::loadClientPreset, this,
                [this](WzClientPreset& preset) { m_loaded = layoutOf(preset); });
    }
    /// Not before the instrument has done what it was asked for.
    void stop()
    {
        if (!m_client)
            return;
        loaded("lastKnownState");
        m_manager.reset();
        m_client.reset();
        m_instrument.reset();
    }
    QString loaded(const char* name)
    {
        QSignalSpy disturbing(m_manager.get(), &WzClientPresetManager::doNotDisturbChanged);
        m_loaded.clear();
        m_manager->onLoadPresetRequested(QString::fromLatin1(name));
        disturbing.wait();
        return m_loaded;
    }

    std::optional<QTemporaryDir> m_folder;
    std::optional<Instrument> m_instrument;
    std::optional<MirrorClient> m_client;
    std::unique_ptr<WzClientPresetManager> m_manager;
    InventoryAcceptor m_inventory;
    QString m_layout;
    QString m_loaded;
};

WZ_TEST_CLASS(tst_Presets)
#include "tst_Presets.moc"
