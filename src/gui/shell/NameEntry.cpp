#include "gui/shell/NameEntry.h"

#include "gui/control/FunctionBarBackEvent.h"
#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/TouchKeyboard.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kPadding = 16;
constexpr int kGap = 8;
constexpr int kButtonWidth = 150;

} // namespace

NameEntry::NameEntry(const WzCustomStyle& style, const QString& question, const QString& name,
                     QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_edit(new EntryLine(style, name, this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
    , m_set(new QPushButton(tr("Set"), this))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    column->setSpacing(kPadding);
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap);
    auto* const label = new QLabel(question, this);
    label->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    m_edit->setMaxLength(kMaximumLength);
    m_edit->setAccessibleName(question);
    row->addWidget(label);
    row->addSpacing(kGap);
    row->addWidget(m_edit, 1);
    for (QPushButton* const button : {m_cancel, m_set}) {
        button->setMinimumSize(kButtonWidth, EntryLine::kHeight);
        row->addWidget(button);
    }
    column->addLayout(row);
    column->addWidget(new TouchKeyboard(TouchKeyboard::Keys::Text, m_edit, this));
    connect(m_edit, &EntryLine::textChanged, this,
            [this](const QString& text) { m_set->setEnabled(!text.trimmed().isEmpty()); });
    connect(m_edit, &EntryLine::returnPressed, this, &NameEntry::accept);
    connect(m_set, &QPushButton::clicked, this, &NameEntry::accept);
    connect(m_cancel, &QPushButton::clicked, this, &NameEntry::cancel);
    hide();
}

NameEntry::~NameEntry()
{
    FunctionController::getInstance().clearTriggersForObject(this);
}

void NameEntry::ask()
{
    show();
    raise();
    m_edit->setFocus(Qt::OtherFocusReason);
    m_edit->selectAll();
    offerTriggers();
}

void NameEntry::offerTriggers()
{
    FunctionController::TriggerList triggers;
    for (QPushButton* const button : {m_cancel, m_set}) {
        triggers.push_back(FunctionTrigger::makeTrigger(button->text()));
        connect(triggers.back().get(), &FunctionTrigger::triggered, button, &QPushButton::click);
    }
    FunctionController::addBackspaceTriggerToVector(triggers, m_edit);
    FunctionController::getInstance().registerTriggers(triggers, this);
}

void NameEntry::end()
{
    FunctionController::getInstance().clearTriggersForObject(this);
    hide();
    deleteLater();
}

void NameEntry::customEvent(QEvent* event)
{
    if (event->type() == FunctionBarBackEvent::getEventType())
        cancel();
}

void NameEntry::accept()
{
    const QString name = m_edit->text().trimmed();
    if (name.isEmpty() || isHidden())
        return;
    end();
    emit accepted(name);
}

void NameEntry::cancel()
{
    end();
    emit cancelled();
}

void NameEntry::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        cancel();
    else
        QWidget::keyPressEvent(event);
}

void NameEntry::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void NameEntry::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_style.colour(ColourRole::Background));
    painter.fillRect(0, 0, width(), 1, m_style.colour(ColourRole::Border));
}
