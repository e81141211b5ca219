#include "screens/Desk.h"

#include "datacore/ElementPaths.h"
#include "endtoend/Program.h"
#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionButton.h"
#include "gui/control/Setting.h"
#include "gui/control/SettingList.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/KeypadOpener.h"
#include "gui/shell/LayoutsPanel.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/NetworkConnectionDialog.h"
#include "gui/shell/SfpIpAddressDialog.h"
#include "gui/style/WzCustomStyle.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QApplication>

#include <csignal>
#include <functional>
#include <optional>

using Theme = WzPalette::Theme;
using Show = std::function<void(Desk&)>;

Q_DECLARE_METATYPE(Theme)
Q_DECLARE_METATYPE(Show)

namespace {

QString configuration(QLatin1String path)
{
    return QLatin1String("configCoreRouter/") + path;
}

/// What a command of the menu opens.
Show command(const char* id)
{
    return [id](Desk& desk) { desk.panels().run(QString::fromLatin1(id)); };
}

Show menu(MainMenu::Section section)
{
    return [section](Desk& desk) {
        desk.panels().toggleMainMenu();
        qobject_cast<MainMenu*>(desk.panels().openPanel())->showSection(section);
    };
}

/// A soft button, by its key.
void press(Desk& desk, const char* label)
{
    for (quint32 i = 0; i < FunctionBar::kButtons; ++i) {
        if (desk.window().functionBar().button(i)->label() == QLatin1String(label))
            QTest::keyClick(QApplication::focusWidget(),
                            static_cast<Qt::Key>(Qt::Key_F1 + static_cast<int>(i)));
    }
}

Show layouts(const char* button)
{
    return [button](Desk& desk) {
        desk.panels().openLayouts();
        press(desk, button);
    };
}

/// The presets, of which the first one is selected; a soft button may follow.
Show presets(const char* button = nullptr)
{
    return [button](Desk& desk) {
        PresetRequests& kept = desk.panels().presets();
        for (const char* name : {"Camera line-up", "Transmission", "Studio 2 evening check"}) {
            if (kept.contains(QString::fromLatin1(name)))
                continue;
            kept.save(QString::fromLatin1(name));
            QVERIFY(QTest::qWaitFor([&] { return !kept.isBusy(); }));
        }
        desk.panels().openPresets();
        if (button)
            press(desk, button);
    };
}

Setting* numberOf(const WzSubwindowContent& content)
{
    Setting* found = nullptr;
    content.settings().forEachSetting([&found](Setting& setting) {
        if (!found && setting.isNumeric() && setting.isUsable())
            found = &setting;
    });
    return found;
}

void addressNobodyHas(Desk& desk)
{
    desk.panels().openNetworkConnection();
    qobject_cast<NetworkConnectionDialog*>(desk.panels().openPanel())
        ->address()
        .setText(QStringLiteral("192.168.1.256"));
}

void keypad(Desk& desk)
{
    desk.open(QStringLiteral("Waveform"), {960, 540});
    QVERIFY(QTest::qWaitFor([&] { return numberOf(desk.content()) != nullptr; }));
    desk.window().keypads().openFor(*numberOf(desk.content()));
}

void strip(Desk& desk)
{
    desk.open(QStringLiteral("Waveform"), {960, 540});
    QVERIFY(QTest::qWaitFor([&] { return numberOf(desk.content()) != nullptr; }));
    desk.window().editSetting(*numberOf(desk.content()));
}

void contextMenu(Desk& desk)
{
    WzSubWindow* const window = desk.open(QStringLiteral("Audio Metering"), {1920, 1080});
    QVERIFY(desk.isLive());
    window->openContextMenu(desk.window().mapToGlobal(QPoint(1000, 80)));
}

void sixteen(Desk& desk)
{
    desk.clear();
    const auto& kinds = desk.windows().getAvailableSubWindows();
    for (int i = 0; i < 16; ++i) {
        desk.panels().catalogue().request(kinds[static_cast<std::size_t>(i) % 4]);
        desk.window().area().wzSubWindows().back()->setBounds({i % 4 * 480, i / 4 * 270, 480, 270});
    }
}

} // namespace

/// Shows everything that the display client has, and writes it down.
class tst_Screens : public WzTest {
    Q_OBJECT
private slots:
    void initTestCase() { m_desk.emplace(); }

