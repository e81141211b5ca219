#include "presets/PresetFile.h"

#include "endtoend/Program.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

/// A user before a display client, which the test drives by its standard input.
class User {
public:
    User(const QTemporaryDir& folder, const char* name)
        : m_file(folder.filePath(QString::fromLatin1(name) + QLatin1String("/state.json")))
    {
    }
    QString file() const { return m_file; }

    void start()
    {
        m_client = std::make_unique<Program>(
            "driven_client",
            QStringList{QStringLiteral("-DpresetFile=") + m_file, QStringLiteral("-Dwindowed=true")});
    }
    /// Nothing of its own to do is left to the program.
    void kill()
    {
        m_client->signal(SIGKILL);
        m_client->exitCode();
        m_client.reset();
    }
    /// As the user would.
    void quit()
    {
        m_client->signal(SIGTERM);
        QCOMPARE(m_client->exitCode(), 0);
        m_client.reset();
    }
    QString ask(const char* line)
    {
        m_client->say(QString::fromUtf8(line));
        const bool isAnswered = QTest::qWaitFor(
            [this] {
                const QString output = m_client->output();
                const int place = output.indexOf(QLatin1String("= "));
                return place >= 0 && output.indexOf(QLatin1Char('\n'), place) > 0;
            },
            kStartTimeMs);
        const QString answer =
            m_client->output().section(QLatin1String("= "), 1).section(QLatin1Char('\n'), 0, 0);
        return isAnswered ? answer : QStringLiteral("no answer");
    }
    bool answers(const char* line, const char* text)
    {
        return QTest::qWaitFor([&] { return ask(line) == QString::fromUtf8(text); }, kStartTimeMs);
    }
    bool logs(const QString& text) { return m_client->prints(text); }

private:
    const QString m_file;
    std::unique_ptr<Program> m_client;
};

} // namespace

/// What users save is found again, whatever ends and in whatever way.
class tst_PresetsOfUsers : public WzTest {
    Q_OBJECT
private slots:
    void init()
    {
        WzTest::init();
        m_folder.emplace();
        startInstrument();
    }
    void cleanup()
    {
        m_instrument.reset();
        m_folder.reset();
        WzTest::cleanup();
    }

    void aScreenSavedByNameIsFoundAgain()
    {
        User user(*m_folder, "user");
        user.start();
        QVERIFY(user.answers("connected", "yes"));
        user.ask("run newLayout");
        user.ask("run lightTheme");
        const QString screen = user.ask("screen");
        QCOMPARE(screen, QStringLiteral("Layout 1:4 Layout 2:0 light"));
        user.ask("key Ctrl+S");
        user.ask("type Stage 1/2");
        user.ask("key Return");
        QVERIFY(user.answers("presets", "Stage 1/2"));
        // What the user hears of is on the disk.
        m_instrument->signal(SIGKILL);
        user.kill();
        m_instrument.reset();
        QVERIFY(QFile::remove(user.file()) || !QFile::exists(user.file()));

        startInstrument();
        user.start();
        QVERIFY(user.answers("presets", "Stage 1/2"));
        const QString before = user.ask("run newLayout");
        user.ask("load Stage 1/2");
        QVERIFY(user.answers("screen", "Layout 1:4 Layout 2:0 light"));
        // And back again.
        user.ask("key Ctrl+Z");
        QCOMPARE(user.ask("screen"), before);
        user.quit();
    }

    /// What is asked of the instrument at the end arrives before the end.
    void theLastScreenComesBackFromTheInstrument()
    {
        User user(*m_folder, "user");
        user.start();
        QVERIFY(user.answers("presets", ""));
        QVERIFY(user.answers("connected", "yes"));
        QTest::qWait(300); // the instrument has said that it knows of no last state
        user.ask("run newLayout");
        user.quit();
        m_instrument->signal(SIGKILL);
        m_instrument.reset();
        QVERIFY(QFile::remove(user.file()));

        startInstrument();
        user.start();
        QVERIFY(user.answers("screen", "Layout 1:4 Layout 2:0 dark"));
        // Never on a reconnection: what the user has done stays.
        user.ask("run lightTheme");
        m_instrument->signal(SIGKILL);
        m_instrument.reset();
        QVERIFY(user.answers("connected", "no"));
        startInstrument();
        QVERIFY(user.answers("connected", "yes"));
        QTest::qWait(500);
        QCOMPARE(user.ask("screen"), QStringLiteral("Layout 1:4 Layout 2:0 light"));
        user.quit();
    }

