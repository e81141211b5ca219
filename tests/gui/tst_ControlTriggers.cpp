#include "gui/control/ControlTriggers.h"

#include "gui/control/FunctionTrigger.h"
#include "gui/control/ValidatableSpinBox.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>

namespace {

QStringList labelsOf(const TriggerBanks::TriggerList& triggers)
{
    QStringList labels;
    for (const auto& trigger : triggers)
        labels << trigger->getButtonText();
    return labels;
}

/// Presses the triggers with these labels, parted by spaces, one after the other.
void press(const TriggerBanks::TriggerList& triggers, const char* labels)
{
    const QStringList all = labelsOf(triggers);
    const QStringList pressed = QString::fromLatin1(labels).split(QLatin1Char(' '));
    for (const QString& label : pressed) {
        const int index = all.indexOf(label);
        QVERIFY2(index >= 0, qPrintable(label));
        emit triggers[static_cast<std::size_t>(index)]->triggered();
    }
}

} // namespace

class tst_ControlTriggers : public WzTest {
    Q_OBJECT
private slots:
    void anEntryIsChosenByOneStep()
    {
        QComboBox box;
        box.addItems({QStringLiteral("Auto"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D")});
        const auto triggers = ControlTriggers::forWidget(&box);
        QCOMPARE(labelsOf(triggers).size(), 4);
        const QSignalSpy activated(&box, QOverload<int>::of(&QComboBox::activated));
        const QSignalSpy changed(&box, QOverload<int>::of(&QComboBox::currentIndexChanged));
        press(triggers, "D");
        QCOMPARE(box.currentIndex(), 3);
        QCOMPARE(activated.size(), 1);
        QCOMPARE(changed.size(), 1);
        // Also when the value of the instrument changes it.
        box.setCurrentIndex(1);
        QVERIFY(triggers[1]->getButtonSelected());
        QVERIFY(!triggers[3]->getButtonSelected());
        box.removeItem(3);
        box.setItemData(2, 0, Qt::UserRole - 1); // disables it
        press(triggers, "C D");
        QCOMPARE(box.currentIndex(), 1);
        QCOMPARE(activated.size(), 1);
    }

    void theEndsOfASlider()
    {
        QSlider slider;
        slider.setRange(-20, 70);
        const auto triggers = ControlTriggers::forWidget(&slider);
        press(triggers, "Max");
        QCOMPARE(slider.value(), 70);
        press(triggers, "Min");
        QCOMPARE(slider.value(), -20);
    }

    void charactersOfASpinBox_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<QString>("characters");
        QTest::newRow("binary") << 2 << QStringLiteral("01");
        QTest::newRow("octal") << 8 << QStringLiteral("01234567");
        QTest::newRow("decimal") << 10 << QStringLiteral("0123456789");
        QTest::newRow("hexadecimal") << 16 << QStringLiteral("0123456789abcdef");
        QTest::newRow("beyond") << 36 << QStringLiteral("0123456789abcdef");
    }

    void charactersOfASpinBox()
    {
        QFETCH(int, base);
        QFETCH(QString, characters);
        ValidatableSpinBox box;
        box.setBase(base);
        QStringList labels = labelsOf(ControlTriggers::forWidget(&box));
        QCOMPARE(labels.mid(labels.size() - 2),
                 (QStringList{QStringLiteral("Backspace"), QStringLiteral("Delete")}));
        QCOMPARE(labels.mid(0, labels.size() - 2).join(QString()), characters);
    }

    void typingIntoASpinBox()
    {
        ValidatableSpinBox box;
        box.setRange(0, 0x3FF);
        box.setBase(16);
        const auto triggers = ControlTriggers::forWidget(&box);
        box.selectAll();
        press(triggers, "Backspace 2 a f");
        QCOMPARE(box.value(), 0x2AF);
        press(triggers, "Backspace");
        QCOMPARE(box.value(), 0x2A);
        box.findChild<QLineEdit*>()->setCursorPosition(0);
        press(triggers, "Delete");
        QCOMPARE(box.value(), 0xA);
        box.setEnabled(false);
        press(triggers, "1");
        QCOMPARE(box.value(), 0xA);
    }

    void typingDecimals()
    {
        QDoubleSpinBox box;
        box.setLocale(QLocale(QLocale::German));
        box.setDecimals(2);
        box.setRange(0, 100);
        const auto triggers = ControlTriggers::forWidget(&box);
        box.selectAll();
        press(triggers, "2 . 7");
        QCOMPARE(box.value(), 2.7);
        box.setDecimals(0);
        QVERIFY(!labelsOf(ControlTriggers::forWidget(&box)).contains(QStringLiteral(".")));
    }

    /// They do nothing then.
    void triggersOutliveTheirControl()
    {
        auto* const box = new QSpinBox;
        const auto triggers = ControlTriggers::forWidget(box);
        delete box;
        press(triggers, "1 Delete");
    }

    void otherWidgetsHaveNone()
    {
        QLineEdit edit;
        QVERIFY(!ControlTriggers::isCompatible(&edit));
        QVERIFY(!ControlTriggers::isCompatible(nullptr));
        QVERIFY(ControlTriggers::forWidget(&edit).empty());
    }

    void whatIsNotValidIsSteppedOverAndNotTaken()
    {
        ValidatableSpinBox box;
        box.setRange(0, 20);
        box.setValidity([](int value) { return value % 4 == 0; });
        box.stepBy(1);
        QCOMPARE(box.value(), 4);
        box.stepBy(-1);
        QCOMPARE(box.value(), 0);
        box.stepBy(-1);
        QCOMPARE(box.value(), 0);
        box.setValue(20);
        box.stepBy(1);
        QCOMPARE(box.value(), 20);
        box.selectAll();
        press(ControlTriggers::forWidget(&box), "1");
        QCOMPARE(box.value(), 20);
        press(ControlTriggers::forWidget(&box), "2");
        QCOMPARE(box.value(), 12);
        box.setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        box.setValidity([](int) { return false; });
        box.stepBy(10);
        QCOMPARE(box.value(), 12);
    }
};

WZ_TEST_CLASS(tst_ControlTriggers)

#include "tst_ControlTriggers.moc"
