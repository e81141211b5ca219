#pragma once

#include "commands/CommandExecutor.h"
#include "gui/control/TriggerBanks.h"

#include <QObject>
#include <QPointer>

class DisplayMainWindow;
class WzSubWindow;
class WzSubwindowContent;

/// What the function bar offers on the instrument screen: the triggers of the active window, then those of
/// the screen. While a control of some window has the focus, its triggers lie over these.
class ScreenTriggers : public QObject {
    Q_OBJECT
public:
    explicit ScreenTriggers(DisplayMainWindow& window);
    ~ScreenTriggers() override;

    /// The function bar asks whether the windows of the layout are to go.
    void askBeforeClosingWindows();

private:
    using Trigger = TriggerBanks::Trigger;
    using TriggerList = TriggerBanks::TriggerList;
    using Command = CommandExecutor::Command;

    void onSpotlightChanged(WzSubWindow* window);
    void update();
    void addTriggersOfActiveWindow(TriggerList& triggers);
    void addTriggersOfScreen(TriggerList& triggers);
    void add(TriggerList& triggers, const Trigger& trigger, Command command);
    Trigger makeTrigger(const QString& text, const QString& icon, bool disableWhenLayoutLocked = false) const;
    void offerControl(QWidget& control);
    void followFocus(QWidget* from, QWidget* to);

    DisplayMainWindow& m_window;
    QPointer<WzSubwindowContent> m_content; ///< whose triggers are shown
    /// Owns the question before windows are closed.
    QObject m_question;
};
