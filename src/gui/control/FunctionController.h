#pragma once

#include "gui/control/TriggerStack.h"

#include <QObject>
#include <QPointer>

class FunctionBar;
class FunctionTrigger;
class QComboBox;
class QDoubleSpinBox;
class QSlider;
class QSpinBox;
class QWidget;
class ValidatableSpinBox;

/// Owns what the soft buttons do: a stack of contexts, each with its triggers, of which the top one is on the
/// function bar. One for the whole program. Owners of contexts are told of events at once, and may register,
/// clear or die while they are told.
class FunctionController : public QObject {
    Q_OBJECT
public:
    using TriggerList = TriggerBanks::TriggerList;
    using TriggerBankList = std::vector<TriggerList>;

    using TriggerNode = TriggerStack::Node;

    static FunctionController& getInstance();

    /// The bar may be null, and is not owned.
    void setFunctionBar(FunctionBar* bar);

    /// Puts the owner's triggers on top. An owner that has a context gets other triggers in it, where it
    /// stands. A null trigger leaves a slot empty.
    void registerTriggers(const TriggerList& triggers, QObject* owner);
    /// The same with one bank for each list.
    void registerTriggers(const TriggerBankList& banks, QObject* owner);
    /// A further context of the owner that is on top, over the one that it has.
    void setTriggersOnTopOfStack(const TriggerList& triggers);
    /// Shows other banks until a context is shown again. They begin at the bank of now if there is one.
    void updateFunctionTriggers(const TriggerBanks::Banks& banks);

    void registerTriggersFromWidget(QWidget* control, QObject* owner);
    void registerTriggersFromComboBox(QComboBox* comboBox, QObject* owner);
    void registerTriggersFromSlider(QSlider* slider, QObject* owner);
    void registerTriggersFromSpinbox(QSpinBox* spinBox, QObject* owner);
    void registerTriggersFromSpinbox(ValidatableSpinBox* spinBox, QObject* owner);
    void registerTriggersFromSpinbox(QDoubleSpinBox* spinBox, QObject* owner);
    static bool isWidgetTriggerCompatible(QWidget* control);
    static void addNumericTriggersToVector(TriggerList& triggers, QWidget* control,
                                           const QString& characters);
    static void addBackspaceTriggerToVector(TriggerList& triggers, QWidget* control);
    static void addDeleteTriggerToVector(TriggerList& triggers, QWidget* control);
    static void sendKeyPressReleaseEvents(QObject* receiver, Qt::Key key, Qt::KeyboardModifier modifier,
                                          const QString& text);

    void clearTriggersForObject(QObject* owner);
    /// Also those of all objects below @p owner.
    void removeTriggersAndChildTriggersForObject(QObject* owner);
    bool triggersExistForObject(QObject* owner) const;
    /// Empties what is shown; the contexts stay.
    void clearFunctionTriggers();
    void clearFunctionBar();

    quint32 getCurrentTriggerBank() const { return m_currentBank; }
    /// A bank past the end is the first one. Tells the owner on top, and shows nothing yet.
    void setCurrentTriggerBank(quint32 bank);
    /// Shows the bank, from the row with what is selected in it.
    void changeTriggerBank(quint32 bank);
    void updateTriggerBankRow();
    void updateFunctionBar();
    static quint32 calculateNumberOfTriggerRowsInBank(const TriggerList& triggers, bool hasNextButton);

    bool canGoBack() const { return m_stack.canGoBack(); }
    void loadLastTriggersInNodeStack();
    static void issueBackEvent(QObject* owner);
    void issueBankChangedEvent(QObject* owner) const;

public slots:
    /// While it is locked, what changes the layout is disabled.
    void setLayoutLocked(bool locked);

    void buttonPressed(quint32 index);
    void morePressed();
    void nextBankPressed();
    void velmoraButtonPressed();
    /// Leaves the context on top, whose owner is told. Nothing while there is none to go back to.
    void functionTriggersGoBack();

signals:
    /// The main menu is to open.
    void requestVelmoraMenu();
    void canGoBackChanged(bool canGoBack);

private:
    FunctionController() = default;

    TriggerBanks::Banks layOut(const TriggerBankList& lists);
    TriggerBanks::Trigger makePager(const QString& text, const QString& superscript,
                                    void (FunctionController::*onTriggered)());
    void push(const TriggerNode& node);
    void removeOwner(QObject* owner);
    const TriggerBanks::Bank* currentBank() const;
    const TriggerBanks::Row* currentRow() const;
    bool isDisabled(const FunctionTrigger& trigger) const;
    void noteStackChanged();

    TriggerStack m_stack;
    TriggerBanks::Banks m_banks;
    quint32 m_currentBank = 0;
    quint32 m_currentRow = 0;
    bool m_couldGoBack = false;
    bool m_isLayoutLocked = false;
    QPointer<FunctionBar> m_bar;
};
