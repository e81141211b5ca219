#include "gui/shell/ShellPanel.h"

#include "gui/control/FocusNeighbour.h"
#include "gui/control/FocusSweepManager.h"
#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/shell/PanelCard.h"
#include "gui/shell/ToolBar.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kTouchTarget = 56;
constexpr int kIconSize = 24;
constexpr int kTitleHeight = 64;
constexpr char kIconProperty[] = "shellIcon";

} // namespace

ShellPanel::ShellPanel(MainWindowBase& window, const QString& iconName, const QString& title, Place place)
    : QWidget(&window)
    , m_mainWindow(window)
    , m_place(place)
    , m_card(new PanelCard(window.wzStyle(), place != Place::Middle, this))
    , m_titleLine(new QWidget(m_card))
    , m_sweep(new FocusSweepManager(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName(title);
    setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    auto* const column = new QVBoxLayout(m_card);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_titleLine);
    m_contents = new QVBoxLayout;
    m_contents->setContentsMargins(kPadding, 0, kPadding, kPadding);
    m_contents->setSpacing(kGap);
    column->addLayout(m_contents, 1);
    setupTitleLine(iconName, title);
    connect(&wzStyle(), &WzCustomStyle::subWindowSettingsaUpdated, this, &ShellPanel::applyTheme);
    hide();
}

ShellPanel::~ShellPanel()
{
    FunctionController::getInstance().removeTriggersAndChildTriggersForObject(this);
}

WzCustomStyle& ShellPanel::wzStyle() const
{
    return m_mainWindow.wzStyle();
}

void ShellPanel::setupTitleLine(const QString& iconName, const QString& title)
{
    m_titleLine->setFixedHeight(kTitleHeight);
    auto* const row = new QHBoxLayout(m_titleLine);
    row->setContentsMargins(m_place == Place::Middle ? kPadding : 2 * kPadding, 4, 4, 4);
    row->setSpacing(12);
    auto* const icon = new QPushButton(m_titleLine);
    icon->setFlat(true);
    icon->setAttribute(Qt::WA_TransparentForMouseEvents);
    icon->setFocusPolicy(Qt::NoFocus);
    icon->setFixedSize(kIconSize + 4, kTouchTarget);
    setIcon(icon, iconName);
    auto* const name = new QLabel(title, m_titleLine);
    name->setFont(Fonts::ofPixels(m_place == Place::Middle ? Fonts::kBodyPixels : Fonts::kReadOutPixels));
    m_titleDetail = new QLabel(m_titleLine);
    m_titleDetail->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    m_titleDetail->setForegroundRole(QPalette::PlaceholderText);
    auto* const close = new QPushButton(m_titleLine);
    close->setFlat(true);
    close->setFixedSize(kTouchTarget, kTouchTarget);
    close->setToolTip(tr("Close"));
    close->setAccessibleName(tr("Close"));
    setIcon(close, QStringLiteral("close"));
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    row->addWidget(icon);
    row->addWidget(name);
    row->addWidget(m_titleDetail);
    row->addStretch(1);
    row->addWidget(close);
}

void ShellPanel::hideTitleLine()
{
    m_titleLine->hide();
    m_contents->setContentsMargins(0, 0, 0, 0);
}

void ShellPanel::setTitleDetail(const QString& detail)
{
    m_titleDetail->setText(detail);
}

void ShellPanel::setCardWidth(int width)
{
    m_cardWidth = width;
    placeCard();
}

void ShellPanel::setIcon(QAbstractButton* button, const QString& iconName)
{
    button->setProperty(kIconProperty, iconName);
    button->setIconSize({kIconSize, kIconSize});
    button->setIcon(wzStyle().icon(iconName));
}

void ShellPanel::applyTheme()
{
    const auto buttons = findChildren<QAbstractButton*>();
    for (QAbstractButton* const button : buttons) {
        const QString iconName = button->property(kIconProperty).toString();
        if (!iconName.isEmpty())
            setIcon(button, iconName);
    }
    onThemeChanged();
    updateFunctionTriggers();
    update();
}

// --- Opening and leaving

void ShellPanel::open()
{
    m_focusBefore = QApplication::focusWidget();
    applyTheme();
    placePanel();
    m_mainWindow.installEventFilter(this);
    qApp->installEventFilter(this);
    show();
    raise();
    placeCard();
    // Before the focus: a control that it goes to may have triggers of its own, which lie over these.
    updateFunctionTriggers();
    takeKeys();
}

/// Arrows, OK and knob act on the panel while it is open.
void ShellPanel::takeKeys()
{
    SpotlightManager& spotlight = SpotlightManager::getInstance();
    m_sweepBefore = spotlight.getCurrentSweepManager();
    m_previousBefore = spotlight.getPreviousSweepManager();
    spotlight.setPrevSweepManager(m_sweepBefore);
    spotlight.setCurrentSweepManager(m_sweep);
    m_sweep->adoptArea(*m_card);
    QWidget* const first =
        m_firstFocus ? m_firstFocus.data() : FocusNeighbour::first(m_sweep->getCompleteLinearSweep());
    (first ? first : this)->setFocus(Qt::OtherFocusReason);
    if (first && m_firstFocusIsSelected)
        m_sweep->selectFocusWidget();
}

