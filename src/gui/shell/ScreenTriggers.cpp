#include "gui/shell/ScreenTriggers.h"

#include "gui/control/ControlTriggers.h"
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
#include "gui/shell/KeypadOpener.h"
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
    add(triggers, fullScreen, Command::ToggleFullScreen);
    add(triggers, makeTrigger(tr("Move Window"), QStringLiteral("layouts"), true), Command::MoveWindow);
    add(triggers, makeTrigger(tr("Window Menu"), QStringLiteral("menu")), Command::OpenWindowMenu);
}

void ScreenTriggers::add(TriggerList& triggers, const Trigger& trigger, Command command)
{
    connect(trigger.get(), &FunctionTrigger::triggered, this,
            [this, command] { m_window.commands().execute(command); });
    triggers.push_back(trigger);
}

void ScreenTriggers::addTriggersOfScreen(TriggerList& triggers)
{
    const bool isLocked = m_window.applicationState().isLayoutLocked();
    for (const bool previous : {true, false}) {
        const auto step = FunctionTrigger::makeTrigger(previous ? tr("Previous Layout") : tr("Next Layout"));
        const QString name = m_window.windows().nameOfLayoutBeside(previous);
        step->setSuperscriptText(name.isEmpty() ? tr("None") : name);
        add(triggers, step, previous ? Command::PreviousLayout : Command::NextLayout);
    }
    const auto lock = makeTrigger(tr("Lock Layouts"), QStringLiteral("lock"));
    lock->setButtonSelected(isLocked);
    add(triggers, lock, isLocked ? Command::UnlockLayouts : Command::LockLayouts);
    add(triggers, makeTrigger(QStringLiteral("Take Screenshot"), QStringLiteral("screenshot")),
        Command::TakeScreenshot);
    add(triggers, makeTrigger(QStringLiteral("Close Layout Windows"), QStringLiteral("close"), true),
        Command::AskBeforeClosingWindows);
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

/// What the control understands, and the keypad where it holds a number.
void ScreenTriggers::offerControl(QWidget& control)
{
    FunctionController& controller = FunctionController::getInstance();
    if (!KeypadOpener::hasNumber(control) || !FunctionController::isWidgetTriggerCompatible(&control)) {
        controller.registerTriggersFromWidget(&control, &control);
        return;
    }
    TriggerList triggers = ControlTriggers::forWidget(&control);
    triggers.push_back(makeTrigger(tr("Keypad"), QStringLiteral("rename")));
    connect(triggers.back().get(), &FunctionTrigger::triggered, &control,
            [this, &control] { m_window.keypads().openFor(control); });
    controller.registerTriggers(triggers, &control);
}

void ScreenTriggers::followFocus(QWidget* from, QWidget* to)
{
    FunctionController& controller = FunctionController::getInstance();
    if (from && FunctionController::isWidgetTriggerCompatible(from))
        controller.clearTriggersForObject(from);
    if (!to || !to->isEnabled() || !m_window.isAncestorOf(to))
        return;
    offerControl(*to);
    if (auto* const spinBox = qobject_cast<QAbstractSpinBox*>(to))
        spinBox->selectAll(); // the first digit begins another number
}
