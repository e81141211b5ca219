#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionButton.h"
#include "gui/control/FunctionController.h"
#include "gui/control/SettingList.h"
#include "gui/control/WzMenu.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/support/WindowFixture.h"
#include "presets/SettingsContentPreset.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QJsonArray>
#include <QSignalSpy>
#include <QSlider>

namespace {

/// A content with a setting of every kind.
class SettingsContent : public TestContent {
    Q_OBJECT
public:
    explicit SettingsContent(WzSubWindow& window)
        : TestContent(window, QStringLiteral("SettingsContent"))
    {
        mode = settings().addOptions(QStringLiteral("Mode"),
                                     {{QStringLiteral("Parade"), QStringLiteral("0")},
                                      {QStringLiteral("Overlay"), QStringLiteral("1")}});
        mode->initialise({QStringLiteral("0")});
        kinds = settings().addChoices(
            QStringLiteral("Kinds"),
            {{QStringLiteral("A"), QStringLiteral("a")}, {QStringLiteral("B"), QStringLiteral("b")}},
            QStringLiteral("All"), QStringLiteral("%1 kinds"));
        full = settings().addToggle(QStringLiteral("Full"));
        full->initialise({QStringLiteral("false")});
        gain = settings().addSlider(QStringLiteral("Gain"), {0, 100, 1, 0, QStringLiteral("%")});
        gain->initialise({QStringLiteral("50")});
        hold =
            settings().addNumber(QStringLiteral("Hold"),
                                 {-0.1, 10, 0.1, 1, QStringLiteral("s"), QStringLiteral("Infinite"), true});
        hold->writesTo(this, &SettingsContent::toConfigCoreHoldChosen);
        reset = settings().addButton(QStringLiteral("Reset"));
        SettingList& group = *settings().addGroup(QStringLiteral("Zoom"));
        zoom = group.addNumber(QStringLiteral("Width"), {1, 8, 1, 0});
        zoom->initialise({QStringLiteral("1")});
        zoom->keepAs(QLatin1String("zoom"));
        mode->keepAs(QLatin1String("mode"));
        kinds->keepAs(QLatin1String("kinds"));
        gain->keepAs(QLatin1String("gain"));
    }

    Setting* mode;
    Setting* kinds;
    Setting* full;
    Setting* gain;
    Setting* hold;
    Setting* reset;
    Setting* zoom;

signals:
    void toConfigCoreHoldChosen(double seconds);
};

/// The screen of the display client with one such window.
struct Screen {
    Screen()
    {
        kind.windowTitle = QStringLiteral("Scope");
        kind.contentClassName = QStringLiteral("SettingsContent");
        kind.maximumInstances = 2;
        kind.makeContent = [](WzSubWindow& subWindow) { return new SettingsContent(subWindow); };
        catalogue.add(kind);
        window.resize(1920, 1080);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        catalogue.request(kind);
        content = qobject_cast<SettingsContent*>(window.area().activeWzSubWindow()->content());
    }

    FunctionButton& button(const QString& label) const
    {
        for (quint32 i = 0; i < FunctionBar::kButtons; ++i) {
            if (window.functionBar().button(i)->label() == label)
                return *window.functionBar().button(i);
        }
        qFatal("no button %s", qPrintable(label));
    }
    void press(const char* label) const
    {
        QTest::mouseClick(&button(QString::fromLatin1(label)), Qt::LeftButton);
    }
    static void key(Qt::Key key)
    {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const focused = QApplication::focusWidget();
        QTest::keyClick(popup && !popup->isAncestorOf(focused) ? popup : focused, key);
    }
    WzMenu* openMenu() const
    {
        window.area().activeWzSubWindow()->openContextMenu(window.mapToGlobal(QPoint(100, 100)));
        return qobject_cast<WzMenu*>(QApplication::activePopupWidget());
    }

    SupportedSubWindow kind;
    ApplicationState state{ApplicationState::kDisplayClient};
    ConnectionStatus connection;
    NetworkConnection network{nullptr, false};
    ClientDatacoreRegistry registry{network};
    DatacoreGuiConnectionsManager connections{registry};
    SupportedSubWindows catalogue{Velmora::Wz::Device::full()};
    mutable DisplayMainWindow window{state, connection, *qobject_cast<WzCustomStyle*>(QApplication::style()),
                                     connections, catalogue};
    SettingsContent* content = nullptr;
};

} // namespace

class tst_Settings : public WzTest {
    Q_OBJECT
private slots:
    void whatCannotBeChosenIsNot()
    {
        Screen screen;
        SettingsContent& content = *screen.content;
        for (const char* const value : {"2", "", "Parade"})
            content.mode->choose(QString::fromLatin1(value));
        QCOMPARE(content.mode->value(), QStringLiteral("0"));
        for (const char* const value : {"101", "-1", "nan", "x", ""})
            content.gain->choose(QString::fromLatin1(value));
        QCOMPARE(content.gain->value(), QStringLiteral("50"));
        content.full->choose(QStringLiteral("yes"));
        QVERIFY(!content.full->isOn());
        // A setting of the instrument before the instrument has told it.
        QSignalSpy written(&content, &SettingsContent::toConfigCoreHoldChosen);
        content.hold->choose(QStringLiteral("1"));
        QVERIFY(written.isEmpty());
        QVERIFY(!content.hold->toolTip().isEmpty());
    }

