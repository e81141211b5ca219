#include "gui/shell/SettingStrip.h"

#include "gui/control/FocusSweepManager.h"
#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionController.h"
#include "gui/control/Setting.h"
#include "gui/control/TouchAction.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/style/WzCustomStyle.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace {

constexpr int kWidth = 620;
constexpr int kPadding = 12;
constexpr int kRadius = 6;

} // namespace

SettingStrip::SettingStrip(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_sweep(new FocusSweepManager(this))
{
    hide();
    connect(m_sweep, &FocusSweepManager::focusWidgetDeselected, this, &SettingStrip::leave);
}

SettingStrip::~SettingStrip() = default;

void SettingStrip::edit(Setting& setting)
{
    leave();
    m_focusBefore = QApplication::focusWidget();
    m_action = new TouchAction(setting, m_style, kWidth - 2 * kPadding, this);
    m_action->move(kPadding, kPadding);
    m_action->adjustSize();
    resize(kWidth, m_action->height() + 2 * kPadding);
    connect(&setting, &QObject::destroyed, m_action, [this] {
        m_focusBefore.clear(); // it may be dying as well
        leave();
    });
    connect(&setting, &Setting::changed, m_action, [this, &setting] {
        if (!setting.isUsable())
            leave();
    });
    show();
    m_action->show();
    emit shown();
    takeControl(*m_action->control());
}

void SettingStrip::takeControl(QWidget& control)
{
    std::vector<QWidget*> controls{m_action};
    m_sweep->adoptLinearFocusSweep(controls, Qt::Horizontal);
    SpotlightManager& spotlight = SpotlightManager::getInstance();
    spotlight.setPrevSweepManager(spotlight.getCurrentSweepManager());
    spotlight.setCurrentSweepManager(m_sweep);
    control.installEventFilter(this);
    control.setFocus(Qt::OtherFocusReason);
    m_sweep->setWidgetInFocus(m_action);
    m_sweep->selectFocusWidget();
}

void SettingStrip::leave()
{
    TouchAction* const action = std::exchange(m_action, nullptr);
    if (!action)
        return;
    SpotlightManager& spotlight = SpotlightManager::getInstance();
    if (spotlight.getCurrentSweepManager() == m_sweep)
        spotlight.setCurrentSweepManager(spotlight.getPreviousSweepManager());
    m_sweep->clear();
    const bool hadFocus = action->isAncestorOf(QApplication::focusWidget());
    hide();
    FunctionController::getInstance().clearTriggersForObject(action->control());
    // It may be one of its own events that has led here.
    action->deleteLater();
    if (hadFocus && m_focusBefore)
        m_focusBefore->setFocus(Qt::OtherFocusReason);
}

void SettingStrip::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        leave();
    else
        QWidget::keyPressEvent(event);
}

bool SettingStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == FunctionBarBackEvent::getEventType()) {
        leave();
    } else if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            leave();
    }
    return QWidget::eventFilter(watched, event);
}

void SettingStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_style.colour(ColourRole::Border));
    painter.setBrush(m_style.colour(ColourRole::Background));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}