    /// The file may come from a copy of long ago.
    void theYoungerOfBothIsShown_data()
    {
        QTest::addColumn<int>("fileIsOlderBy");
        QTest::addColumn<QString>("screen");
        QTest::newRow("older file") << 1 << QStringLiteral("Layout 1:4 Layout 2:0 dark");
        QTest::newRow("as young") << 0 << QStringLiteral("Layout 1:4 dark");
    }
    void theYoungerOfBothIsShown()
    {
        QFETCH(int, fileIsOlderBy);
        QFETCH(QString, screen);
        User user(*m_folder, "user");
        user.start();
        QVERIFY(user.answers("connected", "yes"));
        QTest::qWait(300);
        user.ask("run newLayout");
        user.quit();
        auto preset = PresetFile::load(user.file());
        QVERIFY(preset);
        auto layouts = preset->getWindowLayoutPresets();
        layouts.pop_back();
        preset->setWindowLayoutPresets(layouts);
        WzClientSettingsPreset settings = preset->getClientSettingsPreset();
        const QLatin1String revision("revision");
        settings.set(revision, settings.get(revision).toInt() - fileIsOlderBy);
        preset->setClientSettingsPreset(settings);
        QVERIFY(PresetFile::save(user.file(), *preset));
        user.start();
        QCOMPARE(user.ask("screen"), QStringLiteral("Layout 1:4 dark"));
        QVERIFY(user.answers("connected", "yes"));
        QTest::qWait(300);
        QCOMPARE(user.ask("screen"), screen);
        user.quit();
    }

    /// Who has begun to work before the instrument was there keeps what he did.
    void workBeforeTheFirstConnectionStays()
    {
        User user(*m_folder, "user");
        user.start();
        QVERIFY(user.answers("connected", "yes"));
        QTest::qWait(300);
        user.ask("run lightTheme");
        user.quit();
        QVERIFY(QFile::remove(user.file()));
        m_instrument.reset();

        user.start();
        QCOMPARE(user.ask("screen"), QStringLiteral("Layout 1:4 dark"));
        QTest::qWait(700);
        user.ask("run newLayout");
        startInstrument();
        QVERIFY(user.logs(QStringLiteral("comes after the user has begun")));
        QCOMPARE(user.ask("screen"), QStringLiteral("Layout 1:4 Layout 2:0 dark"));
        user.quit();
    }

    void twoUsersDoNotDisturbEachOther()
    {
        User first(*m_folder, "first");
        User second(*m_folder, "second");
        first.start();
        second.start();
        QVERIFY(first.answers("connected", "yes") && second.answers("connected", "yes"));
        first.ask("run lightTheme");
        first.ask("key Ctrl+S");
        first.ask("type Light");
        first.ask("key Return");
        QVERIFY(first.answers("presets", "Light"));
        QVERIFY(second.answers("presets", "Light"));
        second.ask("run newLayout");
        QCOMPARE(second.ask("screen"), QStringLiteral("Layout 1:4 Layout 2:0 dark"));
        first.ask("load Light");
        QVERIFY(first.answers("screen", "Layout 1:4 light"));
        QCOMPARE(second.ask("screen"), QStringLiteral("Layout 1:4 Layout 2:0 dark"));
        // Each finds its own screen again, although both come from one address.
        first.quit();
        second.quit();
        m_instrument->signal(SIGKILL);
        m_instrument.reset();
        startInstrument();
        first.start();
        second.start();
        QVERIFY(first.answers("presets", "Light") && second.answers("presets", "Light"));
        QTest::qWait(300);
        QCOMPARE(first.ask("screen"), QStringLiteral("Layout 1:4 light"));
        QCOMPARE(second.ask("screen"), QStringLiteral("Layout 1:4 Layout 2:0 dark"));
        first.quit();
        second.quit();
    }

private:
    void startInstrument()
    {
        m_instrument =
            ::startInstrument({QStringLiteral("--state-dir"), m_folder->filePath(QStringLiteral("state"))});
        QVERIFY(m_instrument);
    }

    std::optional<QTemporaryDir> m_folder;
    std::unique_ptr<Program> m_instrument;
};

WZ_TEST_CLASS(tst_PresetsOfUsers)
#include "tst_PresetsOfUsers.moc"
