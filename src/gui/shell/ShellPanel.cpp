#include "gui/shell/ShellPanel.h"

#include "gui/control/FocusNeighbour.h"
#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/shell/PanelCard.h"
#include "gui/shell/ToolBar.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTextEdit>
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
    button->setIcon(Icons::icon(Icons::path(iconName), kIconSize, wzStyle().colour(ColourRole::Text),
                                wzStyle().colour(ColourRole::DisabledText)));
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
    // Arrows and Enter are for the panel's controls, whatever they would do with them.
    qApp->installEventFilter(this);
    show();
    raise();
    placeCard();
    // Before the focus: a control that it goes to may have triggers of its own, which lie over these.
    updateFunctionTriggers();
    QWidget* const first = m_firstFocus ? m_firstFocus.data() : FocusNeighbour::first(*m_card);
    (first ? first : this)->setFocus(Qt::OtherFocusReason);
}

void ShellPanel::closeEvent(QCloseEvent* event)
{
    qApp->removeEventFilter(this);
    FunctionController::getInstance().removeTriggersAndChildTriggersForObject(this);
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    QWidget::closeEvent(event);
    if (hadFocus)
        (m_focusBefore && m_focusBefore->isVisible() ? m_focusBefore.data() : &m_mainWindow)->setFocus();
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
    if (m_place == Place::Left) {
        m_card->setGeometry(0, 0, qMin(wanted.width(), width()), height());
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
    const auto trigger = iconName.isEmpty()
        ? FunctionTrigger::makeTrigger(text)
        : FunctionTrigger::makeTrigger(text,
                                       Icons::icon(Icons::path(iconName), kIconSize,
                                                   style.colour(ColourRole::Text),
                                                   style.colour(ColourRole::DisabledText)));
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
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || watched != QApplication::focusWidget())
        return QWidget::eventFilter(watched, event);
    auto* const focused = static_cast<QWidget*>(watched);
    if (!m_card->isAncestorOf(focused))
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (event->type() == QEvent::KeyPress)
        return filterKey(*focused, key) || QWidget::eventFilter(watched, event);
    // These would move windows otherwise.
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab && key != Qt::Key_Space)
        return QWidget::eventFilter(watched, event);
    event->accept();
    return true;
}

bool ShellPanel::filterKey(QWidget& focused, int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto* const button = qobject_cast<QAbstractButton*>(&focused)) {
            button->click();
            return true;
        }
        return false;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (keepsKey(focused, key))
            return false;
        if (QWidget* const next = FocusNeighbour::of(focused, *m_card, static_cast<Qt::Key>(key)))
            moveFocus(*next);
        return true;
    default:
        return false;
    }
}

void ShellPanel::moveFocus(QWidget& next)
{
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    next.setFocus(Qt::TabFocusReason);
    next.update();
    for (QWidget* around = next.parentWidget(); around && around != this; around = around->parentWidget()) {
        if (auto* const scroll = qobject_cast<QScrollArea*>(around))
            scroll->ensureWidgetVisible(&next);
    }
}

/// Whether the control itself has a use for the arrow.
bool ShellPanel::keepsKey(const QWidget& focused, int key) const
{
    const bool isVertical = key == Qt::Key_Up || key == Qt::Key_Down;
    if (qobject_cast<const QLineEdit*>(&focused))
        return !isVertical;
    if (const auto* const slider = qobject_cast<const QAbstractSlider*>(&focused))
        return (slider->orientation() == Qt::Vertical) == isVertical;
    return qobject_cast<const QAbstractSpinBox*>(&focused) || qobject_cast<const QComboBox*>(&focused)
        || qobject_cast<const QAbstractItemView*>(&focused) || qobject_cast<const QTextEdit*>(&focused);
}
