#include "gui/control/FunctionController.h"

#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionBarBankChangedEvent.h"
#include "gui/control/FunctionButton.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/style/WzCustomStyle.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QApplication>
#include <QSignalSpy>

namespace {

FunctionController& controller()
{
    return FunctionController::getInstance();
}

/// Triggers with the labels "a1", "a2" and so on.
FunctionController::TriggerList some(char prefix, int count)
{
    FunctionController::TriggerList triggers;
    for (int i = 1; i <= count; ++i)
        triggers.push_back(FunctionTrigger::makeTrigger(QLatin1Char(prefix) + QString::number(i)));
    return triggers;
}

/// Owns a context and writes down what it is told.
class Owner : public QObject {
public:
    using QObject::QObject;

    QStringList told;
    std::function<void()> onBack;
    std::function<void()> onBank;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == FunctionBarBackEvent::getEventType()) {
            told << QStringLiteral("back");
            if (onBack)
                onBack();
            return true;
        }
        if (event->type() == FunctionBarBankChangedEvent::getEventType()) {
            const quint32 bank = static_cast<FunctionBarBankChangedEvent*>(event)->getBank();
            told << QStringLiteral("bank %1").arg(bank);
            if (onBank)
                onBank();
            return true;
        }
        return QObject::event(event);
    }
};

} // namespace

class tst_FunctionController : public WzTest {
    Q_OBJECT

    std::unique_ptr<FunctionBar> m_bar;
    std::unique_ptr<Owner> m_owner;

    /// The labels on the bar, up to the last one.
    QString shown() const
    {
        QStringList labels;
        for (quint32 i = 0; i < FunctionBar::kButtons; ++i) {
            const QString label = m_bar->button(i)->label();
            labels << (label.isEmpty() ? QStringLiteral("-") : label);
        }
        while (!labels.isEmpty() && labels.back() == QLatin1String("-"))
            labels.removeLast();
        return labels.join(QLatin1Char(' '));
    }

private slots:
    void init()
    {
        WzTest::init();
        m_bar = std::make_unique<FunctionBar>(*qobject_cast<WzCustomStyle*>(QApplication::style()), nullptr);
        m_bar->resize(1920, m_bar->height());
        m_bar->show();
        m_owner = std::make_unique<Owner>();
        controller().setFunctionBar(m_bar.get());
    }

    void cleanup()
    {
        m_owner.reset();
        QCOMPARE(shown(), QString());
        m_bar.reset();
        WzTest::cleanup();
    }

    void moreComesRound()
    {
        controller().registerTriggers(some('a', 11), m_owner.get());
        QCOMPARE(shown(), QStringLiteral("a1 a2 a3 a4 a5 a6 a7 a8 a9 More..."));
        controller().buttonPressed(9);
        QCOMPARE(shown(), QStringLiteral("a10 a11 - - - - - - - More..."));
        controller().buttonPressed(9);
        QCOMPARE(shown(), QStringLiteral("a1 a2 a3 a4 a5 a6 a7 a8 a9 More..."));
    }

    void nextComesRoundAndIsTold()
    {
        auto second = some('b', 12);
        second[10]->setButtonSelected(true);
        controller().registerTriggers({some('a', 2), second}, m_owner.get());
        QCOMPARE(shown(), QStringLiteral("a1 a2 - - - - - - - Next..."));
        controller().buttonPressed(9);
        // The row with what is selected comes first.
        QCOMPARE(shown(), QStringLiteral("b9 b10 b11 b12 - - - - More... Next..."));
        controller().morePressed();
        controller().buttonPressed(9);
        QCOMPARE(shown(), QStringLiteral("a1 a2 - - - - - - - Next..."));
        QCOMPARE(m_owner->told, (QStringList{QStringLiteral("bank 1"), QStringLiteral("bank 0")}));
        controller().changeTriggerBank(7);
        QCOMPARE(controller().getCurrentTriggerBank(), 0U);
    }

