#include "gui/style/FieldDrawing.h"

#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace FieldDrawing {
namespace {

constexpr int kRadius = 4;
constexpr int kGroove = 6;
constexpr int kIconSize = 24;

bool isEnabled(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_Enabled);
}

/// In the colours of the widget's palette, since what stands on an instrument has one of its own.
void drawBox(QPainter& painter, const QStyleOption& option, QPalette::ColorRole fill)
{
    const QPalette& colours = option.palette;
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const double inset = focused ? 1 : 0.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(colours.color(isEnabled(option) ? fill : QPalette::Button));
    painter.setPen(QPen(colours.color(focused                 ? QPalette::LinkVisited
                                          : isEnabled(option) ? QPalette::Mid
                                                              : QPalette::Button),
                        focused ? 2 : 1));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
}

} // namespace

void drawSlider(QPainter& painter, const QStyleOptionSlider& slider, const QRect& groove, const QRect& handle,
                const WzCustomStyle& style)
{
    const bool focused = slider.state.testFlag(QStyle::State_HasFocus);
    QRectF line(groove.left(), groove.center().y() - kGroove / 2.0 + 0.5, groove.width(), kGroove);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(style.colour(ColourRole::Pressed));
    painter.drawRoundedRect(line, kGroove / 2.0, kGroove / 2.0);
    line.setRight(handle.center().x());
    painter.setBrush(style.colour(isEnabled(slider) ? ColourRole::Accent : ColourRole::DisabledText));
    painter.drawRoundedRect(line, kGroove / 2.0, kGroove / 2.0);

    const QRectF knob = QRectF(handle).adjusted(1, 1, -1, -1);
    painter.setBrush(
        style.colour(slider.state.testFlag(QStyle::State_Sunken) ? ColourRole::Pressed : ColourRole::Raised));
    painter.setPen(QPen(style.colour(isEnabled(slider) ? ColourRole::Text : ColourRole::DisabledText), 2));
    painter.drawRoundedRect(knob, kRadius, kRadius);
    painter.drawLine(QPointF(knob.center().x(), knob.top() + 9),
                     QPointF(knob.center().x(), knob.bottom() - 9));
    if (focused) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(style.colour(ColourRole::Accent), 2));
        painter.drawRoundedRect(knob.adjusted(-3, -3, 3, 3), kRadius + 2, kRadius + 2);
    }
    painter.restore();
}

void drawField(QPainter& painter, const QStyleOption& option)
{
    painter.save();
    drawBox(painter, option, QPalette::Base);
    painter.restore();
}

void drawChoice(QPainter& painter, const QStyleOption& option)
{
    painter.save();
    drawBox(painter, option,
            option.state.testFlag(QStyle::State_Sunken) ? QPalette::Midlight : QPalette::Button);
    const QPoint place(option.rect.right() - kIconSize - 8, option.rect.center().y() - kIconSize / 2 + 1);
    painter.drawPixmap(place,
                       Icons::pixmap(Icons::path(QStringLiteral("down")), kIconSize,
                                     option.palette.color(QPalette::ButtonText),
                                     painter.device()->devicePixelRatioF()));
    painter.restore();
}

} // namespace FieldDrawing
