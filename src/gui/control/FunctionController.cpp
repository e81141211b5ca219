#include "gui/control/FunctionController.h"

#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionBarBankChangedEvent.h"
#include "gui/control/FunctionTrigger.h"
#include "logging/Logging.h"

#include <QCoreApplication>

#include <utility>

FunctionController& FunctionController::getInstance()
{
    static FunctionController controller;
    return controller;
}

void FunctionController::setFunctionBar(FunctionBar* bar)
{
    if (m_bar)
        disconnect(m_bar, nullptr, this, nullptr);
    m_bar = bar;
    if (m_bar) {
        connect(m_bar, &FunctionBar::buttonPressed, this, &FunctionController::buttonPressed);
        connect(m_bar, &FunctionBar::velmoraButtonPressed, this, &FunctionController::velmoraButtonPressed);
        m_bar->toggleVelmoraButtonAsBackArrow(canGoBack());
    }
    updateFunctionBar();
}

void FunctionController::setLayoutLocked(bool locked)
{
    m_isLayoutLocked = locked;
    updateFunctionBar();
}

// --- Registering

void FunctionController::registerTriggers(const TriggerList& triggers, QObject* owner)
{
    registerTriggers(TriggerBankList{triggers}, owner);
}

void FunctionController::registerTriggers(const TriggerBankList& banks, QObject* owner)
{
    if (!owner)
        return;
    if (!m_stack.knows(owner)) {
        connect(owner, &QObject::destroyed, this, &FunctionController::removeOwner);
        push({m_stack.addOwner(owner), owner, layOut(banks)});
        return;
    }
    TriggerNode* const node = m_stack.find(m_stack.idOf(owner));
    node->banks = layOut(banks);
    if (node == &m_stack.top())
        updateFunctionTriggers(node->banks);
}

void FunctionController::setTriggersOnTopOfStack(const TriggerList& triggers)
{
    if (!m_stack.isEmpty())
        push({m_stack.top().id, m_stack.top().owner, layOut({triggers})});
}

void FunctionController::push(const TriggerNode& node)
{
    m_stack.push(node);
    loadLastTriggersInNodeStack();
}

void FunctionController::clearTriggersForObject(QObject* owner)
{
    if (!m_stack.knows(owner))
        return;
    disconnect(owner, &QObject::destroyed, this, nullptr);
    removeOwner(owner);
}

void FunctionController::removeTriggersAndChildTriggersForObject(QObject* owner)
{
    clearTriggersForObject(owner);
    for (QObject* const child : m_stack.ownersBelow(owner))
        clearTriggersForObject(child);
}

void FunctionController::removeOwner(QObject* owner)
{
    if (m_stack.removeOwner(owner))
        loadLastTriggersInNodeStack();
    else
        noteStackChanged();
}

bool FunctionController::triggersExistForObject(QObject* owner) const
{
    return m_stack.knows(owner);
}

// --- Showing

void FunctionController::updateFunctionTriggers(const TriggerBanks::Banks& banks)
{
    m_banks = banks;
    for (const TriggerBanks::Bank& bank : m_banks) {
        for (const TriggerBanks::Row& row : bank) {
            for (const TriggerBanks::Trigger& trigger : row) {
                if (trigger)
                    connect(trigger.get(), &FunctionTrigger::changed, this,
                            &FunctionController::updateFunctionBar, Qt::UniqueConnection);
            }
        }
    }
    if (m_currentBank >= m_banks.size())
        m_currentBank = 0;
    updateTriggerBankRow();
    updateFunctionBar();
}

TriggerBanks::Banks FunctionController::layOut(const TriggerBankList& lists)
{
    return TriggerBanks::layOut(
        lists,
        {[this](const QString& superscript) {
             return makePager(TriggerBanks::moreText(), superscript, &FunctionController::morePressed);
         },
         [this](const QString& superscript) {
             return makePager(TriggerBanks::nextText(), superscript, &FunctionController::nextBankPressed);
         }});
}

TriggerBanks::Trigger FunctionController::makePager(const QString& text, const QString& superscript,
                                                    void (FunctionController::*onTriggered)())
{
    auto pager = FunctionTrigger::makeTrigger(text);
    pager->setSuperscriptText(superscript);
    connect(pager.get(), &FunctionTrigger::triggered, this, onTriggered);
    return pager;
}

const TriggerBanks::Bank* FunctionController::currentBank() const
{
    return m_currentBank < m_banks.size() ? &m_banks[m_currentBank] : nullptr;
}

const TriggerBanks::Row* FunctionController::currentRow() const
{
    const TriggerBanks::Bank* const bank = currentBank();
    return bank && m_currentRow < bank->size() ? &(*bank)[m_currentRow] : nullptr;
}

bool FunctionController::isDisabled(const FunctionTrigger& trigger) const
{
    return trigger.getDisableWhenLayoutLocked() && m_isLayoutLocked;
}