    void pressing()
    {
        controller().buttonPressed(0); // nothing is registered
        auto triggers = some('a', 2);
        const QSignalSpy first(triggers[0].get(), &FunctionTrigger::triggered);
        controller().registerTriggers(triggers, m_owner.get());
        QTest::mouseClick(m_bar->button(0), Qt::LeftButton);
        QCOMPARE(first.size(), 1);
        controller().buttonPressed(5);
        QTest::mouseClick(m_bar->button(5), Qt::LeftButton);
        log().expectError(QStringLiteral("There is no function button 10"));
        controller().buttonPressed(10);
        QCOMPARE(first.size(), 1);
    }

    void aTriggerMayReplaceItself()
    {
        auto triggers = some('a', 1);
        connect(triggers[0].get(), &FunctionTrigger::triggered, m_owner.get(),
                [this] { controller().registerTriggers(some('b', 1), m_owner.get()); });
        controller().registerTriggers(triggers, m_owner.get());
        triggers.clear();
        controller().buttonPressed(0);
        QCOMPARE(shown(), QStringLiteral("b1"));
        QVERIFY(!controller().canGoBack());
    }

    void whileLayoutsAreLocked()
    {
        const auto locked = std::make_shared<FunctionTrigger>(QStringLiteral("Close"), true);
        const auto open = FunctionTrigger::makeTrigger(QStringLiteral("Freeze"));
        const QSignalSpy closed(locked.get(), &FunctionTrigger::triggered);
        const QSignalSpy frozen(open.get(), &FunctionTrigger::triggered);
        controller().registerTriggers({locked, open}, m_owner.get());
        controller().setLayoutLocked(true);
        QVERIFY(!m_bar->button(0)->isEnabled());
        QVERIFY(m_bar->button(1)->isEnabled());
        controller().buttonPressed(0);
        controller().buttonPressed(1);
        QCOMPARE(closed.size(), 0);
        QCOMPARE(frozen.size(), 1);
        controller().setLayoutLocked(false);
        QVERIFY(m_bar->button(0)->isEnabled());
        controller().buttonPressed(0);
        QCOMPARE(closed.size(), 1);
    }

    void theLogoOpensTheMenuOrGoesBack()
    {
        const QSignalSpy menu(&controller(), &FunctionController::requestVelmoraMenu);
        Owner nested;
        controller().registerTriggers({some('a', 2), some('c', 3)}, m_owner.get());
        controller().nextBankPressed();
        QTest::mouseClick(&m_bar->velmoraButton(), Qt::LeftButton);
        QCOMPARE(menu.size(), 1);
        controller().registerTriggers(some('b', 1), &nested);
        QCOMPARE(shown(), QStringLiteral("b1"));
        QTest::mouseClick(&m_bar->velmoraButton(), Qt::LeftButton);
        QCOMPARE(menu.size(), 1);
        QCOMPARE(nested.told, QStringList(QStringLiteral("back")));
        QCOMPARE(m_owner->told, QStringList(QStringLiteral("bank 1")));
        // The context returns as it was left.
        QCOMPARE(shown(), QStringLiteral("c1 c2 c3 - - - - - - Next..."));
        QVERIFY(!controller().triggersExistForObject(&nested));
        controller().functionTriggersGoBack();
        QVERIFY(controller().triggersExistForObject(m_owner.get()));
    }

    /// Whatever the owner that is left does when it is told.
    void ownersActWhileTheyAreTold()
    {
        controller().registerTriggers(some('a', 1), m_owner.get());
        auto* const dying = new Owner;
        dying->onBack = [dying] { delete dying; };
        controller().registerTriggers(some('b', 1), dying);
        controller().functionTriggersGoBack();
        QCOMPARE(shown(), QStringLiteral("a1"));
        Owner returning;
        returning.onBack = [&returning] { controller().registerTriggers(some('d', 1), &returning); };
        controller().registerTriggers(some('c', 1), &returning);
        controller().functionTriggersGoBack();
        QCOMPARE(shown(), QStringLiteral("d1"));
        QVERIFY(controller().canGoBack());
    }

