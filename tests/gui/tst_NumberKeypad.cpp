#include "gui/control/FunctionController.h"
#include "gui/control/NumberEntry.h"
#include "gui/control/SettingList.h"
#include "gui/control/TouchAction.h"
#include "gui/control/ValidatableSpinBox.h"
#include "gui/control/WzMenu.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/KeypadOpener.h"
#include "gui/shell/NumberKeypad.h"
#include "gui/support/ScreenFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QString text(const char* characters)
{
    return QString::fromUtf8(characters);
}

NumberEntry alarm()
{
    NumberEntry number;
    number.title = text("Alarm above");
    number.value = 0.2;
    number.minimum = 0.01;
    number.maximum = 10;
    number.step = 0.01;
    number.decimals = 2;
    number.unit = text("UI");
    return number;
}

NumberEntry identifier()
{
    NumberEntry number;
    number.maximum = 0xFFFF;
    number.base = 16;
    number.isValid = [](double value) { return value != 0xBAD; };
    return number;
}

NumberEntry holdTime()
{
    NumberEntry number;
    number.minimum = -0.1;
    number.maximum = 10;
    number.decimals = 1;
    number.unit = text("s");
    number.minimumText = text("Infinite");
    return number;
}

NumberEntry percent()
{
    NumberEntry number;
    number.unit = text("%");
    return number;
}

/// The screen with a window that has a number and a slider.
struct KeypadFixture : ScreenFixture {
    KeypadFixture()
    {
        SettingList& settings = active().settings();
        slider = settings.addSlider(text("Gain"), {0, 100, 1, 0, text("%")});
        slider->initialise({text("50")});
        number = settings.addNumber(text("Alarm above"), {0.01, 10, 0.01, 2, text("UI")});
        number->initialise({text("0.20")});
        key(Qt::Key_Tab, Qt::Key_Tab); // away and back, for the function bar to know of them
    }

    NumberKeypad* keypad() const
    {
        // One that was closed lives until the event loop is back.
        for (NumberKeypad* const each : window.findChildren<NumberKeypad*>()) {
            if (each->isVisible())
                return each;
        }
        return nullptr;
    }
    QPushButton* button(const char* label) const
    {
        for (QPushButton* const each : keypad()->findChildren<QPushButton*>()) {
            if (each->text() == text(label))
                return each;
        }
        return nullptr;
    }
    void type(std::initializer_list<const char*> labels) const
    {
        for (const char* const label : labels)
            QTest::mouseClick(button(label), Qt::LeftButton);
    }
    QString problem() const { return keypad()->findChild<QLabel*>(text("range"))->text(); }

    Setting* slider;
    Setting* number;
};

} // namespace

