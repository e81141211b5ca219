#include "gui/style/WzDisplayCustomStyle.h"

#include "gui/style/FieldDrawing.h"
#include "gui/style/MenuRow.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionMenuItem>

namespace {

constexpr int kTouchTarget = 56;
constexpr int kRadius = 4;
constexpr int kIconGap = 8;
constexpr int kSelectedBar = 4;
/// What is seen of a scroll bar, in the middle of what a finger can hit.
constexpr int kScrollHandle = 10;

// Colours come from the palette of the widget, since what stands on an instrument has one of its own.

void drawFlatButton(QPainter& painter, const QStyleOption& option)
{
    const QPalette& colours = option.palette;
    const bool selected = option.state.testFlag(QStyle::State_On);
    const bool pressed = option.state.testFlag(QStyle::State_Sunken);
    const QRectF area = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(colours.color(pressed        ? QPalette::Midlight
                                       : selected ? QPalette::Highlight
                                                  : QPalette::Button));
    painter.setPen(
        colours.color(option.state.testFlag(QStyle::State_Enabled) ? QPalette::Mid : QPalette::Highlight));
    painter.drawRoundedRect(area, kRadius, kRadius);
    if (selected)
        painter.fillRect(
            QRectF(area.left() + 1, area.bottom() - kSelectedBar, area.width() - 2, kSelectedBar),
            colours.color(QPalette::LinkVisited));
    if (option.state.testFlag(QStyle::State_HasFocus)
        && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.color(QPalette::LinkVisited), 2));
        painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), kRadius, kRadius);
    }
    painter.restore();
}

void drawFlatButtonLabel(QPainter& painter, const QStyleOptionButton& button)
{
    const bool enabled = button.state.testFlag(QStyle::State_Enabled);
    const int text = painter.fontMetrics().horizontalAdvance(button.text);
    const int icon = button.icon.isNull() ? 0 : button.iconSize.width();
    const int gap = icon > 0 && text > 0 ? kIconGap : 0;
    int left = button.rect.center().x() - (icon + gap + text) / 2;
    if (icon > 0) {
        const QRect place(left, button.rect.center().y() - icon / 2, icon, icon);
        button.icon.paint(&painter, place, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
        left += icon + gap;
    }
    painter.setPen(button.palette.color(QPalette::ButtonText));
    painter.drawText(QRect(left, button.rect.top(), text, button.rect.height()),
                     Qt::AlignVCenter | Qt::TextShowMnemonic, button.text);
}

void drawFrame(QPainter& painter, const QRect& rect, const QColor& colour)
{
    painter.save();
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

bool hasFrame(const QStyleOption* option)
{
    const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    return frame && frame->lineWidth > 0;
}

QRect scrollHandle(const QStyleOptionSlider& bar)
{
    const bool vertical = bar.orientation == Qt::Vertical;
    const int length = vertical ? bar.rect.height() : bar.rect.width();
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    int handle = length;
    if (range > 0) {
        const auto share = static_cast<int>(length * qint64(bar.pageStep) / (range + bar.pageStep));
        handle = qMin(length, qMax(kTouchTarget, share));
    }
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - handle, bar.upsideDown);
    return vertical ? QRect(0, start, bar.rect.width(), handle) : QRect(start, 0, handle, bar.rect.height());
}

bool isPartOfField(const QWidget* widget)
{
    return widget
        && (qobject_cast<const QAbstractSpinBox*>(widget->parent())
            || qobject_cast<const QComboBox*>(widget->parent()));
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar)
{
    const bool vertical = bar.orientation == Qt::Vertical;
    const int inset = ((vertical ? bar.rect.width() : bar.rect.height()) - kScrollHandle) / 2;
    painter.save();
    painter.fillRect(bar.rect, bar.palette.color(QPalette::Window));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        bar.palette.color(bar.state.testFlag(QStyle::State_Sunken) ? QPalette::Text : QPalette::Mid));
    painter.drawRoundedRect(vertical ? scrollHandle(bar).adjusted(inset, 2, -inset, -2)
                                     : scrollHandle(bar).adjusted(2, inset, -2, -inset),
                            kScrollHandle / 2.0, kScrollHandle / 2.0);
    painter.restore();
}

} // namespace

QSize WzDisplayCustomStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                             const QWidget* widget) const
{
    if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        item && type == CT_MenuItem)
        return MenuRow::size(*item);
    QSize result = WzCustomStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton || type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox)
        result.setHeight(qMax(result.height(), kTouchTarget));
    return result;
}

void WzDisplayCustomStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                         QPainter* painter, const QWidget* widget) const
{
    if (element == PE_PanelButtonCommand)
        drawFlatButton(*painter, *option);
    else if (element == PE_PanelLineEdit && hasFrame(option))
        FieldDrawing::drawField(*painter, *option);
    else if (element == PE_PanelLineEdit && isPartOfField(widget))
        return; // its field has drawn it
    else if (element == PE_PanelMenu)
        painter->fillRect(option->rect, colour(ColourRole::Background));
    else if (element == PE_FrameMenu)
        drawFrame(*painter, option->rect, colour(ColourRole::Border));
    else
        WzCustomStyle::drawPrimitive(element, option, painter, widget);
}

void WzDisplayCustomStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                       const QWidget* widget) const
{
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonLabel && button)
        drawFlatButtonLabel(*painter, *button);
    else if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
             item && element == CE_MenuItem)
        MenuRow::draw(*painter, *item, *this);
    else
        WzCustomStyle::drawControl(element, option, painter, widget);
}

void WzDisplayCustomStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                              QPainter* painter, const QWidget* widget) const
{
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar)
        drawScrollBar(*painter, *bar);
    else if (control == CC_Slider && bar)
        FieldDrawing::drawSlider(*painter, *bar, subControlRect(control, bar, SC_SliderGroove, widget),
                                 subControlRect(control, bar, SC_SliderHandle, widget), *this);
    else if (control == CC_SpinBox)
        FieldDrawing::drawField(*painter, *option);
    else if (control == CC_ComboBox)
        FieldDrawing::drawChoice(*painter, *option);
    else
        WzCustomStyle::drawComplexControl(control, option, painter, widget);
}

/// A finger drags the contents: a scroll bar needs no arrows.
QRect WzDisplayCustomStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                           SubControl part, const QWidget* widget) const
{
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar)
        return WzCustomStyle::subControlRect(control, option, part, widget);
    const QRect handle = scrollHandle(*bar);
    const bool vertical = bar->orientation == Qt::Vertical;
    switch (part) {
    case SC_ScrollBarSlider:
        return handle;
    case SC_ScrollBarGroove:
        return bar->rect;
    case SC_ScrollBarSubPage:
        return vertical ? QRect(0, 0, handle.width(), handle.top())
                        : QRect(0, 0, handle.left(), handle.height());
    case SC_ScrollBarAddPage:
        return vertical ? bar->rect.adjusted(0, handle.bottom() + 1, 0, 0)
                        : bar->rect.adjusted(handle.right() + 1, 0, 0, 0);
    default:
        return {};
    }
}

int WzDisplayCustomStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                      const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return 28;
    case PM_SliderLength:
        return 24;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
        return 36;
    case PM_MenuPanelWidth:
        return 1;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return 24;
    default:
        return WzCustomStyle::pixelMetric(metric, option, widget);
    }
}