void ShellPanel::setFirstFocus(QWidget* widget, bool isSelected)
{
    m_firstFocus = widget;
    m_firstFocusIsSelected = isSelected;
}

void ShellPanel::giveKeysBack()
{
    SpotlightManager& spotlight = SpotlightManager::getInstance();
    if (spotlight.getCurrentSweepManager() != m_sweep)
        return;
    // Another window may have become active meanwhile; a panel below keeps the keys all the same.
    FocusSweepManager* const previous = spotlight.getPreviousSweepManager();
    const bool isOverPanel = m_sweepBefore && qobject_cast<ShellPanel*>(m_sweepBefore->parent());
    spotlight.setCurrentSweepManager(isOverPanel ? m_sweepBefore.data() : previous);
    if (isOverPanel && previous == m_sweepBefore)
        spotlight.setPrevSweepManager(m_previousBefore);
}

void ShellPanel::closeEvent(QCloseEvent* event)
{
    qApp->removeEventFilter(this);
    giveKeysBack();
    FunctionController::getInstance().removeTriggersAndChildTriggersForObject(this);
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    QWidget::closeEvent(event);
    if (hadFocus)
        (m_focusBefore && m_focusBefore->isVisible() ? m_focusBefore.data() : &m_mainWindow)->setFocus();
}

void ShellPanel::abandon()
{
    m_focusBefore = &m_mainWindow;
    close();
}

void ShellPanel::customEvent(QEvent* event)
{
    if (event->type() == FunctionBarBackEvent::getEventType())
        close();
}

bool ShellPanel::isBeside(const QPoint& position) const
{
    return !m_card->geometry().contains(position);
}

void ShellPanel::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (isBeside(event->pos()))
        close();
}

void ShellPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        leave();
    else
        QWidget::keyPressEvent(event);
}

// --- Places

void ShellPanel::placePanel()
{
    setGeometry(m_mainWindow.rect().adjusted(0, ToolBar::kHeight, 0, -FunctionBar::kHeight));
}

void ShellPanel::placeCard()
{
    if (m_place == Place::Full) {
        m_card->setGeometry(rect());
        return;
    }
    const QSize hint = m_card->sizeHint();
    const int wide = m_cardWidth > 0 ? m_cardWidth : hint.width();
    // Text may be broken into lines.
    const QLayout& layout = *m_card->layout();
    const QSize wanted(wide, layout.hasHeightForWidth() ? layout.totalHeightForWidth(wide) : hint.height());
    if (m_place != Place::Middle) {
        const int shown = qMin(wanted.width(), width());
        m_card->setGeometry(m_place == Place::Left ? 0 : width() - shown, 0, shown, height());
        return;
    }
    QRect place({}, wanted.boundedTo(size()));
    place.moveCenter(rect().center());
    m_card->setGeometry(place);
}

void ShellPanel::resizeEvent(QResizeEvent*)
{
    placeCard();
}

bool ShellPanel::event(QEvent* event)
{
    // What the card holds wants another size.
    if (event->type() == QEvent::LayoutRequest)
        placeCard();
    return QWidget::event(event);
}

// --- Function bar

ShellPanel::TriggerList ShellPanel::functionTriggers()
{
    TriggerList triggers;
    for (QPushButton* const button : m_commandButtons) {
        if (button->isHidden())
            continue;
        // Each stays at its place, whichever others can be given.
        triggers.push_back(button->isEnabled()
                               ? makeTrigger(button->text(), button->property(kIconProperty).toString(),
                                             [button] { button->click(); })
                               : nullptr);
    }
    return triggers;
}

void ShellPanel::updateFunctionTriggers()
{
    if (isVisible())
        FunctionController::getInstance().registerTriggers(functionTriggers(), this);
}

ShellPanel::Trigger ShellPanel::makeTrigger(const QString& text, const QString& iconName,
                                            std::function<void()> action) const
{
    const WzCustomStyle& style = wzStyle();
    const auto trigger = iconName.isEmpty() ? FunctionTrigger::makeTrigger(text)
                                            : FunctionTrigger::makeTrigger(text, style.icon(iconName));
    connect(trigger.get(), &FunctionTrigger::triggered, this, std::move(action));
    return trigger;
}

QPushButton* ShellPanel::addCommand(const QString& text, const QString& iconName)
{
    if (!m_commands) {
        m_commands = new QHBoxLayout;
        m_commands->setContentsMargins(0, kGroupGap - kGap, 0, 0);
        m_commands->setSpacing(kGap);
        m_contents->addLayout(m_commands);
    }
    auto* const button = new QPushButton(text, m_card);
    setIcon(button, iconName);
    m_commands->addWidget(button, 1);
    m_commandButtons.push_back(button);
    return button;
}

// --- Keys

bool ShellPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_mainWindow && event->type() == QEvent::Resize)
        placePanel();
    if (event->type() != QEvent::ShortcutOverride || watched != QApplication::focusWidget())
        return QWidget::eventFilter(watched, event);
    auto* const focused = static_cast<QWidget*>(watched);
    if (!m_card->isAncestorOf(focused))
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    // These would move windows otherwise.
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab && key != Qt::Key_Space)
        return QWidget::eventFilter(watched, event);
    event->accept();
    return true;
}
