#include "screens/Desk.h"

#include "datacore/ElementPaths.h"
#include "endtoend/Program.h"
#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionButton.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/ContentHelpPage.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/ConfirmationStrip.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/LauncherPage.h"
#include "gui/shell/LauncherTile.h"
#include "gui/shell/LayoutCard.h"
#include "gui/shell/LayoutsPanel.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/NetworkConnectionDialog.h"
#include "gui/shell/ToolBar.h"
#include "gui/shell/ToolBarItem.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QApplication>
#include <QPushButton>
#include <QWindow>

#include <optional>

namespace {

const QString kMeters = QStringLiteral("Audio Metering");
/// Where no instrument is.
const QString kOtherAddress = QStringLiteral("127.0.0.3");

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

template<typename Panel>
Panel* panel(const Desk& desk)
{
    return qobject_cast<Panel*>(desk.panels().openPanel());
}

template<typename Widget>
Widget* named(const QWidget* parent, const QString& name)
{
    for (Widget* const each : parent->findChildren<Widget*>()) {
        if (each->isVisible() && (each->text() == name || each->accessibleName() == name))
            return each;
    }
    return nullptr;
}

/// What somebody has to reach the screen with.
class Hand {
public:
    explicit Hand(Desk& desk)
        : m_desk(desk)
    {
    }
    virtual ~Hand() = default;

    virtual void openWindow() = 0;
    virtual void moveWindow() = 0;
    virtual void pressButton(int index) = 0;
    virtual void goBack() = 0;
    virtual void openLayouts() = 0;
    virtual void enterName() = 0; ///< "Ab"
    virtual void confirm() = 0;
    virtual void openConnection() = 0;
    virtual void enterAddress() = 0; ///< kOtherAddress, in place of what stands there
    virtual void leaveEntry() { } ///< for the buttons that lie below those that enter
    virtual void leavePanel() = 0;

    /// The soft button with that label, on whichever row it is.
    void press(const char* label)
    {
        for (int rows = 0; rows < 5; ++rows) {
            const int index = indexOf(text(label));
            if (index >= 0)
                return pressButton(index);
            const int more = indexOf(text("More..."));
            if (more < 0)
                break;
            pressButton(more);
        }
        QFAIL(label);
    }
    QString labelOf(int index) const
    {
        return m_desk.window().functionBar().button(static_cast<quint32>(index))->label();
    }

protected:
    const Desk& desk() const { return m_desk; }

private:
    int indexOf(const QString& label) const
    {
        for (int i = 0; i < static_cast<int>(FunctionBar::kButtons); ++i) {
            if (labelOf(i) == label)
                return i;
        }
        return -1;
    }

    Desk& m_desk;
};

/// One finger on the glass.
class Finger : public Hand {
public:
    using Hand::Hand;

    void tap(const QPoint& place) const
    {
        touch().press(0, place, window());
        touch().release(0, place, window());
    }
    void tap(const QWidget* widget) const
    {
        QVERIFY2(widget, "what is to be touched is not there");
        QTRY_VERIFY(!widget->visibleRegion().isEmpty());
        tap(widget->mapTo(&desk().window(), widget->rect().center()));
    }
    void drag(const QPoint& from, const QPoint& to) const
    {
        touch().press(0, from, window());
        for (int i = 1; i <= 10; ++i)
            touch().move(0, from + (to - from) * i / 10, window());
        touch().release(0, to, window());
    }