    void withoutAnInstrument_data() { addThemes(); }
    void withoutAnInstrument()
    {
        QFETCH(Theme, theme);
        m_desk->setTheme(theme);
        m_desk->openMain();
        QVERIFY(QTest::qWaitFor([this] { return m_desk->window().connectionStatus().retries() > 0; }, 20000));
        QVERIFY(m_desk->shoot(QStringLiteral("state-not-connected")));
        m_desk->panels().openNetworkConnection();
        QVERIFY(m_desk->shoot(QStringLiteral("panel-connection-lost")));
        m_desk->panels().run(QStringLiteral("timeDate"));
        QVERIFY(m_desk->shoot(QStringLiteral("panel-time-without-instrument")));
    }

    void anInstrumentComes()
    {
        m_instrument = startInstrument();
        QVERIFY(m_instrument);
        QVERIFY(QTest::qWaitFor([this] { return m_desk->isConnected(); }, 20000));
    }

    void windows_data()
    {
        QTest::addColumn<Theme>("theme");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QSize>("size");
        for (const Theme theme : kThemes) {
            for (const SupportedSubWindow& kind : m_desk->windows().getAvailableSubWindows()) {
                for (const QSize size : {QSize(480, 270), QSize(960, 540), QSize(1920, 1080)})
                    QTest::addRow("%s, %d, %s", qPrintable(kind.windowTitle), size.width(), nameOf(theme))
                        << theme << kind.windowTitle << size;
            }
        }
    }
    void windows()
    {
        QFETCH(Theme, theme);
        QFETCH(QString, title);
        QFETCH(QSize, size);
        m_desk->setTheme(theme);
        const WzSubWindow* const window = m_desk->open(title, size);
        QVERIFY(window);
        QVERIFY(m_desk->isLive());
        const QString name = QStringLiteral("window-%1-%2")
                                 .arg(title.toLower().replace(QLatin1Char(' '), QLatin1Char('-')),
                                      QString::number(size.width()));
        m_desk->window().hideBars();
        QVERIFY(m_desk->shoot(name, window));
    }

