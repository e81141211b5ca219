#include "gui/control/TriggerBanks.h"

#include "gui/control/FunctionTrigger.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

namespace {

TriggerBanks::TriggerList numbered(int count)
{
    TriggerBanks::TriggerList triggers;
    for (int i = 1; i <= count; ++i)
        triggers.push_back(FunctionTrigger::makeTrigger(QString::number(i)));
    return triggers;
}

TriggerBanks::Banks layOut(const std::vector<TriggerBanks::TriggerList>& lists)
{
    const auto pager = [](const QString& text) {
        return [text](const QString& superscript) {
            auto trigger = FunctionTrigger::makeTrigger(text);
            trigger->setSuperscriptText(superscript);
            return trigger;
        };
    };
    return TriggerBanks::layOut(lists, {pager(TriggerBanks::moreText()), pager(TriggerBanks::nextText())});
}

/// "1 2 - - ... More...(1 of 2)": the slots of a row, empty ones as "-".
QString textOf(const TriggerBanks::Row& row)
{
    QStringList slotTexts;
    for (const auto& trigger : row) {
        slotTexts << (trigger ? trigger->getButtonText() : QStringLiteral("-"));
        if (trigger && !trigger->getSuperscriptText().isEmpty())
            slotTexts.back() += QLatin1Char('(') + trigger->getSuperscriptText() + QLatin1Char(')');
    }
    return slotTexts.join(QLatin1Char(' '));
}

} // namespace

class tst_TriggerBanks : public WzTest {
    Q_OBJECT
private slots:
    void rows_data()
    {
        QTest::addColumn<int>("triggers");
        QTest::addColumn<bool>("hasNext");
        QTest::addColumn<quint32>("rows");
        const auto row = [](int triggers, bool hasNext, quint32 rows) {
            QTest::addRow("%d%s", triggers, hasNext ? " with Next" : "") << triggers << hasNext << rows;
        };
        row(0, false, 0);
        row(1, false, 1);
        row(10, false, 1);
        row(11, false, 2);
        row(18, false, 2);
        row(19, false, 3);
        row(25, false, 3);
        row(27, false, 3);
        row(28, false, 4);
        row(90, false, 10);
        row(91, false, 11);
        row(0, true, 1);
        row(9, true, 1);
        row(10, true, 2);
        row(16, true, 2);
        row(17, true, 3);
        row(80, true, 10);
    }

    void rows()
    {
        QFETCH(int, triggers);
        QFETCH(bool, hasNext);
        QFETCH(quint32, rows);
        QCOMPARE(TriggerBanks::rowsNeeded(static_cast<std::size_t>(triggers), hasNext), rows);
    }

    /// Whatever their number, none is lost, none doubled, and their order stays.
    void everyTriggerHasOneSlot()
    {
        for (int lists = 1; lists <= 2; ++lists) {
            for (int count = 0; count <= 120; ++count) {
                QStringList found;
                const auto banks = layOut({static_cast<std::size_t>(lists), numbered(count)});
                for (const auto& row : banks.front()) {
                    for (const auto& trigger : row) {
                        if (trigger && !TriggerBanks::isPager(*trigger))
                            found << trigger->getButtonText();
                    }
                }
                QCOMPARE(found.size(), count);
                for (int i = 0; i < count; ++i)
                    QCOMPARE(found.at(i).toInt(), i + 1);
            }
        }
    }

    void pagersStandLast()
    {
        const auto flat = layOut({numbered(11)});
        QCOMPARE(textOf(flat[0][0]), QStringLiteral("1 2 3 4 5 6 7 8 9 More...(1 of 2)"));
        QCOMPARE(textOf(flat[0][1]), QStringLiteral("10 11 - - - - - - - More...(2 of 2)"));
        const auto banks = layOut({numbered(10), numbered(9), {}});
        QCOMPARE(textOf(banks[0][0]), QStringLiteral("1 2 3 4 5 6 7 8 More...(1 of 2) Next...(1 of 3)"));
        QCOMPARE(textOf(banks[0][1]), QStringLiteral("9 10 - - - - - - More...(2 of 2) Next...(1 of 3)"));
        QCOMPARE(textOf(banks[1][0]), QStringLiteral("1 2 3 4 5 6 7 8 9 Next...(2 of 3)"));
        QCOMPARE(textOf(banks[2][0]), QStringLiteral("- - - - - - - - - Next...(3 of 3)"));
    }

    void aNullTriggerKeepsItsSlotEmpty()
    {
        auto triggers = numbered(3);
        triggers[1] = nullptr;
        QCOMPARE(textOf(layOut({triggers})[0][0]), QStringLiteral("1 - 3 - - - - - - -"));
    }
};

WZ_TEST_CLASS(tst_TriggerBanks)

#include "tst_TriggerBanks.moc"
