#include "gui/shell/ConfirmationStrip.h"

#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kPadding = 16;
constexpr int kIconSize = 24;
constexpr int kTextLeft = 54;
constexpr int kButtonWidth = 150;
constexpr int kButtonGap = 12;

} // namespace

ConfirmationStrip::ConfirmationStrip(const WzCustomStyle& style, const QString& question, const QString& loss,
                                     const QString& destroy, const QString& iconName, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_question(question)
    , m_loss(loss)
    , m_iconName(iconName)
    , m_keep(new QPushButton(tr("Keep"), this))
    , m_destroy(new QPushButton(destroy, this))
{
    setFixedHeight(kHeight);
    m_destroy->setIcon(style.icon(iconName));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    column->addStretch(1);
    auto* const row = new QHBoxLayout;
    row->setSpacing(kButtonGap);
    row->addStretch(1);
    for (QPushButton* const button : {m_keep, m_destroy}) {
        button->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
        button->setMinimumWidth(kButtonWidth);
        row->addWidget(button);
    }
    column->addLayout(row);
    connect(m_keep, &QPushButton::clicked, this, [this] { answer(false); });
    connect(m_destroy, &QPushButton::clicked, this, [this] { answer(true); });
    hide();
}

ConfirmationStrip::~ConfirmationStrip()
{
    FunctionController::getInstance().clearTriggersForObject(this);
}

void ConfirmationStrip::ask()
{
    show();
    raise();
    window()->setAttribute(Qt::WA_KeyboardFocusChange); // which answer Enter gives is to be seen
    m_keep->setFocus(Qt::OtherFocusReason);
    const auto makeTrigger = [](QPushButton* button) {
        auto trigger = FunctionTrigger::makeTrigger(button->text(), button->icon());
        connect(trigger.get(), &FunctionTrigger::triggered, button, &QPushButton::click);
        return trigger;
    };
    FunctionController::getInstance().registerTriggers(
        FunctionController::TriggerList{makeTrigger(m_keep), makeTrigger(m_destroy)}, this);
}

void ConfirmationStrip::answer(bool isConfirmed)
{
    if (std::exchange(m_isAnswered, true))
        return;
    FunctionController::getInstance().clearTriggersForObject(this);
    hide();
    deleteLater();
    if (isConfirmed)
        emit confirmed();
    else
        emit kept();
}

void ConfirmationStrip::customEvent(QEvent* event)
{
    if (event->type() == FunctionBarBackEvent::getEventType())
        answer(false);
}

void ConfirmationStrip::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        answer(false);
    else
        QWidget::keyPressEvent(event);
}

void ConfirmationStrip::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void ConfirmationStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_style.colour(ColourRole::Error), 2));
    painter.setBrush(m_style.colour(ColourRole::ErrorFill));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
    painter.drawPixmap(kPadding + 2, 20,
                       Icons::pixmap(Icons::path(m_iconName), kIconSize, m_style.colour(ColourRole::Error),
                                     devicePixelRatioF()));
    const QRect room = rect().adjusted(kTextLeft, 0, -kPadding, 0);
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(ColourRole::Text));
    painter.drawText(room.adjusted(0, 12, 0, 0), Qt::AlignTop,
                     painter.fontMetrics().elidedText(m_question, Qt::ElideMiddle, room.width()));
    painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    painter.setPen(m_style.colour(ColourRole::SecondaryText));
    painter.drawText(room.adjusted(0, 42, 0, 0), Qt::AlignTop, m_loss);
}