    void stepsWrapOnlyWhereTheyMay()
    {
        Screen screen;
        Setting& hold = *screen.content->hold;
        QSignalSpy written(screen.content, &SettingsContent::toConfigCoreHoldChosen);
        const auto stepped = [&](const char* from, int steps) {
            hold.fromElement({QString::fromLatin1(from)}, {}, true);
            hold.step(steps);
            return QString::number(written.takeLast().first().toDouble(), 'f', 1);
        };
        QCOMPARE(stepped("0.0", 1), QStringLiteral("0.1"));
        QCOMPARE(stepped("0.0", -1), QStringLiteral("-0.1"));
        QCOMPARE(stepped("-0.1", -1), QStringLiteral("10.0"));
        QCOMPARE(stepped("10.0", 1), QStringLiteral("-0.1"));
        hold.fromElement({QStringLiteral("-0.1")}, {}, true);
        QCOMPARE(hold.valueText(), QStringLiteral("Infinite"));
        screen.content->gain->step(1000);
        QCOMPARE(screen.content->gain->valueText(), QStringLiteral("100 %"));
        screen.content->mode->step(5);
        screen.content->mode->step(5);
        QCOMPARE(screen.content->mode->valueText(), QStringLiteral("Overlay"));
    }

    /// What is asked for is shown as such until the instrument's word, and then what that says.
    void theInstrumentHasTheLastWord()
    {
        Screen screen;
        Setting& hold = *screen.content->hold;
        hold.fromElement({QStringLiteral("1.0")}, {}, true);
        hold.setUnconfirmed(true);
        QVERIFY(hold.isUnconfirmed());
        hold.setUnconfirmed(false);
        hold.fromElement({QStringLiteral("2.0")}, {QStringLiteral("Warning: long")}, true);
        QCOMPARE(hold.valueText(), QStringLiteral("2.0 s"));
        QCOMPARE(hold.toolTip(), QStringLiteral("Warning: long"));
        hold.askInactiveReasons([] { return QStringList{QStringLiteral("No audio")}; });
        hold.fromElement({QStringLiteral("2.0")}, {}, false);
        QVERIFY(!hold.isUsable());
        QCOMPARE(hold.toolTip(), QStringLiteral("No audio"));
        hold.forget();
        QVERIFY(!hold.isUsable());
        QCOMPARE(hold.valueText(), QStringLiteral("--"));
    }

    void softButtonsSetThem()
    {
        Screen screen;
        SettingsContent& content = *screen.content;
        FunctionController& controller = FunctionController::getInstance();
        QCOMPARE(screen.button(QStringLiteral("Mode")).superscript(), QStringLiteral("Parade"));
        screen.press("Mode");
        screen.press("Overlay");
        QCOMPARE(content.mode->value(), QStringLiteral("1"));
        QVERIFY(screen.button(QStringLiteral("Overlay")).isSelected());
        screen.key(Qt::Key_Escape);
        QCOMPARE(screen.button(QStringLiteral("Mode")).superscript(), QStringLiteral("Overlay"));
        screen.press("Kinds");
        screen.press("B");
        screen.press("A");
        QCOMPARE(content.kinds->valueText(), QStringLiteral("2 kinds"));
        screen.press("All");
        QVERIFY(content.kinds->values().isEmpty());
        // The options go with the window that they are of.
        screen.catalogue.request(screen.kind);
        QVERIFY(!controller.canGoBack());
        QTest::keyClick(&screen.window, Qt::Key_Tab);
        screen.press("Full");
        QVERIFY(content.full->isOn());
        QVERIFY(screen.button(QStringLiteral("Full")).isSelected());
        QSignalSpy presses(content.reset, &Setting::chosen);
        screen.press("Reset");
        QCOMPARE(presses.size(), 1);
        // One that cannot be set now opens nothing.
        screen.press("Hold");
        QVERIFY(!controller.canGoBack());
    }

