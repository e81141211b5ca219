#include "gui/control/FocusSweepManager.h"
#include "gui/control/SettingList.h"
#include "gui/control/TouchAction.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

#include <memory>

namespace {

using Shift = FocusSweepManager::Shift;

class Sweep : public FocusSweepManager {
public:
    bool keyboard = false;

protected:
    bool isKeyboardVisible() const override { return keyboard; }
};

/// Controls in two rows of three, and a sweep over them.
struct Panel {
    Panel()
    {
        auto* const grid = new QGridLayout(&area);
        for (int i = 0; i < 6; ++i) {
            controls.push_back(new QPushButton(QString::number(i), &area));
            grid->addWidget(controls.back(), i / 3, i % 3);
        }
        area.show();
        area.activateWindow();
        (void)QTest::qWaitForWindowActive(&area);
        if (area.focusWidget())
            area.focusWidget()->clearFocus();
        sweep.adoptLinearFocusSweep(controls, Qt::Horizontal);
        sweep.setAllowForNewNavigationEvents(true);
    }

    /// Which control has the focus; -1 when none of them.
    int focused() const
    {
        const auto found = std::find(controls.begin(), controls.end(), QApplication::focusWidget());
        return found == controls.end() ? -1 : static_cast<int>(found - controls.begin());
    }

    QWidget area;
    std::vector<QWidget*> controls;
    Sweep sweep;
};

} // namespace

class tst_FocusSweep : public WzTest {
    Q_OBJECT

private slots:
    void indexSteps_data()
    {
        QTest::addColumn<bool>("wrap");
        QTest::addColumn<int>("shift");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("next");
        constexpr int kForward = static_cast<int>(Shift::Increment);
        constexpr int kBack = static_cast<int>(Shift::Decrement);
        QTest::newRow("forward") << false << kForward << 0 << 1;
        QTest::newRow("forward at the end") << false << kForward << 2 << 2;
        QTest::newRow("forward round") << true << kForward << 2 << 0;
        QTest::newRow("back at the start") << false << kBack << 0 << 0;
        QTest::newRow("back round") << true << kBack << 0 << 2;
        QTest::newRow("neither") << true << 7 << 1 << 1;
    }

    void indexSteps()
    {
        QFETCH(bool, wrap);
        QFETCH(int, shift);
        QFETCH(int, index);
        FocusSweepManager sweep;
        sweep.setWrapAround(wrap);
        QTEST(sweep.shiftSweepIndex(static_cast<Shift>(shift), 3, index), "next");
    }

    void controlsThatCannotTakeTheFocusAreSkipped()
    {
        Panel panel;
        panel.controls[1]->setEnabled(false);
        panel.controls[2]->hide();
        panel.sweep.rightPressed();
        QCOMPARE(panel.focused(), 0);
        panel.sweep.rightPressed();
        QCOMPARE(panel.focused(), 3);
        panel.sweep.leftPressed();
        QCOMPARE(panel.focused(), 0);
        for (QWidget* const control : panel.controls)
            control->setEnabled(control == panel.controls[0]);
        panel.sweep.rightPressed();
        QCOMPARE(panel.focused(), 0);
    }

    void endsHoldWithoutWrapping()
    {
        Panel panel;
        panel.sweep.setWrapAround(false);
        panel.sweep.setNewFocusWidget(panel.controls[5]);
        panel.sweep.shaftTurned(true);
        QCOMPARE(panel.focused(), 5);
        panel.sweep.setNewFocusWidget(panel.controls[0]);
        panel.sweep.shaftTurned(false);
        QCOMPARE(panel.focused(), 0);
    }

    void groupsMoveWithinAndAcross()
    {
        Panel panel;
        panel.sweep.setLinearSubFocusSweep({panel.controls.begin(), panel.controls.begin() + 3});
        panel.sweep.setLinearSubFocusSweep({panel.controls.begin() + 3, panel.controls.end()});
        panel.sweep.setNonLinearFocusSweep({panel.controls[1], panel.controls[4]});
        panel.sweep.setNewFocusWidget(panel.controls[2]);
        panel.sweep.rightPressed(); // round in its own row
        QCOMPARE(panel.focused(), 0);
        panel.sweep.downPressed(); // in no column
        QCOMPARE(panel.focused(), 0);
        panel.sweep.rightPressed();
        panel.sweep.downPressed();
        QCOMPARE(panel.focused(), 4);
        panel.sweep.shaftTurned(false); // the knob knows no rows
        panel.sweep.shaftTurned(false);
        QCOMPARE(panel.focused(), 2);
    }

    void aGroupThatIsNotInOrderIsRefused()
    {
        Panel panel;
        QPushButton stranger;
        QVERIFY(!panel.sweep.validateSweep({}));
        QVERIFY(!panel.sweep.validateSweep({panel.controls[0], nullptr}));
        QVERIFY(!panel.sweep.validateSweep({panel.controls[0], panel.controls[0]}));
        QVERIFY(!panel.sweep.validateSweep({panel.controls[0], &stranger}));
        QVERIFY(panel.sweep.validateSweep({panel.controls[1], panel.controls[0]}));
    }