class tst_NumberKeypad : public WzTest {
    Q_OBJECT
private slots:
    void textsAreRead_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("read"); // or what is wrong
        const auto row = [](const char* typed, int kind, const char* read) {
            QTest::addRow("%s, %d", typed, kind) << text(typed) << kind << text(read);
        };
        row("0.25", 0, "0.25 UI");
        row("0,25", 0, "0.25 UI");
        row(" 0.25 UI ", 0, "0.25 UI");
        row("250m", 0, "0.25 UI");
        row("250 mUI", 0, "0.25 UI");
        row("250000 \xC2\xB5", 0, "0.25 UI");
        row("0.00025k", 0, "0.25 UI");
        row("0.254", 0, "0.25 UI"); // as fine as its steps
        row("10.004", 0, "10.00 UI");
        row("10.01", 0, "Too large: 10.00 UI at most");
        row("0", 0, "Too small: 0.01 UI at least");
        row("-5", 0, "Too small: 0.01 UI at least");
        row("1e99", 0, "Too large: 10.00 UI at most");
        row("nan", 0, "This is no number");
        row("inf", 0, "This is no number");
        row("m", 0, "This is no number");
        row("1.2.3", 0, "This is no number");
        row("5 Hz", 0, "This is no number");
        row("", 0, "Enter a number");
        row("  ", 0, "Enter a number");
        row("ab", 1, "AB");
        row("FFFF", 1, "FFFF");
        row("10000", 1, "Too large: FFFF at most");
        row("bad", 1, "This number cannot be chosen");
        row("g", 1, "This is no number");
        row("1.5", 1, "This is no number");
        row("infinite", 2, "Infinite");
        row("-0.1", 2, "Infinite");
        row("2500m", 2, "2.5 s");
        row("50%", 3, "50 %");
        row("5k", 3, "This is no number"); // percents have no prefix
        row("101", 3, "Too large: 100 % at most");
    }
    void textsAreRead()
    {
        QFETCH(QString, typed);
        QFETCH(int, kind);
        const NumberEntry number = kind == 0 ? alarm()
            : kind == 1                      ? identifier()
            : kind == 2                      ? holdTime()
                                             : percent();
        const NumberEntry::Reading reading = number.read(typed);
        QTEST(reading.number ? number.textWithUnit(*reading.number) : reading.problem, "read");
    }

    void rangesAreSaid()
    {
        QCOMPARE(alarm().rangeText(), text("0.01 to 10.00 UI, now 0.20 UI"));
        QCOMPARE(holdTime().rangeText(), text("Infinite to 10.0 s, now 0.0 s"));
    }

    void keysOnTheScreenEnterANumber()
    {
        KeypadFixture f;
        f.window.keypads().openFor(*f.number);
        QVERIFY(f.keypad());
        QCOMPARE(f.problem(), text("0.01 to 10.00 UI, now 0.20 UI"));
        f.type({"2", "5", "0", "m"}); // in place of what stood there
        QCOMPARE(f.keypad()->entry().text(), text("250 m"));
        f.type({"\xC2\xB5"});
        QCOMPARE(f.problem(), text("Too small: 0.01 UI at least"));
        QVERIFY(!f.button("Set")->isEnabled());
        f.key(Qt::Key_Return);
        QVERIFY(f.keypad());
        QCOMPARE(f.number->value(), text("0.20"));
        QVERIFY(!f.button("\xC2\xB1")->isEnabled()); // there is nothing below zero
        f.type({"m", "Set"});
        QCOMPARE(f.number->value(), text("0.25"));
        QVERIFY(!f.keypad());
        f.window.keypads().openFor(*f.number);
        f.type({"Max", "+", "\xE2\x88\x92", "Set"});
        QCOMPARE(f.number->value(), text("9.99"));
        f.window.keypads().openFor(*f.number);
        f.type({"Min", "Cancel"});
        QCOMPARE(f.number->value(), text("9.99"));
    }

    void keysAndKnobEnterANumber()
    {
        KeypadFixture f;
        f.press("Alarm above"); // the strip
        f.press("More...");
        f.press("Keypad");
        QVERIFY(f.keypad());
        f.press("3"); // the ten buttons are digits while the figures have the focus
        f.key(Qt::Key_Period, Qt::Key_5, Qt::Key_Return);
        QCOMPARE(f.number->value(), text("3.50"));
        QVERIFY(!f.keypad());
        QVERIFY(!FunctionController::getInstance().canGoBack());

        f.window.keypads().openFor(*f.number);
        f.key(Qt::Key_PageUp); // the knob goes over the keys
        QPushButton* const first = qobject_cast<QPushButton*>(QApplication::focusWidget());
        QVERIFY(first);
        f.key(Qt::Key_Return);
        QCOMPARE(f.keypad()->entry().text(), first->text());
        f.press("Max");
        f.press("Set");
        QCOMPARE(f.number->value(), text("10.00"));
        f.window.keypads().openFor(*f.number);
        f.key(Qt::Key_1, Qt::Key_Escape);
        QVERIFY(!f.keypad());
        QCOMPARE(f.number->value(), text("10.00"));
    }

    void aTouchOnTheFiguresBringsIt_data()
    {
        QTest::addColumn<bool>("onSlider");
        QTest::newRow("number field") << false;
        QTest::newRow("beside a slider") << true;
    }
    void aTouchOnTheFiguresBringsIt()
    {
        QFETCH(bool, onSlider);
        KeypadFixture f;
        f.window.area().activeWzSubWindow()->openContextMenu(f.window.mapToGlobal(QPoint(100, 100)));
        const QPointer<QWidget> menu = QApplication::activePopupWidget();
        for (TouchAction* const row : menu->findChildren<TouchAction*>()) {
            if (onSlider && &row->setting() == f.slider) {
                QTest::mouseClick(row, Qt::LeftButton, {}, row->figures().center());
            } else if (!onSlider && &row->setting() == f.number) {
                QTest::mouseClick(row->control()->findChild<QLineEdit*>(), Qt::LeftButton);
            }
        }
        QTRY_VERIFY(f.keypad());
        QTRY_VERIFY(!menu);
        f.type({"4", "Set"});
        QCOMPARE(f.slider->value(), onSlider ? text("4") : text("50"));
        QCOMPARE(f.number->value(), onSlider ? text("0.20") : text("4.00"));
    }

    void aSpinBoxOfItsOwnHasOneToo()
    {
        KeypadFixture f;
        auto* const box = new ValidatableSpinBox(&f.window);
        box->setBase(16);
        box->setRange(0, 0xFFFF);
        box->setValidity([](int value) { return value % 2 == 0; });
        box->show();
        QTest::mouseClick(box->findChild<QLineEdit*>(), Qt::LeftButton);
        QTRY_VERIFY(f.keypad());
        f.type({"A", "1"});
        QCOMPARE(f.problem(), text("This number cannot be chosen"));
        f.type({"2", "Set"});
        QCOMPARE(box->value(), 0xA12);
        delete box;
    }

    /// The window, its setting or the instrument may go while a number is entered.
    void whatIsSetMayGo()
    {
        KeypadFixture f;
        f.number->bindTo(&f.window, [](const QStringList&) {});
        f.number->fromElement({text("0.30")}, {}, true);
        f.window.keypads().openFor(*f.number);
        f.number->forget();
        QVERIFY(!f.keypad());
        f.window.keypads().openFor(*f.slider);
        delete f.window.area().activeWzSubWindow();
        QVERIFY(!f.keypad());
        QVERIFY(!FunctionController::getInstance().canGoBack());
        // And the screen, with a keypad over it.
        KeypadFixture other;
        other.window.keypads().openFor(*other.number);
    }

    /// A keypad over a panel gives the keys back to it.
    void itMayLieOverAPanel()
    {
        KeypadFixture f;
        f.window.panels().run(text("help"));
        f.window.keypads().openFor(*f.number);
        f.key(Qt::Key_Escape);
        QVERIFY(!f.keypad() && f.window.panels().openPanel());
        f.window.panels().closePanel();
        QTest::qWait(0);
        f.window.keypads().openFor(*f.slider);
        QVERIFY(f.keypad());
        f.window.keypads().openFor(*f.number);
        QTRY_COMPARE(f.window.findChildren<NumberKeypad*>().size(), 1);
    }
};

WZ_TEST_CLASS(tst_NumberKeypad)
#include "tst_NumberKeypad.moc"
