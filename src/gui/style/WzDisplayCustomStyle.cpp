#include "gui/style/WzDisplayCustomStyle.h"

#include <QStyleOptionMenuItem>

namespace {

constexpr int kTouchTarget = 56;

} // namespace

QSize WzDisplayCustomStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                             const QWidget* widget) const
{
    QSize result = WzCustomStyle::sizeFromContents(type, option, size, widget);
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const bool isRow = type == CT_MenuItem && item && item->menuItemType != QStyleOptionMenuItem::Separator;
    if (isRow || type == CT_PushButton || type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox)
        result.setHeight(qMax(result.height(), kTouchTarget));
    return result;
}

int WzDisplayCustomStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                      const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return 28;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return 24;
    default:
        return WzCustomStyle::pixelMetric(metric, option, widget);
    }
}
