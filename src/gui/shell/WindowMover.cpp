#include "gui/shell/WindowMover.h"

#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/style/WzCustomStyle.h"

#include <utility>

WindowMover::WindowMover(DisplayMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    // Another window, another layout or the lock: what was being moved stays where it is.
    connect(&SpotlightManager::getInstance(), &SpotlightManager::spotlightChanged, this, &WindowMover::keep);
    connect(&window.applicationState(), &ApplicationState::layoutLockChanged, this, &WindowMover::keep);
}

WindowMover::~WindowMover() = default;

void WindowMover::start(WzSubWindow* window)
{
    if (!window || m_window.applicationState().isLayoutLocked())
        return;
    window->setSubWindowFullScreen(false);
    m_moved = window;
    m_before = window->geometry();
    showTriggers();
}

void WindowMover::showTriggers()
{
    FunctionController::TriggerList triggers;
    const auto add = [this, &triggers](const QString& text, const QString& icon, auto action) {
        const WzCustomStyle& style = m_window.wzStyle();
        auto trigger = std::make_shared<FunctionTrigger>(text, style.icon(icon), true);
        connect(trigger.get(), &FunctionTrigger::triggered, this, action);
        triggers.push_back(std::move(trigger));
    };
    add(tr("Left"), QStringLiteral("left"), [this] { move(-1, 0); });
    add(tr("Right"), QStringLiteral("right"), [this] { move(1, 0); });
    add(tr("Up"), QStringLiteral("up"), [this] { move(0, -1); });
    add(tr("Down"), QStringLiteral("down"), [this] { move(0, 1); });
    add(tr("Smaller"), QStringLiteral("exit-full-screen"), [this] { size(false); });
    add(tr("Larger"), QStringLiteral("full-screen"), [this] { size(true); });
    add(tr("Done"), QStringLiteral("check"), [this] { keep(); });
    FunctionController::getInstance().registerTriggers(triggers, this);
}

QSize WindowMover::cell() const
{
    return m_window.area().instrumentArea().size() / 4;
}

void WindowMover::move(int dx, int dy)
{
    if (!m_moved)
        return;
    const QRect area = m_window.area().instrumentArea();
    QRect bounds = m_moved->geometry().translated(dx * cell().width(), dy * cell().height());
    bounds.moveLeft(qBound(area.left(), bounds.left(), area.right() + 1 - bounds.width()));
    bounds.moveTop(qBound(area.top(), bounds.top(), area.bottom() + 1 - bounds.height()));
    m_moved->setBounds(bounds);
}

void WindowMover::size(bool larger)
{
    if (m_moved)
        m_moved->setBounds({m_moved->pos(), nextSize(larger)});
}

QSize WindowMover::nextSize(bool larger) const
{
    const QSize now = m_moved->size();
    if (m_moved->content()->isScalable())
        return larger ? now + cell() : now - cell();
    const std::vector<QSize> sizes = m_moved->content()->getAllowedWindowSizes();
    const auto area = [](const QSize& size) { return size.width() * size.height(); };
    QSize next = now;
    for (const QSize& size : sizes) {
        const bool isBeyond = larger ? area(size) > area(now) : area(size) < area(now);
        const bool isNearer = next == now || (larger ? area(size) < area(next) : area(size) > area(next));
        if (isBeyond && isNearer)
            next = size;
    }
    return next;
}

void WindowMover::keep()
{
    end();
}

void WindowMover::undo()
{
    if (m_moved)
        m_moved->setBounds(m_before);
    end();
}

void WindowMover::end()
{
    if (std::exchange(m_moved, nullptr))
        FunctionController::getInstance().clearTriggersForObject(this);
}

bool WindowMover::event(QEvent* event)
{
    if (event->type() != FunctionBarBackEvent::getEventType())
        return QObject::event(event);
    undo();
    return true;
}