    void nothingMovesUnderTheKeyboardOrWhileEditing()
    {
        Panel panel;
        panel.sweep.setNewFocusWidget(panel.controls[1]);
        panel.sweep.keyboard = true;
        panel.sweep.rightPressed();
        panel.sweep.shaftTurned(true);
        QCOMPARE(panel.focused(), 1);
        panel.sweep.keyboard = false;
        panel.sweep.setAllowForNewNavigationEvents(false);
        panel.sweep.rightPressed();
        QCOMPARE(panel.focused(), 1);
    }

    void controlsMayVanish()
    {
        Panel panel;
        panel.sweep.setNewFocusWidget(panel.controls[1]);
        delete panel.controls[1];
        delete panel.controls[5];
        panel.sweep.rightPressed();
        QCOMPARE(panel.focused(), 0);
        QCOMPARE(panel.sweep.getCompleteLinearSweepSize(), 4);
        for (const int gone : {0, 2, 3, 4})
            delete panel.controls[static_cast<std::size_t>(gone)];
        panel.sweep.rightPressed();
        panel.sweep.okPressed();
        panel.sweep.shaftTurned(true);
        QVERIFY(!panel.sweep.getFocusedWidget());
    }

    /// OK selects, the knob changes, OK releases; what acts at once acts.
    void theKnobEditsWhatOkHasSelected()
    {
        QWidget area;
        QVBoxLayout column(&area);
        QComboBox box;
        box.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        QSpinBox number;
        QPushButton button;
        int clicks = 0;
        connect(&button, &QPushButton::clicked, this, [&clicks] { ++clicks; });
        for (QWidget* const control : std::initializer_list<QWidget*>{&box, &number, &button})
            column.addWidget(control);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        FocusSweepManager sweep;
        sweep.adoptArea(area);
        QCOMPARE(sweep.getCompleteLinearSweepSize(), 3);

        sweep.setNewFocusWidget(&box);
        sweep.okPressed();
        sweep.shaftTurned(true);
        QCOMPARE(box.currentIndex(), 1);
        sweep.shaftTurned(false);
        sweep.shaftTurned(false);
        QCOMPARE(box.currentIndex(), 0);
        sweep.okPressed();
        sweep.shaftTurned(true);
        QCOMPARE(QApplication::focusWidget(), &number);
        QCOMPARE(box.currentIndex(), 0);
        sweep.okPressed();
        sweep.shaftTurned(true);
        QCOMPARE(number.value(), 1);
        sweep.allowOkPress(false);
        sweep.okPressed();
        QVERIFY(sweep.isFocusWidgetSelected());
        sweep.allowOkPress(true);
        sweep.okPressed();
        sweep.downPressed();
        sweep.okPressed();
        QCOMPARE(clicks, 1);
        QVERIFY(!sweep.isFocusWidgetSelected());
    }

    /// A finger on a slider means the slider: the knob goes on with it.
    void aTouchedControlIsSelected()
    {
        QWidget area;
        QVBoxLayout column(&area);
        QSlider slider(Qt::Horizontal);
        QPushButton button;
        slider.setFocusPolicy(Qt::StrongFocus);
        column.addWidget(&slider);
        column.addWidget(&button);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        FocusSweepManager sweep;
        sweep.adoptArea(area);
        slider.setFocus();
        QVERIFY(!sweep.isFocusWidgetSelected());
        QTest::mouseClick(&slider, Qt::LeftButton); // it has the focus already
        QVERIFY(sweep.isFocusWidgetSelected());
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(!sweep.isFocusWidgetSelected());
    }

    void touchActionsTurn_data()
    {
        QTest::addColumn<int>("optionCount");
        QTest::newRow("side by side") << 3;
        QTest::newRow("as a combo box") << 30;
    }

    void touchActionsTurn()
    {
        QFETCH(int, optionCount);
        WzDisplayCustomStyle style;
        QWidget area;
        SettingList settings(style, nullptr);
        std::vector<Setting::Option> options;
        for (int i = 0; i < optionCount; ++i)
            options.push_back({QStringLiteral("Option %1").arg(i), QString::number(i)});
        Setting* const setting = settings.addOptions(QStringLiteral("Choice"), options);
        setting->initialise({QStringLiteral("0")});
        TouchAction action(*setting, style, 492, &area);
        QCOMPARE(qobject_cast<QComboBox*>(action.control()) != nullptr, optionCount > 3);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        FocusSweepManager sweep;
        sweep.adoptArea(area);
        QCOMPARE(sweep.getCompleteLinearSweepSize(), 1);
        sweep.setNewFocusWidget(&action);
        sweep.okPressed();
        sweep.shaftTurned(true);
        sweep.shaftTurned(true);
        QCOMPARE(setting->value(), QStringLiteral("2"));
        sweep.shaftTurned(false);
        QCOMPARE(setting->value(), QStringLiteral("1"));
    }
};

WZ_TEST_CLASS(tst_FocusSweep)

#include "tst_FocusSweep.moc"
