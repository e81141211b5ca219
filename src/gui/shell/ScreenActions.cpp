#include "gui/shell/ScreenActions.h"

#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionButton.h"
#include "gui/control/FunctionController.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/WindowMover.h"
#include "gui/style/WzCustomStyle.h"

#include <QApplication>

ScreenActions::ScreenActions(DisplayMainWindow& window, SupportedSubWindows& catalogue)
    : QObject(&window)
    , m_window(window)
    , m_commands(window.commands())
{
    addLayouts();
    addLayoutList();
    addWindows();
    addKindsOfWindows(catalogue);
    addColours();
    addPanelButtons();
    m_commands.setAction(Command::TakeScreenshot, [this] {
        const QString path = m_window.takeScreenshot(&m_window);
        return path.isEmpty() ? CommandOutcome::refused(tr("The screenshot could not be saved"))
                              : CommandOutcome{true, path};
    });
    // Later, so that whoever has asked for it still gets an answer.
    m_commands.setAction(Command::Quit, [this] {
        QMetaObject::invokeMethod(&m_window, &DisplayMainWindow::quitRequested, Qt::QueuedConnection);
    });
}

WzSubWindowManager& ScreenActions::windows() const
{
    return m_window.windows();
}

WzSubWindow* ScreenActions::activeWindow() const
{
    return m_window.area().activeWzSubWindow();
}

QString ScreenActions::lockReason() const
{
    return m_window.applicationState().isLayoutLocked() ? tr("The layouts are locked") : QString();
}

QString ScreenActions::fullReason() const
{
    const bool isFull = windows().getNumberLayouts() >= LayoutList::kMaximumBySwiping;
    return isFull ? tr("There are %1 layouts already").arg(windows().getNumberLayouts()) : lockReason();
}

// --- Layouts

void ScreenActions::addLayouts()
{
    const auto lockReason = [this] { return this->lockReason(); };
    const auto fullReason = [this] { return this->fullReason(); };
    m_commands.setAction(
        Command::CloseLayoutWindows, [this] { windows().closeAllSubWindows(); }, lockReason);
    m_commands.setAction(
        Command::AskBeforeClosingWindows, [this] { m_window.askBeforeClosingWindows(); }, lockReason);
    m_commands.setAction(
        Command::NewLayout,
        [this] {
            windows().addLayoutAtEnd(windows().getNewLayoutName(windows().getLayoutOverview(), false));
            windows().setCurrentWindowLayout(windows().getNumberLayouts() - 1);
        },
        fullReason);
    m_commands.setAction(
        Command::DuplicateLayout, [this] { windows().duplicateLayout(windows().getCurrentWindowLayout()); },
        fullReason);
    m_commands.setAction(
        Command::DeleteLayout, [this] { windows().onDeleteLayout(-1, true); }, lockReason);
    m_commands.setAction(
        Command::RestoreLayout, [this] { windows().restoreDeletedLayout(); },
        [this] {
            return windows().canRestoreDeletedLayout() ? this->lockReason() : tr("No layout was deleted");
        });
    ApplicationState& state = m_window.applicationState();
    m_commands.setAction(Command::LockLayouts, [&state] { state.setLayoutLocked(true); });
    m_commands.setAction(Command::UnlockLayouts, [&state] { state.setLayoutLocked(false); });
}

void ScreenActions::addLayoutList()
{
    m_commands.setAction(Command::NextLayout, [this] { windows().onSwitchWindowLayout(false); });
    m_commands.setAction(Command::PreviousLayout, [this] { windows().onSwitchWindowLayout(true); });
    constexpr int kCount = numberOf(Command::ShowLayout5) - numberOf(Command::ShowLayout1) + 1;
    for (int i = 0; i < kCount; ++i) {
        m_commands.setAction(
            numbered(Command::ShowLayout1, i), [this, i] { showLayout(i); },
            [this, i] {
                return i < windows().getNumberLayouts() ? QString() : tr("There is no layout %1").arg(i + 1);
            });
    }
}

/// The current one would come back as it was stored last.
void ScreenActions::showLayout(int index)
{
    if (index != windows().getCurrentWindowLayout())
        windows().setCurrentWindowLayout(index);
}

// --- Windows