    void openWindow() override
    {
        tap(item(0));
        tap(panel<MainMenu>(desk())->launcher().tile(kMeters));
    }
    void moveWindow() override
    {
        const WzSubWindow& moved = *desk().window().area().activeWzSubWindow();
        const QPoint title = moved.mapTo(&desk().window(), QPoint(moved.width() / 2, 15));
        // At the top of the screen the title is below the tool bar until that goes.
        QTRY_VERIFY_WITH_TIMEOUT(!desk().window().toolBar().isVisible(), 15000);
        drag(title, title + QPoint(480, 270));
    }
    void pressButton(int index) override
    {
        desk().window().showBars();
        tap(desk().window().functionBar().button(static_cast<quint32>(index)));
    }
    void goBack() override { tap(&desk().window().functionBar().velmoraButton()); }
    void openLayouts() override { tap(item(1)); }
    void enterName() override
    {
        for (const char* const key : {"A", "b", "Set"})
            tap(named<QPushButton>(desk().panels().openPanel(), text(key)));
    }
    void confirm() override
    {
        tap(named<QPushButton>(desk().panels().openPanel()->findChild<ConfirmationStrip*>(), text("Delete")));
    }
    void openConnection() override
    {
        desk().window().showBars();
        tap(item(0));
        tap(panel<MainMenu>(desk())->row(text("System")));
        tap(panel<MainMenu>(desk())->row(text("Network connection")));
    }
    void enterAddress() override
    {
        for (const QChar character : kOtherAddress)
            tap(named<QPushButton>(desk().panels().openPanel(), QString(character)));
        tap(named<QPushButton>(desk().panels().openPanel(), text("Connect")));
    }
    void leavePanel() override { tap(named<QPushButton>(desk().panels().openPanel(), text("Close"))); }

private:
    /// Of the tool bar, from the left.
    ToolBarItem* item(int index) const
    {
        return desk().window().toolBar().findChildren<ToolBarItem*>().value(index);
    }
    QWindow* window() const { return desk().window().windowHandle(); }
    QTest::QTouchEventSequence touch() const
    {
        static QTouchDevice* const device = QTest::createTouchDevice();
        return QTest::touchEvent(window(), device);
    }
};

/// Ten buttons, four arrows, OK, back, the logo button and the knob.
class Keys : public Hand {
public:
    using Hand::Hand;

    template<typename... All>
    void key(All... keys) const
    {
        (QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &desk().window(), keys),
         ...);
    }

    void openWindow() override
    {
        key(Qt::Key_Menu);
        const auto focused = [] { return qobject_cast<LauncherTile*>(QApplication::focusWidget()); };
        for (int i = 0; i < 50 && (!focused() || focused()->text() != kMeters); ++i)
            key(Qt::Key_PageUp); // the knob goes over all there is
        QVERIFY(focused());
        key(Qt::Key_Return);
    }
    void moveWindow() override
    {
        press("Move Window");
        key(Qt::Key_Right, Qt::Key_Down, Qt::Key_Return);
    }
    void pressButton(int index) override { key(static_cast<Qt::Key>(Qt::Key_F1 + index)); }
    void goBack() override { key(Qt::Key_Escape); }
    void openLayouts() override
    {
        key(Qt::Key_Menu, Qt::Key_Down, Qt::Key_Return, Qt::Key_Right, Qt::Key_Up, Qt::Key_Return);
    }
    void enterName() override
    {
        // The knob goes over the keys on the screen.
        for (const char* const wanted : {"A", "b"})
            pressKeyOnScreen(text(wanted));
        pressButton(1); // Set
    }
    void confirm() override { key(Qt::Key_Right, Qt::Key_Return); }
    void openConnection() override
    {
        key(Qt::Key_Menu, Qt::Key_Down,
            Qt::Key_Return); // away from the tiles, which have buttons of their own
        press("System");
        key(Qt::Key_Right, Qt::Key_Up, Qt::Key_Return);
    }
    void enterAddress() override
    {
        for (const QChar character : kOtherAddress)
            press(QString(character).toLatin1().constData());
        key(Qt::Key_Return);
    }
    void leaveEntry() override { key(Qt::Key_Menu); }
    void leavePanel() override { key(Qt::Key_Escape); }

private:
    void pressKeyOnScreen(const QString& wanted) const
    {
        const auto focused = [] { return qobject_cast<QPushButton*>(QApplication::focusWidget()); };
        for (int i = 0; i < 100 && (!focused() || focused()->text() != wanted); ++i)
            key(Qt::Key_PageUp);
        QVERIFY2(focused() && focused()->text() == wanted, qPrintable(wanted));
        key(Qt::Key_Return);
    }
};

using MakeHand = std::unique_ptr<Hand> (*)(Desk&);

} // namespace

Q_DECLARE_METATYPE(MakeHand)

