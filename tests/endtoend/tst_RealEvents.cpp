#include "presets/PresetFile.h"

#include "endtoend/Program.h"
#include "endtoend/VirtualDisplay.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QTemporaryDir>

#include <csignal>
#include <functional>

namespace {

constexpr int kPatienceMs = 30000;

/// The display client alone on a display, with a layout in which there is nothing.
struct Station {
    Station()
    {
        WindowLayoutPreset layout;
        layout.setLayoutName(QStringLiteral("Layout 1"));
        layout.setSubWindowPresets({});
        WzClientPreset preset;
        preset.setWindowLayoutPresets({layout});
        if (!display.isRunning() || !instrument || !PresetFile::save(path(), preset))
            return;
        client = std::make_unique<Program>("wz_displayclient",
                                           QStringList{QStringLiteral("-platform"), QStringLiteral("xcb"),
                                                       QStringLiteral("-display"), display.name(),
                                                       QStringLiteral("-DpresetFile=") + path(),
                                                       QStringLiteral("-Dtrace=startup")});
    }

    bool starts()
    {
        return client && client->complains(QStringLiteral("first frame painted"))
            && client->prints(QStringLiteral("info: connected to 127.0.0.1:29440"));
    }
    QString path() const { return folder.filePath(QStringLiteral("state.json")); }

    bool keys(const char* names) const
    {
        return display.send(QStringLiteral("key ") + QString::fromLatin1(names));
    }
    /// At a place of the design.
    bool click(int x, int y) const { return display.send(move(x, y) + QStringLiteral(" click 1")); }
    bool drag(QPoint from, QPoint to) const
    {
        QString commands = move(from.x(), from.y()) + QStringLiteral(" mousedown 1");
        for (int i = 1; i <= 5; ++i)
            commands += QLatin1Char(' ')
                + move(from.x() + (to.x() - from.x()) * i / 5, from.y() + (to.y() - from.y()) * i / 5);
        return display.send(commands + QStringLiteral(" mouseup 1"));
    }

    /// What the client has saved by itself comes to be so.
    bool saves(const std::function<bool(const std::vector<WindowLayoutPreset>&)>& isSo) const
    {
        return QTest::qWaitFor(
            [&] {
                const auto preset = PresetFile::load(path());
                if (!preset)
                    return false;
                const auto layouts = preset->getWindowLayoutPresets();
                return isSo({layouts.begin(), layouts.end()});
            },
            kPatienceMs);
    }
    bool savesNames(const QStringList& names) const
    {
        return saves([&names](const auto& layouts) {
            QStringList saved;
            for (const WindowLayoutPreset& layout : layouts)
                saved << layout.getLayoutName();
            return saved == names;
        });
    }
    bool savesWindowAt(const QPoint& place) const
    {
        return saves([&place](const auto& layouts) {
            const auto windows = layouts.front().getSubWindowPresets();
            return windows.size() == 1 && windows.front().getWindowTitle() == QLatin1String("Audio Metering")
                && windows.front().getWindowBounds().topLeft() == place;
        });
    }
    /// What the instrument has been told.
    static bool hasBallistics(const char* value)
    {
        return QTest::qWaitFor(
            [value] {
                Program get(
                    "wz_datacore",
                    {QStringLiteral("get"), QStringLiteral("configCoreRouter/audioMetering/ballistics")});
                return get.exitCode() == 0 && get.output().trimmed() == QLatin1String(value);
            },
            kPatienceMs);
    }

    QTemporaryDir folder;
    VirtualDisplay display{{1920, 1080}};
    std::unique_ptr<Program> instrument = startInstrument();
    std::unique_ptr<Program> client;

private:
    static QString move(int x, int y)
    {
        return QStringLiteral("mousemove %1 %2").arg(QString::number(x), QString::number(y));
    }
};

} // namespace

/// The real client on a real X server, by the events of its keyboard and its mouse. What comes of them is
/// seen from outside: in the file that the client keeps, at the instrument, and in the log.
class tst_RealEvents : public WzTest {
    Q_OBJECT
private slots:
    /// The libraries of X keep a little to the end, which the programs of this test must not be blamed for.
    void initTestCase() { qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":detect_leaks=0"); }

    void byTheKeyboard()
    {
        Station station;
        QVERIFY(station.starts());
        // The menu, over the sections and groups to the fourth tile.
        QVERIFY(station.keys("Menu Right Right Right Right Right Return"));
        QVERIFY(station.savesWindowAt({0, 0}));
        QVERIFY(station.keys("F2 F3 Escape")); // "Ballistics", its third option, back
        QVERIFY(station.hasBallistics("2"));
        QVERIFY(station.keys("F10 F3 Right Down Return")); // "More...", "Move Window"
        QVERIFY(station.savesWindowAt({480, 270}));
        // The overview: "New", "Rename", "Duplicate", "Delete" with its confirmation.
        QVERIFY(station.keys("Menu Down Return Right Up Return F2 F3"));
        QVERIFY(station.display.send(QStringLiteral("type Mine")));
        QVERIFY(station.keys("Return F4"));
        QVERIFY(station.savesNames(
            {QStringLiteral("Layout 1"), QStringLiteral("Mine"), QStringLiteral("Mine - 2")}));
        QVERIFY(station.keys("F7 Right Return Escape"));
        QVERIFY(station.savesNames({QStringLiteral("Layout 1"), QStringLiteral("Mine")}));
        station.client->signal(SIGTERM);
        QCOMPARE(station.client->exitCode(), 0);
    }

    void byTheMouse()
    {
        Station station;
        QVERIFY(station.starts());
        QVERIFY(station.click(28, 28)); // the menu button
        QVERIFY(station.click(1360, 150)); // the fourth tile
        QVERIFY(station.savesWindowAt({0, 0}));
        // The second soft button, and the third of what it offers.
        QVERIFY(station.click(90 + 183 + 90, 1044));
        QVERIFY(station.click(90 + 2 * 183 + 90, 1044));
        QVERIFY(station.hasBallistics("2"));
        // By its lower right corner.
        QVERIFY(station.drag({955, 535}, {485, 275}));
        QVERIFY(station.saves([](const auto& layouts) {
            const auto windows = layouts.front().getSubWindowPresets();
            return windows.size() == 1 && windows.front().getWindowBounds().size() == QSize(480, 270);
        }));
        // The item of the connection at the right of the tool bar, and another address.
        QVERIFY(station.click(1680, 28));
        QVERIFY(station.display.send(QStringLiteral("type 127.0.0.3")));
        QVERIFY(station.keys("Return"));
        QVERIFY(QTest::qWaitFor(
            [&] {
                return station.client->output().contains(QStringLiteral("no answer from 127.0.0.3:29440"));
            },
            kPatienceMs));
        station.client->signal(SIGTERM);
        QCOMPARE(station.client->exitCode(), 0);
    }
};

WZ_TEST_CLASS(tst_RealEvents)
#include "tst_RealEvents.moc"