void FunctionController::updateFunctionBar()
{
    if (!m_bar)
        return;
    const TriggerBanks::Row* const row = currentRow();
    if (!row) {
        m_bar->clearFunctionBar();
        return;
    }
    const bool hasMarks = TriggerBanks::hasMarks(*row);
    for (quint32 i = 0; i < TriggerBanks::kSlotsPerRow; ++i) {
        const FunctionTrigger* const trigger = (*row)[i].get();
        if (!trigger) {
            m_bar->clearFunctionButton(i);
            continue;
        }
        m_bar->setUpFunctionButton(i, trigger->getButtonText(), trigger->getButtonIcon());
        m_bar->setSuperscriptText(i, trigger->getSuperscriptText());
        m_bar->setWordWrap(i, trigger->getWordWrap());
        m_bar->setPointSize(i, trigger->getTextSize());
        m_bar->setIndicatorNumIcons(i, trigger->getButtonInstances(),
                                    hasMarks && !TriggerBanks::isPager(*trigger));
        m_bar->setButtonEnabled(i, !isDisabled(*trigger));
        m_bar->setButtonSelected(i, trigger->getButtonSelected());
    }
}

void FunctionController::clearFunctionTriggers()
{
    m_banks.clear();
    m_currentBank = 0;
    m_currentRow = 0;
    clearFunctionBar();
}

void FunctionController::clearFunctionBar()
{
    if (m_bar)
        m_bar->clearFunctionBar();
}

void FunctionController::loadLastTriggersInNodeStack()
{
    if (m_stack.isEmpty()) {
        clearFunctionTriggers();
    } else {
        m_currentBank = m_stack.top().currentBank;
        updateFunctionTriggers(m_stack.top().banks);
    }
    noteStackChanged();
}

void FunctionController::noteStackChanged()
{
    if (m_bar)
        m_bar->toggleVelmoraButtonAsBackArrow(canGoBack());
    if (canGoBack() == std::exchange(m_couldGoBack, canGoBack()))
        return;
    emit canGoBackChanged(m_couldGoBack);
}

quint32 FunctionController::calculateNumberOfTriggerRowsInBank(const TriggerList& triggers,
                                                               bool hasNextButton)
{
    return TriggerBanks::rowsNeeded(triggers.size(), hasNextButton);
}

// --- Pressing

void FunctionController::buttonPressed(quint32 index)
{
    if (index >= TriggerBanks::kSlotsPerRow) {
        Velmora::log()->error("There is no function button {}", index);
        return;
    }
    const TriggerBanks::Row* const row = currentRow();
    if (!row)
        return;
    // Its own, since what it does may put others on the bar.
    const TriggerBanks::Trigger trigger = (*row)[index];
    if (trigger && !isDisabled(*trigger))
        emit trigger->triggered();
}

void FunctionController::morePressed()
{
    const TriggerBanks::Bank* const bank = currentBank();
    m_currentRow = bank && m_currentRow + 1 < bank->size() ? m_currentRow + 1 : 0;
    updateFunctionBar();
}

void FunctionController::nextBankPressed()
{
    changeTriggerBank(m_currentBank + 1);
}

void FunctionController::changeTriggerBank(quint32 bank)
{
    setCurrentTriggerBank(bank);
    updateTriggerBankRow();
    updateFunctionBar();
}

void FunctionController::setCurrentTriggerBank(quint32 bank)
{
    m_currentBank = bank < m_banks.size() ? bank : 0;
    if (m_stack.isEmpty())
        return;
    m_stack.top().currentBank = m_currentBank;
    issueBankChangedEvent(m_stack.top().owner);
}

void FunctionController::updateTriggerBankRow()
{
    const TriggerBanks::Bank* const bank = currentBank();
    m_currentRow = bank ? TriggerBanks::rowWithSelected(*bank) : 0;
}

// --- Going back

void FunctionController::velmoraButtonPressed()
{
    if (canGoBack())
        functionTriggersGoBack();
    else
        emit requestVelmoraMenu();
}

void FunctionController::functionTriggersGoBack()
{
    if (!canGoBack())
        return;
    clearFunctionTriggers();
    const TriggerNode left = m_stack.pop();
    if (left.owner && !m_stack.knows(left.owner))
        disconnect(left.owner, &QObject::destroyed, this, nullptr);
    issueBackEvent(left.owner);
    loadLastTriggersInNodeStack();
}

void FunctionController::issueBackEvent(QObject* owner)
{
    if (!owner)
        return;
    FunctionBarBackEvent event;
    QCoreApplication::sendEvent(owner, &event);
}

void FunctionController::issueBankChangedEvent(QObject* owner) const
{
    if (!owner)
        return;
    FunctionBarBankChangedEvent event(m_currentBank);
    QCoreApplication::sendEvent(owner, &event);
}
