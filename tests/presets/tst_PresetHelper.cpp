#include "network/SerialisableDataPacketDistributor.h"
#include "presets/PresetHelper.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QElapsedTimer>
#include <QFile>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

QStringList names(const char* list)
{
    return QString::fromUtf8(list).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

PresetInventory inventoryOf(const QStringList& names)
{
    std::deque<PresetInventory::PresetInventoryItem> items;
    for (const QString& name : names)
        items.push_back({name});
    PresetInventory inventory;
    inventory.setPresetInventory(items);
    return inventory;
}

/// A helper whose order is kept in a folder, as one program after the other has it.
struct Client {
    explicit Client(const QTemporaryDir& folder)
    {
        helper.setOrderFolder(folder.filePath(QStringLiteral("new")));
    }
    QStringList hears(const char* list)
    {
        distributor.acceptPacket(inventoryOf(names(list)));
        return helper.getPresetList();
    }
    SerialisableDataPacketDistributor distributor;
    PresetHelper helper{distributor};
};

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

} // namespace

/// The list of presets in the user's order.
class tst_PresetHelper : public WzTest {
    Q_OBJECT
private slots:
    void init()
    {
        WzTest::init();
        m_folder.emplace();
    }

    void theListHoldsWhatTheUserMaySee()
    {
        Client client(*m_folder);
        QSignalSpy updates(&client.helper, &PresetHelper::presetsUpdated);
        QCOMPARE(client.hears("B,lastKnownState,A,,B,a"), names("B,A,a"));
        QCOMPARE(updates.size(), 1);
        QCOMPARE(client.hears(""), QStringList());
        // What holds no list changes nothing.
        QCOMPARE(client.hears("A"), names("A"));
        client.distributor.acceptPacket(PresetInventory());
        QJsonObject wrong{{QStringLiteral("Class"), QStringLiteral("PresetInventory")},
                          {QStringLiteral("PresetInventory"), QStringLiteral("A")}};
        client.distributor.acceptPacket(SerialisableDataPacket::fromJson(wrong));
        QCOMPARE(client.helper.getPresetList(), names("A"));
        // Entries of any other form are left out.
        wrong.insert(QStringLiteral("PresetInventory"),
                     QJsonArray{7, QStringLiteral("A"), QJsonObject(),
                                QJsonObject{{QStringLiteral("Name"), 7}},
                                QJsonObject{{QStringLiteral("Name"), QStringLiteral("C")},
                                            {QStringLiteral("Saved"), -1e300}}});
        client.distributor.acceptPacket(SerialisableDataPacket::fromJson(wrong));
        QCOMPARE(client.helper.getPresetList(), names("C"));
        QCOMPARE(client.helper.savedAt(QStringLiteral("C")), qint64(0));
    }

    void theOrderIsKept()
    {
        {
            Client client(*m_folder);
            client.hears("A,B,C,D");
            client.helper.setNewPresetOrder(names("D,B,not there,A,C"));
            QCOMPARE(client.helper.getPresetList(), names("D,B,A,C"));
        }
        Client client(*m_folder);
        QCOMPARE(client.hears("A,B,C,D,E"), names("D,B,A,C,E"));
        // What is not there for a while comes back to its place.
        QCOMPARE(client.hears("A,C"), names("A,C"));
        client.helper.setNewPresetOrder(names("C,A"));
        QCOMPARE(client.hears("A,B,C,D"), names("D,B,C,A"));
    }

    void itFollowsWhatTheInstrumentHasDone_data()
    {
        QTest::addColumn<QString>("renamed");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QStringList>("list");
        QTest::newRow("renamed") << "X"
                                 << "A,C,X" << names("C,X,A");
        QTest::newRow("not renamed") << "X"
                                     << "A,B,C" << names("C,B,A");
        QTest::newRow("renamed and one more") << "X"
                                              << "A,C,Q,X" << names("C,X,A,Q");
        QTest::newRow("deleted") << QString() << "A,C" << names("C,A");
        QTest::newRow("not deleted") << QString() << "A,B,C" << names("C,B,A");
    }
    void itFollowsWhatTheInstrumentHasDone()
    {
        QFETCH(QString, renamed);
        QFETCH(QString, answer);
        QFETCH(QStringList, list);
        Client client(*m_folder);
        client.hears("A,B,C");
        client.helper.setNewPresetOrder(names("C,B,A"));
        if (renamed.isEmpty())
            client.helper.setDeletedPreset(QStringLiteral("B"));
        else
            client.helper.setRenamedPreset(QStringLiteral("B"), renamed);
        QCOMPARE(client.hears(answer.toUtf8().constData()), list);
        Client next(*m_folder);
        QCOMPARE(next.hears(answer.toUtf8().constData()), list);
    }