    void screens_data()
    {
        QTest::addColumn<Theme>("theme");
        QTest::addColumn<Show>("show");
        using Section = MainMenu::Section;
        const std::pair<const char*, Show> rows[] = {
            {"menu-instruments", menu(Section::Instruments)},
            {"menu-layouts", menu(Section::Layouts)},
            {"menu-inputs", menu(Section::Inputs)},
            {"menu-system", menu(Section::System)},
            {"layouts", command("layouts")},
            {"layouts-rename", layouts("Rename")},
            {"layouts-delete", layouts("Delete")},
            {"presets", presets()},
            {"presets-save", presets("Save New")},
            {"presets-rename", presets("Rename")},
            {"presets-delete", presets("Delete")},
            {"menu-presets", menu(MainMenu::Section::Presets)},
            {"panel-connection", command("networkConnection")},
            {"panel-connection-invalid", addressNobodyHas},
            {"panel-health", command("health")},
            {"panel-time", command("timeDate")},
            {"panel-system-mode", command("systemMode")},
            {"panel-about", command("about")},
            {"panel-console", command("console")},
            {"panel-driver-calibration", command("driverCalibration")},
            {"panel-help", command("help")},
            {"panel-power-off", command("powerOff")},
            {"keypad", keypad},
            {"strip", strip},
            {"context-menu", contextMenu},
            {"question", [](Desk& desk) { desk.window().askBeforeClosingWindows(); }},
            {"notice", [](Desk& desk) { desk.panels().run(QStringLiteral("screenshot")); }},
            {"locked", [](Desk& desk) { desk.window().applicationState().setLayoutLocked(true); }},
            {"sixteen-windows", sixteen},
            {"empty", [](Desk& desk) { desk.clear(); }},
            {"window-help", [](Desk& desk) { desk.content().toggleHelp(); }},
            {"colour-blind", [](Desk& desk) { desk.window().wzStyle().setColourBlind(true); }},
        };
        for (const Theme theme : kThemes) {
            for (const auto& [name, show] : rows)
                QTest::addRow("%s, %s", name, nameOf(theme)) << theme << show;
        }
    }
    void screens()
    {
        QFETCH(Theme, theme);
        QFETCH(Show, show);
        m_desk->setTheme(theme);
        m_desk->window().applicationState().setLayoutLocked(false);
        m_desk->window().wzStyle().setColourBlind(false);
        m_desk->openMain();
        QVERIFY(m_desk->isLive());
        const QImage before = m_desk->look();
        show(*m_desk);
        QVERIFY(m_desk->shoot(QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char(','), 0, 0)));
        QVERIFY(m_desk->look() != before);
        QVERIFY2(m_desk->cutTexts().isEmpty(), qPrintable(m_desk->cutTexts().join(QLatin1String(" | "))));
        m_desk->clear();
        m_desk->window().applicationState().setLayoutLocked(false);
        m_desk->window().wzStyle().setColourBlind(false);
    }

    void states_data() { addThemes(); }
    void states()
    {
        QFETCH(Theme, theme);
        m_desk->setTheme(theme);
        m_desk->openMain();
        QVERIFY(m_desk->isLive());
        QVERIFY(m_desk->shoot(QStringLiteral("state-live")));
        for (const WzSubWindow* const window : m_desk->window().area().wzSubWindows())
            window->content()->setFrozen(true);
        QVERIFY(m_desk->shoot(QStringLiteral("state-frozen")));
        for (const WzSubWindow* const window : m_desk->window().area().wzSubWindows())
            window->content()->setFrozen(false);
        m_instrument->signal(SIGSTOP);
        QTest::qWait(2500); // for the values to grow old
        QVERIFY(m_desk->shoot(QStringLiteral("state-stale")));
        m_instrument->signal(SIGCONT);
        const QString source = configuration(ElementPaths::SignalSource::kName);
        QVERIFY(m_desk->write(source, QStringLiteral("no-signal")));
        QTest::qWait(500);
        QVERIFY(m_desk->shoot(QStringLiteral("state-no-signal")));
        QVERIFY(m_desk->write(source, QStringLiteral("levels")));
    }

    void anSfpWithoutAddress_data() { addThemes(); }
    void anSfpWithoutAddress()
    {
        QFETCH(Theme, theme);
        m_desk->setTheme(theme);
        m_desk->openMain();
        QVERIFY(m_desk->write(configuration(ElementPaths::Sfp::kIpAddress), {}));
        QVERIFY(m_desk->write(configuration(ElementPaths::Sfp::kSimulatedModule), QStringLiteral("IP")));
        const auto dialog = [this] {
            return qobject_cast<SfpIpAddressDialog*>(m_desk->panels().openPanel());
        };
        QTRY_VERIFY(dialog());
        QVERIFY(m_desk->shoot(QStringLiteral("panel-sfp-address")));
        // Reserved, which only the instrument refuses.
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("240.0.0.1"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_VERIFY(!m_desk->cutTexts().isEmpty() || dialog());
        QTest::qWait(200);
        QVERIFY(m_desk->shoot(QStringLiteral("panel-sfp-address-refused")));
        QVERIFY(dialog());
        dialog()->address().clear();
        QTest::keyClicks(&dialog()->address(), QStringLiteral("10.0.0.7"));
        QTest::keyClick(&dialog()->address(), Qt::Key_Return);
        QTRY_VERIFY(!dialog());
        QVERIFY(m_desk->write(configuration(ElementPaths::Sfp::kSimulatedModule), QStringLiteral("None")));
    }

    void dataThatIsLost_data() { addThemes(); }
    void dataThatIsLost()
    {
        QFETCH(Theme, theme);
        m_desk->setTheme(theme);
        m_instrument.reset();
        QVERIFY(QTest::qWaitFor([this] { return !m_desk->isConnected(); }, 20000));
        m_instrument = startInstrument({QStringLiteral("--faults"), QStringLiteral("drop=0.01")});
        QVERIFY(m_instrument);
        m_desk->openMain();
        // Some of the values are lost as well, so that the connection never stands whole.
        QTest::qWait(5000);
        QVERIFY(m_desk->shoot(QStringLiteral("state-lost-data")));
    }

    void cleanupTestCase()
    {
        m_desk->clear();
        m_instrument.reset();
    }

private:
    static constexpr Theme kThemes[] = {Theme::Dark, Theme::Light};

    static const char* nameOf(Theme theme) { return theme == Theme::Dark ? "dark" : "light"; }
    static void addThemes()
    {
        QTest::addColumn<Theme>("theme");
        for (const Theme theme : kThemes)
            QTest::newRow(nameOf(theme)) << theme;
    }

    std::optional<Desk> m_desk;
    std::unique_ptr<Program> m_instrument;
};

WZ_TEST_CLASS(tst_Screens)
#include "tst_Screens.moc"
