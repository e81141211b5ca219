#include "gui/control/ToggleSwitch.h"

#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr QSizeF kTrack(64, 36);
constexpr double kKnob = 26;
constexpr double kKnobInset = 5;

} // namespace

ToggleSwitch::ToggleSwitch(const WzCustomStyle& style, QWidget* parent)
    : QAbstractButton(parent)
    , m_style(style)
{
    setCheckable(true);
    setFixedSize(sizeHint());
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF track(QPointF(), kTrack);
    track.moveCenter(QRectF(rect()).center());
    const bool on = isChecked();
    const QColor line = m_style.colour(!isEnabled()           ? ColourRole::Frame
                                           : on || hasFocus() ? ColourRole::Accent
                                                              : ColourRole::Border);
    QColor fill = m_style.colour(!isEnabled()   ? ColourRole::DisabledFill
                                     : isDown() ? ColourRole::Pressed
                                                : ColourRole::Raised);
    if (on && isEnabled()) {
        fill = m_style.colour(ColourRole::Accent);
        fill.setAlphaF(0.4);
    }
    painter.setPen(QPen(line, on || hasFocus() ? 2 : 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(track.adjusted(1, 1, -1, -1), kTrack.height() / 2, kTrack.height() / 2);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(track.adjusted(-3, -3, 3, 3), kTrack.height() / 2 + 3,
                                kTrack.height() / 2 + 3);
    }

    const QColor mark = m_style.colour(!isEnabled() ? ColourRole::DisabledText
                                           : on     ? ColourRole::Text
                                                    : ColourRole::SecondaryText);
    const double knobLeft = on ? track.right() - kKnobInset - kKnob : track.left() + kKnobInset;
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawEllipse(QRectF(knobLeft, track.top() + kKnobInset, kKnob, kKnob));
    if (on) {
        painter.drawRect(QRectF(track.left() + 17, track.center().y() - 7, 3, 14));
    } else {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(mark, 2));
        painter.drawEllipse(QPointF(track.right() - 18, track.center().y()), 5, 5);
    }
}