    void numbersHaveAStripOfTheirOwn()
    {
        Screen screen;
        Setting& gain = *screen.content->gain;
        screen.press("Gain");
        QVERIFY(qobject_cast<QSlider*>(QApplication::focusWidget()));
        screen.key(Qt::Key_PageUp);
        screen.key(Qt::Key_PageUp);
        QCOMPARE(gain.value(), QStringLiteral("52"));
        screen.press("Max");
        QCOMPARE(gain.value(), QStringLiteral("100"));
        screen.key(Qt::Key_Return);
        QVERIFY(!FunctionController::getInstance().canGoBack());
        QVERIFY(!qobject_cast<QSlider*>(QApplication::focusWidget()));

        Setting& hold = *screen.content->hold;
        hold.fromElement({QStringLiteral("1.0")}, {}, true);
        QSignalSpy written(screen.content, &SettingsContent::toConfigCoreHoldChosen);
        screen.press("Hold");
        screen.press("3");
        screen.key(Qt::Key_Return);
        QCOMPARE(written.takeLast().first().toDouble(), 3.0);
        screen.press("Hold");
        FunctionController::getInstance().functionTriggersGoBack();
        QVERIFY(!qobject_cast<QDoubleSpinBox*>(QApplication::focusWidget()));
        // The instrument goes while its setting is being edited.
        screen.press("Hold");
        hold.forget();
        QVERIFY(!FunctionController::getInstance().canGoBack());
        // And the window while its own is.
        screen.press("Gain");
        delete screen.window.area().activeWzSubWindow();
        QVERIFY(!FunctionController::getInstance().canGoBack());
    }

    void theMenuIsReachedByKeys()
    {
        Screen screen;
        SettingsContent& content = *screen.content;
        const QPointer<WzMenu> menu = screen.openMenu();
        QVERIFY(menu);
        screen.key(Qt::Key_Down); // Mode
        screen.key(Qt::Key_Right);
        QCOMPARE(content.mode->value(), QStringLiteral("1"));
        screen.key(Qt::Key_PageUp); // the knob: Kinds
        screen.key(Qt::Key_Down); // Full
        screen.key(Qt::Key_Return);
        QVERIFY(content.full->isOn());
        screen.key(Qt::Key_Down); // Gain
        screen.key(Qt::Key_Return);
        screen.key(Qt::Key_PageUp);
        QCOMPARE(content.gain->value(), QStringLiteral("51"));
        screen.key(Qt::Key_Escape); // ends the editing
        QVERIFY(menu && menu->isVisible());
        screen.key(Qt::Key_PageUp);
        QCOMPARE(content.gain->value(), QStringLiteral("51"));
        screen.key(Qt::Key_Escape);
        QTRY_VERIFY(!menu);
    }

    void groupsHaveAMenuAndButtonsOfTheirOwn()
    {
        Screen screen;
        Setting& zoom = *screen.content->zoom;
        screen.press("Zoom");
        screen.press("Width");
        screen.key(Qt::Key_PageUp);
        screen.key(Qt::Key_Return);
        QCOMPARE(zoom.value(), QStringLiteral("2"));
        FunctionController::getInstance().functionTriggersGoBack();
        QVERIFY(!FunctionController::getInstance().canGoBack());
        QCOMPARE(screen.button(QStringLiteral("Mode")).label(), QStringLiteral("Mode"));

        const QPointer<WzMenu> menu = screen.openMenu();
        const auto rows = menu->actions();
        const auto group = std::find_if(rows.begin(), rows.end(), [](const QAction* row) {
            return row->menu() && row->text() == QLatin1String("Zoom");
        });
        QVERIFY(group != rows.end());
        QCOMPARE((*group)->menu()->actions().size(), 1);
        QCOMPARE((*group)->menu()->actions().first()->text(), QStringLiteral("Width"));
        menu->close();
    }

    void aMenuOutlivesNothing()
    {
        Screen screen;
        const QPointer<WzMenu> menu = screen.openMenu();
        delete screen.content; // its settings with it
        screen.key(Qt::Key_Down);
        screen.key(Qt::Key_Right);
        QApplication::style()->polish(qApp); // a theme is switched meanwhile
        menu->grab();
        menu->close();
    }

    void thoseWithAKeyAreSaved()
    {
        Screen screen;
        SettingsContent& content = *screen.content;
        content.mode->choose(QStringLiteral("1"));
        content.full->toggle();
        content.kinds->chooseAll({QStringLiteral("b")});
        content.zoom->choose(QStringLiteral("4"));
        SettingsContentPreset saved(QStringLiteral("ScopePreset"));
        content.settings().save(saved);
        content.mode->choose(QStringLiteral("0"));
        content.kinds->chooseAll({});
        content.zoom->choose(QStringLiteral("1"));
        content.settings().restore(saved);
        QCOMPARE(content.zoom->value(), QStringLiteral("4"));
        QCOMPARE(content.mode->value(), QStringLiteral("1"));
        QCOMPARE(content.kinds->values(), QStringList{QStringLiteral("b")});

        SettingsContentPreset damaged(QStringLiteral("ScopePreset"));
        damaged.setSetting(QLatin1String("mode"), 1);
        damaged.setSetting(QLatin1String("kinds"), QJsonArray{QStringLiteral("x"), QStringLiteral("a"), 5});
        damaged.setSetting(QLatin1String("gain"), QStringLiteral("1e9"));
        content.settings().restore(damaged);
        QCOMPARE(content.mode->value(), QStringLiteral("1"));
        QCOMPARE(content.kinds->values(), QStringList{QStringLiteral("a")});
        QCOMPARE(content.gain->value(), QStringLiteral("50"));
    }
};

WZ_TEST_CLASS(tst_Settings)

#include "tst_Settings.moc"
