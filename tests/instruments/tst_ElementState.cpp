#include "instruments/MeterSettingTexts.h"
#include "gui/control/ElementState.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using Verdict = ElementState::Verdict;

class tst_ElementState : public WzTest {
    Q_OBJECT

private slots:
    void isJudgedByTheWorst_data()
    {
        QTest::addColumn<QStringList>("values");
        QTest::addColumn<QStringList>("reasons");
        QTest::addColumn<bool>("active");
        QTest::addColumn<int>("verdict");
        const auto row = [](const char* name, const char* values, const char* reasons, bool active,
                            Verdict verdict) {
            const auto list = [](const char* text) {
                return QString::fromLatin1(text).split(QLatin1Char('|'), Qt::SkipEmptyParts);
            };
            QTest::newRow(name) << list(values) << list(reasons) << active << static_cast<int>(verdict);
        };
        row("value", "1", "", true, Verdict::Valid);
        row("no value yet", "", "", true, Verdict::Unknown);
        row("remark", "1", "Info: rounded", true, Verdict::Valid);
        row("warning behind remark", "1", "Info: a|Warning: b", true, Verdict::Warning);
        row("error behind warning", "1", "Warning: a|Error: b", true, Verdict::Error);
        row("no value, which is wrong", "", "Error: a", true, Verdict::Error);
        row("inactive, whatever is wrong", "1", "Error: a", false, Verdict::Inactive);
    }
    void isJudgedByTheWorst()
    {
        QFETCH(QStringList, values);
        QFETCH(QStringList, reasons);
        QFETCH(bool, active);
        const ElementState state{values, reasons, active};
        QTEST(static_cast<int>(state.verdict()), "verdict");
        // A node that is there but has not had its value holds one empty item.
        if (values.isEmpty())
            QCOMPARE((ElementState{{QString()}, reasons, active}.verdict()), state.verdict());
    }

    void settingsOfTheMetersRead_data()
    {
        QTest::addColumn<bool>("isHoldTime");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("text");
        const auto row = [](bool isHoldTime, const char* value, const char* text) {
            QTest::addRow("%d %s", isHoldTime, value)
                << isHoldTime << QString::fromLatin1(value) << QString::fromLatin1(text);
        };
        row(false, "0", "PPM Type I");
        row(false, "4", "Fast");
        row(false, "5", "5");
        row(false, "256", "256");
        row(false, "-1", "-1");
        row(true, "-0.1", "Infinite");
        row(true, "0", "0.0 s");
        row(true, "10", "10.0 s");
        row(true, "soon", "soon");
    }
    void settingsOfTheMetersRead()
    {
        QFETCH(bool, isHoldTime);
        QFETCH(QString, value);
        QTEST(isHoldTime ? MeterSettingTexts::hatHoldTime(value) : MeterSettingTexts::ballistics(value),
              "text");
    }
};

WZ_TEST_CLASS(tst_ElementState)
#include "tst_ElementState.moc"