    /// The row stays where the user sees it, although nobody has put it there.
    void aRenamedOneStaysWhereNothingWasOrdered()
    {
        Client client(*m_folder);
        client.hears("A,B,C");
        client.helper.setRenamedPreset(QStringLiteral("A"), QStringLiteral("Z"));
        QCOMPARE(client.hears("B,C,Z"), names("Z,B,C"));
    }

    void aDamagedOrderIsSetAside_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("torn") << QByteArray("{\"presets\":[\"B\"");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("another type") << QByteArray("{\"presets\":7}");
        QTest::newRow("no object") << QByteArray("[\"B\"]");
    }
    void aDamagedOrderIsSetAside()
    {
        QFETCH(QByteArray, text);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("new")));
        Client client(*m_folder);
        write(client.helper.presetOrderFilename(), text);
        QCOMPARE(client.hears("A,B"), names("A,B"));
        QVERIFY(!QFile::exists(client.helper.presetOrderFilename()));
        const QDir folder(m_folder->filePath(QStringLiteral("new")));
        QCOMPARE(folder.entryList({QStringLiteral("*.damaged-*")}, QDir::Files).size(), 1);
        client.helper.setNewPresetOrder(names("B,A"));
        QCOMPARE(Client(*m_folder).hears("A,B"), names("B,A"));
    }

    void olderFilesAreTakenOverOnce()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("new")));
        const QString old = m_folder->filePath(QStringLiteral("new/SDI_and_SDI_Stress_Toolset.txt"));
        write(m_folder->filePath(QStringLiteral("new/IP_Toolset.txt")), "D\r\n\nB\n");
        write(old, " C\nB\n");
        QCOMPARE(Client(*m_folder).hears("A,B,C,D"), names("D,B,C,A"));
        QVERIFY(!QFile::exists(old));
        QVERIFY(QFile::exists(old + QLatin1String(".merged")));
        // One that turns up later does not undo what the user has chosen since.
        Client client(*m_folder);
        client.hears("A,B,C,D");
        client.helper.setNewPresetOrder(names("A,B,C,D"));
        write(old, "C\n");
        QCOMPARE(Client(*m_folder).hears("A,B,C,D"), names("A,B,C,D"));
    }

    void thousandsOfNamesAreNoTrouble()
    {
        QStringList many;
        for (int i = 0; i < PresetHelper::kMostPresets + 5; ++i)
            many << QStringLiteral("Preset %1").arg(i);
        Client client(*m_folder);
        client.distributor.acceptPacket(inventoryOf(many));
        QCOMPARE(client.helper.getPresetList().size(), PresetHelper::kMostPresets);
        QStringList reversed = client.helper.getPresetList();
        std::reverse(reversed.begin(), reversed.end());
        client.helper.setNewPresetOrder(reversed);
        QCOMPARE(client.helper.getPresetList(), reversed);
    }

    void aFolderThatCannotBeWrittenCostsTheOrderOnly()
    {
        Client client(*m_folder);
        client.helper.setOrderFolder(QStringLiteral("/proc/none"));
        client.hears("A,B");
        client.helper.setNewPresetOrder(names("B,A"));
        QCOMPARE(client.hears("A,B"), names("B,A"));
        QVERIFY(!client.helper.savePresetsOrder());
    }

private:
    std::optional<QTemporaryDir> m_folder;
};

WZ_TEST_CLASS(tst_PresetHelper)
#include "tst_PresetHelper.moc"
