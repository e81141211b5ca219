#include "gui/control/ToggleSwitch.h"

#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr QSize kTrack(64, 36);
/// Room for the ring of the focus, and for a finger.
constexpr QSize kSize(72, 56);
constexpr qreal kKnob = 24;
constexpr qreal kKnobInset = 6;
constexpr qreal kMarkInset = 16; ///< of the mark's middle, from the end without the knob

} // namespace

ToggleSwitch::ToggleSwitch(const WzCustomStyle& style, QWidget* parent)
    : QAbstractButton(parent)
    , m_style(style)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToggleSwitch::sizeHint() const
{
    return kSize;
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF track(QPointF(), kTrack);
    track.moveCenter(QRectF(rect()).center());
    const bool on = isChecked();
    const ColourRole edge = !isEnabled() ? ColourRole::Frame : on ? ColourRole::Accent : ColourRole::Border;
    QColor fill = m_style.colour(!isEnabled()   ? ColourRole::DisabledFill
                                     : isDown() ? ColourRole::Pressed
                                                : ColourRole::Raised);
    if (on && isEnabled()) {
        fill = m_style.colour(ColourRole::Accent);
        fill.setAlphaF(0.4);
    }
    painter.setPen(QPen(m_style.colour(edge), 2));
    painter.setBrush(fill);
    painter.drawRoundedRect(track.adjusted(1, 1, -1, -1), track.height() / 2, track.height() / 2);
    const QColor knob = !isEnabled() ? m_style.colour(ColourRole::DisabledText)
        : on                         ? m_style.colour(ColourRole::Text)
                                     : m_style.colour(ColourRole::SecondaryText);
    const qreal left = on ? track.right() - kKnobInset - kKnob : track.left() + kKnobInset;
    painter.setPen(Qt::NoPen);
    painter.setBrush(knob);
    painter.drawEllipse(QRectF(left, track.center().y() - kKnob / 2, kKnob, kKnob));
    painter.setPen(QPen(knob, 2.5));
    painter.setBrush(Qt::NoBrush);
    if (on)
        painter.drawLine(QPointF(track.left() + kMarkInset, track.center().y() - 6),
                         QPointF(track.left() + kMarkInset, track.center().y() + 6));
    else
        painter.drawEllipse(QPointF(track.right() - kMarkInset, track.center().y()), 5, 5);
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), 2));
        painter.drawRoundedRect(track.adjusted(-3, -3, 3, 3), track.height() / 2 + 3, track.height() / 2 + 3);
    }
}