/// What somebody does who has one finger and nothing else, or the front panel's keys and nothing else.
class tst_Hands : public WzTest {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_instrument = startInstrument();
        QVERIFY(m_instrument);
        m_desk.emplace();
        m_desk->setTheme(WzPalette::Theme::Dark);
        QVERIFY(QTest::qWaitFor([this] { return m_desk->isConnected(); }, 20000));
    }

    void everythingIsReached_data()
    {
        QTest::addColumn<MakeHand>("makeHand");
        QTest::newRow("by touch alone")
            << MakeHand([](Desk& desk) -> std::unique_ptr<Hand> { return std::make_unique<Finger>(desk); });
        QTest::newRow("by keys and knob alone")
            << MakeHand([](Desk& desk) -> std::unique_ptr<Hand> { return std::make_unique<Keys>(desk); });
    }
    void everythingIsReached()
    {
        QFETCH(MakeHand, makeHand);
        const auto hand = makeHand(*m_desk);
        m_desk->clear();
        m_desk->windows().resetToDefaults();
        QVERIFY(m_desk->write(ballistics(), text("0")));

        hand->openWindow();
        QTRY_COMPARE(m_desk->windows().getVisibleOpenWindows().size(), std::size_t(1));
        QTRY_VERIFY(!m_desk->panels().openPanel());
        QVERIFY(m_desk->isLive());
        const QPoint before = window().pos();
        hand->moveWindow();
        QTRY_COMPARE(window().pos(), before + QPoint(480, 270));
        changeASetting(*hand);
        findHelp(*hand);
        workOnLayouts(*hand);
        lockAndUnlock(*hand);
        changeTheAddress(*hand);
    }

    void cleanupTestCase()
    {
        m_desk->clear();
        m_instrument.reset();
    }

private:
    static QString ballistics()
    {
        return text("configCoreRouter/") + ElementPaths::AudioMetering::kBallistics;
    }
    WzSubWindow& window() const { return *m_desk->window().area().activeWzSubWindow(); }
    QStringList layoutNames() const
    {
        QStringList names;
        for (const auto& overview : m_desk->windows().getLayoutOverview())
            names << overview.name;
        return names;
    }

    /// What is set is what the instrument says.
    void changeASetting(Hand& hand)
    {
        hand.press("Ballistics");
        const QString other = hand.labelOf(2);
        hand.press(other.toLatin1().constData());
        QTRY_COMPARE(m_desk->read(ballistics()), text("2"));
        hand.goBack();
    }
    void findHelp(Hand& hand)
    {
        const auto page = [this] {
            const auto* const found = window().findChild<ContentHelpPage*>();
            return found && found->isVisible();
        };
        hand.press("Help");
        QTRY_VERIFY(page());
        hand.press("Help");
        QTRY_VERIFY(!page());
    }
    void workOnLayouts(Hand& hand)
    {
        hand.openLayouts();
        QTRY_VERIFY(panel<LayoutsPanel>(*m_desk));
        hand.press("New");
        QCOMPARE(layoutNames(), (QStringList{text("Layout 1"), text("Layout 2")}));
        hand.press("Rename");
        hand.enterName();
        QTRY_COMPARE(layoutNames(), (QStringList{text("Layout 1"), text("Ab")}));
        hand.press("Duplicate");
        QCOMPARE(layoutNames(), (QStringList{text("Layout 1"), text("Ab"), text("Ab - 2")}));
        hand.press("Delete");
        hand.confirm();
        QTRY_COMPARE(layoutNames(), (QStringList{text("Layout 1"), text("Ab")}));
        hand.leavePanel();
        QTRY_VERIFY(!m_desk->panels().openPanel());
        // The one that was made is current, and empty; the other one still has its window.
        hand.press("Previous Layout");
        QTRY_COMPARE(m_desk->windows().getVisibleOpenWindows().size(), std::size_t(1));
    }
    void lockAndUnlock(Hand& hand)
    {
        const ApplicationState& state = m_desk->window().applicationState();
        hand.press("Lock Layouts");
        QTRY_VERIFY(state.isLayoutLocked());
        hand.press("Lock Layouts");
        QTRY_VERIFY(!state.isLayoutLocked());
    }
    void changeTheAddress(Hand& hand)
    {
        const ConnectionStatus& connection = m_desk->window().connectionStatus();
        hand.openConnection();
        QTRY_VERIFY(panel<NetworkConnectionDialog>(*m_desk));
        hand.enterAddress();
        QTRY_COMPARE(connection.address(), kOtherAddress);
        QTRY_VERIFY(!m_desk->isConnected());
        hand.leaveEntry();
        hand.press("This device");
        hand.press("Connect");
        QVERIFY(QTest::qWaitFor([this] { return m_desk->isConnected(); }, 20000));
        hand.leavePanel();
        QTRY_VERIFY(!m_desk->panels().openPanel());
    }

    std::optional<Desk> m_desk;
    std::unique_ptr<Program> m_instrument;
};

WZ_TEST_CLASS(tst_Hands)
#include "tst_Hands.moc"