    void theBankIsKeptWhateverItsOwnerDoes()
    {
        controller().registerTriggers({some('a', 1), some('b', 2)}, m_owner.get());
        m_owner->onBank = [] { controller().setTriggersOnTopOfStack(some('c', 1)); };
        controller().nextBankPressed();
        QCOMPARE(shown(), QStringLiteral("c1"));
        controller().functionTriggersGoBack();
        QCOMPARE(shown(), QStringLiteral("b1 b2 - - - - - - - Next..."));
    }

    void anotherBarShowsWhatIsOnTop()
    {
        Owner nested;
        controller().registerTriggers(some('a', 1), m_owner.get());
        controller().registerTriggers(some('b', 2), &nested);
        auto other =
            std::make_unique<FunctionBar>(*qobject_cast<WzCustomStyle*>(QApplication::style()), nullptr);
        controller().setFunctionBar(other.get());
        m_bar.swap(other);
        QCOMPARE(shown(), QStringLiteral("b1 b2"));
        QTest::mouseClick(&other->velmoraButton(), Qt::LeftButton); // of the bar before
        QCOMPARE(shown(), QStringLiteral("b1 b2"));
        QTest::mouseClick(&m_bar->velmoraButton(), Qt::LeftButton);
        QCOMPARE(shown(), QStringLiteral("a1"));
    }

    void ownersDie()
    {
        const QSignalSpy canGoBack(&controller(), &FunctionController::canGoBackChanged);
        auto below = std::make_unique<Owner>();
        controller().registerTriggers(some('a', 1), below.get());
        controller().registerTriggers(some('b', 1), m_owner.get());
        {
            Owner shownOwner;
            controller().registerTriggers(some('c', 1), &shownOwner);
            controller().setTriggersOnTopOfStack(some('d', 1));
            QCOMPARE(shown(), QStringLiteral("d1"));
        }
        QCOMPARE(shown(), QStringLiteral("b1"));
        below.reset();
        QCOMPARE(shown(), QStringLiteral("b1"));
        QVERIFY(!controller().canGoBack());
        QCOMPARE(canGoBack.size(), 2);
    }

    void registeringAgainReplaces()
    {
        Owner nested;
        controller().registerTriggers(some('a', 1), m_owner.get());
        controller().registerTriggers(some('b', 1), &nested);
        controller().registerTriggers(some('c', 1), m_owner.get());
        QCOMPARE(shown(), QStringLiteral("b1"));
        controller().registerTriggers(some('d', 1), &nested);
        QCOMPARE(shown(), QStringLiteral("d1"));
        controller().functionTriggersGoBack();
        QCOMPARE(shown(), QStringLiteral("c1"));
        QVERIFY(!controller().canGoBack());
    }

    void childrenGoWithTheirParent()
    {
        Owner dialog;
        Owner* const group = new Owner(&dialog);
        Owner* const field = new Owner(group);
        controller().registerTriggers(some('a', 1), m_owner.get());
        controller().registerTriggers(some('b', 1), &dialog);
        controller().registerTriggers(some('c', 1), field);
        controller().clearTriggersForObject(&dialog);
        QCOMPARE(shown(), QStringLiteral("c1"));
        controller().removeTriggersAndChildTriggersForObject(&dialog);
        QCOMPARE(shown(), QStringLiteral("a1"));
        QVERIFY(!controller().triggersExistForObject(field));
    }

    void theBarFollowsItsTriggers()
    {
        auto triggers = some('a', 2);
        triggers[0]->setButtonInstances(2);
        controller().registerTriggers(triggers, m_owner.get());
        triggers[1]->setSuperscriptText(QStringLiteral("On"));
        triggers[1]->setButtonSelected(true);
        QCOMPARE(m_bar->button(0)->marks(), 2);
        QCOMPARE(m_bar->button(1)->superscript(), QStringLiteral("On"));
        QVERIFY(m_bar->button(1)->isSelected());
        // Nothing of it stays with a slot that is empty next.
        controller().registerTriggers(some('b', 0), m_owner.get());
        QVERIFY(!m_bar->button(1)->isSelected());
        QCOMPARE(m_bar->button(1)->superscript() + m_bar->button(1)->label(), QString());
    }
};

WZ_TEST_CLASS(tst_FunctionController)

#include "tst_FunctionController.moc"
