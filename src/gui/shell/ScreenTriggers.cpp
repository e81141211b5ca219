#include "gui/shell/ScreenTriggers.h"

#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/control/SettingList.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/UndoStep.h"
#include "gui/shell/WindowMover.h"
#include "gui/style/WzCustomStyle.h"

#include <QAbstractSpinBox>
#include <QApplication>

ScreenTriggers::ScreenTriggers(DisplayMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    connect(&SpotlightManager::getInstance(), &SpotlightManager::spotlightChanged, this,
            &ScreenTriggers::onSpotlightChanged);
    connect(&window.windows(), &WzSubWindowManager::layoutsChanged, this, &ScreenTriggers::update);
    connect(&window.area(), &WzMdiArea::windowsChanged, this, &ScreenTriggers::update);
    connect(&window.applicationState(), &ApplicationState::layoutLockChanged, this, &ScreenTriggers::update);
    connect(&window.undoStep(), &UndoStep::offered, this, &ScreenTriggers::update);
    connect(&window.undoStep(), &UndoStep::undone, this, &ScreenTriggers::update);
    connect(qApp, &QApplication::focusChanged, this, &ScreenTriggers::followFocus);
    update();
}

ScreenTriggers::~ScreenTriggers()
{
    FunctionController& controller = FunctionController::getInstance();
    controller.clearTriggersForObject(&m_question);
    controller.clearTriggersForObject(this);
}

/// Options that are open belong to the window that was active.
void ScreenTriggers::onSpotlightChanged(WzSubWindow* window)
{
    WzSubwindowContent* const content = window ? window->content() : nullptr;
    if (m_content && m_content != content)
        m_content->settings().closeOptions();
    m_content = content;
    update();
}

void ScreenTriggers::update()
{
    // It names windows that may not be those of now.
    FunctionController::getInstance().clearTriggersForObject(&m_question);
    TriggerList triggers;
    addTriggersOfActiveWindow(triggers);
    addTriggersOfScreen(triggers);
    FunctionController::getInstance().registerTriggers(triggers, this);
}

ScreenTriggers::Trigger ScreenTriggers::makeTrigger(const QString& text, const QString& icon,
                                                    bool disableWhenLayoutLocked) const
{
    const WzCustomStyle& style = m_window.wzStyle();
    return std::make_shared<FunctionTrigger>(text, style.icon(icon), disableWhenLayoutLocked);
}

void ScreenTriggers::addTriggersOfActiveWindow(TriggerList& triggers)
{
    WzSubWindow* const active = SpotlightManager::getInstance().windowInSpotlight();
    if (!active || &active->area() != &m_window.area())
        return;
    if (WzSubwindowContent* const content = active->content())
        triggers = content->functionTriggers();
    const auto fullScreen = makeTrigger(tr("Full Screen"), QStringLiteral("full-screen"));
    fullScreen->setButtonSelected(active->isSubWindowFullScreen());
    connect(active, &WzSubWindow::fullScreenChanged, fullScreen.get(), &FunctionTrigger::setButtonSelected);
    connect(fullScreen.get(), &FunctionTrigger::triggered, active, &WzSubWindow::toggleFullScreen);
    triggers.push_back(fullScreen);
    const auto move = makeTrigger(tr("Move Window"), QStringLiteral("layouts"), true);
    connect(move.get(), &FunctionTrigger::triggered, active,
            [this, active] { m_window.mover().start(active); });
    triggers.push_back(move);
    const auto menu = makeTrigger(tr("Window Menu"), QStringLiteral("menu"));
    connect(menu.get(), &FunctionTrigger::triggered, active, [active] {
        active->openContextMenu(active->mapToGlobal(QPoint(0, WzSubWindow::kTitleLineHeight)));
    });
    triggers.push_back(menu);
}

void ScreenTriggers::addTriggersOfScreen(TriggerList& triggers)
{
    WzSubWindowManager& windows = m_window.windows();
    ApplicationState& state = m_window.applicationState();
    const auto add = [&](const Trigger& trigger, auto action) {
        connect(trigger.get(), &FunctionTrigger::triggered, this, action);
        triggers.push_back(trigger);
    };
    for (const bool previous : {true, false}) {
        const auto step = FunctionTrigger::makeTrigger(previous ? tr("Previous Layout") : tr("Next Layout"));
        const QString name = m_window.windows().nameOfLayoutBeside(previous);
        step->setSuperscriptText(name.isEmpty() ? tr("None") : name);
        add(step, [&windows, previous] { windows.onSwitchWindowLayout(previous); });
    }
    const auto lock = makeTrigger(tr("Lock Layouts"), QStringLiteral("lock"));
    lock->setButtonSelected(state.isLayoutLocked());
    add(lock, [&state] { state.setLayoutLocked(!state.isLayoutLocked()); });
    add(makeTrigger(QStringLiteral("Take Screenshot"), QStringLiteral("screenshot")),
        [this] { m_window.takeScreenshot(&m_window); });
    add(makeTrigger(QStringLiteral("Close Layout Windows"), QStringLiteral("close"), true),
        [this] { askBeforeClosingWindows(); });
    UndoStep& undo = m_window.undoStep();
    if (undo.isPossible())
        add(makeTrigger(tr("Undo"), QStringLiteral("back")), [&undo] { undo.undo(); });
}

void ScreenTriggers::askBeforeClosingWindows()
{
    const auto count = static_cast<int>(m_window.windows().getVisibleOpenWindows().size());
    if (count == 0)
        return;
    FunctionController& controller = FunctionController::getInstance();
    const auto keep = makeTrigger(tr("Keep Windows"), QStringLiteral("back"));
    const auto close = makeTrigger(count == 1 ? tr("Close Window") : tr("Close %1 Windows").arg(count),
                                   QStringLiteral("close"), true);
    connect(keep.get(), &FunctionTrigger::triggered, &controller,
            &FunctionController::functionTriggersGoBack);
    connect(close.get(), &FunctionTrigger::triggered, this, [this] {
        FunctionController::getInstance().clearTriggersForObject(&m_question);
        m_window.windows().closeAllSubWindows();
    });
    controller.registerTriggers(TriggerList{keep, close}, &m_question);
}

void ScreenTriggers::followFocus(QWidget* from, QWidget* to)
{
    FunctionController& controller = FunctionController::getInstance();
    if (from && FunctionController::isWidgetTriggerCompatible(from))
        controller.clearTriggersForObject(from);
    if (!to || !to->isEnabled() || !m_window.isAncestorOf(to))
        return;
    controller.registerTriggersFromWidget(to, to);
    if (auto* const spinBox = qobject_cast<QAbstractSpinBox*>(to))
        spinBox->selectAll(); // the first digit begins another number
}