void ScreenActions::addOnActive(Command command, void (*act)(DisplayMainWindow&, WzSubWindow&),
                                bool disableWhenLayoutLocked)
{
    m_commands.setAction(
        command, [this, act] { act(m_window, *activeWindow()); },
        [this, disableWhenLayoutLocked] {
            if (!activeWindow())
                return tr("No window is active");
            return disableWhenLayoutLocked ? lockReason() : QString();
        });
}

void ScreenActions::addWindows()
{
    m_commands.setAction(Command::NextWindow, [this] { m_window.area().activateNextSubWindow(); });
    m_commands.setAction(Command::PreviousWindow, [this] { m_window.area().activatePreviousSubWindow(); });
    addOnActive(Command::ToggleFullScreen,
                [](DisplayMainWindow&, WzSubWindow& window) { window.toggleFullScreen(); });
    addOnActive(
        Command::CloseWindow,
        [](DisplayMainWindow&, WzSubWindow& window) {
            if (WzSubwindowContent* const content = window.content())
                content->requestWindowClose();
            else
                window.close();
        },
        true);
    addOnActive(
        Command::MoveWindow,
        [](DisplayMainWindow& screen, WzSubWindow& window) { screen.mover().start(&window); }, true);
    addOnActive(Command::OpenWindowMenu, [](DisplayMainWindow&, WzSubWindow& window) {
        window.openContextMenu(window.mapToGlobal(QPoint(0, WzSubWindow::kTitleLineHeight)));
    });
    addOnActive(Command::ToggleFreeze, [](DisplayMainWindow&, WzSubWindow& window) {
        if (WzSubwindowContent* const content = window.content())
            content->setFrozen(!content->isFrozen());
    });
}

void ScreenActions::addKindsOfWindows(SupportedSubWindows& catalogue)
{
    for (const SupportedSubWindow& kind : catalogue.getAvailableSubWindows()) {
        if (kind.command)
            m_commands.setAction(*kind.command, [&catalogue, kind] { catalogue.request(kind); });
    }
}

void ScreenActions::addColours()
{
    WzCustomStyle& style = m_window.wzStyle();
    m_commands.setAction(Command::UseDarkTheme, [&style] { style.setTheme(WzPalette::Theme::Dark); });
    m_commands.setAction(Command::UseLightTheme, [&style] { style.setTheme(WzPalette::Theme::Light); });
    m_commands.setAction(Command::ToggleColourBlindPalette,
                         [&style] { style.setColourBlind(!style.isColourBlind()); });
}

// --- The front panel

void ScreenActions::addPanelButtons()
{
    for (quint32 i = 0; i < FunctionBar::kButtons; ++i) {
        m_commands.setAction(
            numbered(Command::PressFunctionButton1, static_cast<int>(i)),
            [this, i] { m_window.pressFunctionButton(i); },
            [this, i] {
                return m_window.functionBar().button(i)->label().isEmpty()
                    ? tr("Button %1 does nothing now").arg(i + 1)
                    : QString();
            });
    }
    m_commands.setAction(Command::PressLogo,
                         [] { FunctionController::getInstance().velmoraButtonPressed(); });
    addKey(Command::PressBack, Qt::Key_Escape);
    addKey(Command::PressOk, Qt::Key_Return);
    addKey(Command::PressUp, Qt::Key_Up);
    addKey(Command::PressDown, Qt::Key_Down);
    addKey(Command::PressLeft, Qt::Key_Left);
    addKey(Command::PressRight, Qt::Key_Right);
    addKey(Command::TurnKnobClockwise, Qt::Key_PageUp);
    addKey(Command::TurnKnobAnticlockwise, Qt::Key_PageDown);
}

void ScreenActions::addKey(Command command, Qt::Key key)
{
    m_commands.setAction(command, [this, key] {
        // Where another program has the keyboard, the panel's buttons are this one's all the same.
        if (!QApplication::activeWindow())
            QApplication::setActiveWindow(&m_window);
        QWidget* receiver = QApplication::activePopupWidget();
        if (!receiver)
            receiver = QApplication::focusWidget();
        FunctionController::sendKeyPressReleaseEvents(receiver ? receiver : &m_window, key, Qt::NoModifier,
                                                      QString());
    });
}
