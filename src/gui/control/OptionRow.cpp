#include "gui/control/OptionRow.h"

#include "gui/control/Setting.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr int kHeight = 56;
constexpr int kRadius = 4;
constexpr int kSelectedBar = 4;
constexpr int kTextMargin = 12;

} // namespace

OptionRow::OptionRow(Setting& setting, const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_setting(setting)
    , m_style(style)
{
    setFocusPolicy(Qt::StrongFocus);
    setFixedHeight(kHeight);
    setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    connect(&setting, &Setting::changed, this, qOverload<>(&QWidget::update));
}

int OptionRow::neededWidth(const Setting& setting)
{
    const QFontMetrics metrics(Fonts::ofPixels(Fonts::kTitlePixels));
    int widest = 0;
    for (const Setting::Option& option : setting.options())
        widest = std::max(widest, metrics.horizontalAdvance(option.text));
    return (widest + 2 * kTextMargin) * static_cast<int>(setting.options().size());
}

QSize OptionRow::sizeHint() const
{
    return {neededWidth(m_setting), kHeight};
}

QRectF OptionRow::segment(int index) const
{
    const auto count = static_cast<double>(m_setting.options().size());
    return {width() * index / count, 0, width() / count, static_cast<double>(height())};
}

int OptionRow::segmentAt(const QPoint& position) const
{
    for (int i = 0; i < static_cast<int>(m_setting.options().size()); ++i) {
        if (segment(i).contains(position))
            return i;
    }
    return -1;
}

void OptionRow::choose(int index)
{
    const QString value = m_setting.options().at(static_cast<std::size_t>(index)).value;
    m_focused = index;
    if (m_setting.kind() == Setting::Kind::Choices)
        m_setting.toggle(value);
    else
        m_setting.choose(value);
}

void OptionRow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = segmentAt(event->pos());
    update();
}

void OptionRow::mouseReleaseEvent(QMouseEvent* event)
{
    const int pressed = std::exchange(m_pressed, -1);
    update();
    // The options may be others by now.
    if (pressed >= 0 && pressed == segmentAt(event->pos()))
        choose(pressed);
}

void OptionRow::keyPressEvent(QKeyEvent* event)
{
    const bool forward = event->key() == Qt::Key_Right;
    if (!forward && event->key() != Qt::Key_Left) {
        if (event->key() == Qt::Key_Space && m_setting.kind() == Setting::Kind::Choices
            && m_focused < static_cast<int>(m_setting.options().size()))
            choose(m_focused);
        else
            event->ignore();
        return;
    }
    if (m_setting.kind() == Setting::Kind::Options) {
        m_setting.step(forward ? 1 : -1);
    } else {
        m_focused =
            std::clamp(m_focused + (forward ? 1 : -1), 0, static_cast<int>(m_setting.options().size()) - 1);
        update();
    }
}

void OptionRow::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    m_focused = 0;
}

void OptionRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath shape;
    shape.addRoundedRect(area, kRadius, kRadius);
    painter.save();
    painter.setClipPath(shape);
    painter.fillRect(area, m_style.colour(isEnabled() ? ColourRole::Raised : ColourRole::DisabledFill));
    for (int i = 0; i < static_cast<int>(m_setting.options().size()); ++i)
        paintSegment(painter, i);
    painter.restore();
    painter.setPen(m_style.colour(isEnabled() ? ColourRole::Border : ColourRole::Frame));
    painter.drawPath(shape);
}

void OptionRow::paintSegment(QPainter& painter, int index) const
{
    const Setting::Option& option = m_setting.options().at(static_cast<std::size_t>(index));
    const QRectF area = segment(index);
    const bool chosen = m_setting.isChosen(option.value);
    if (index == m_pressed || chosen)
        painter.fillRect(area,
                         m_style.colour(index == m_pressed ? ColourRole::Pressed : ColourRole::Selected));
    else if (index > 0)
        painter.fillRect(QRectF(area.left(), area.top() + 16, 1, area.height() - 32),
                         m_style.colour(ColourRole::Border));
    if (chosen)
        painter.fillRect(QRectF(area.left(), area.bottom() - kSelectedBar, area.width(), kSelectedBar),
                         m_style.colour(isEnabled() ? ColourRole::Accent : ColourRole::DisabledText));
    painter.setPen(m_style.colour(isEnabled() ? ColourRole::Text : ColourRole::DisabledText));
    const QString text = painter.fontMetrics().elidedText(option.text, Qt::ElideRight,
                                                          static_cast<int>(area.width()) - kTextMargin);
    painter.drawText(area, Qt::AlignCenter, text);
    const bool isKeyboardHere = m_setting.kind() == Setting::Kind::Choices ? index == m_focused : chosen;
    if (hasFocus() && isKeyboardHere) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area.adjusted(3, 3, -3, -3));
    }
}
