#include "gui/style/MenuRow.h"

#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionMenuItem>

namespace MenuRow {
namespace {

using Item = QStyleOptionMenuItem;

constexpr int kSeparatorHeight = 9;
constexpr int kIconLeft = 16;
constexpr int kIconSize = 24;
constexpr int kTextLeft = 56;
constexpr int kPlainTextLeft = 16; ///< in a menu without icons and marks
constexpr int kTextRight = 52;
constexpr int kDetailGap = 24;
constexpr int kBoxSize = 20;

/// The text and what stands behind its tab.
QStringList parts(const Item& item)
{
    const QString text = item.text + QLatin1Char('\t');
    return text.split(QLatin1Char('\t'));
}

int textLeft(const Item& item)
{
    return item.menuHasCheckableItems || item.maxIconWidth > 0 ? kTextLeft : kPlainTextLeft;
}

void drawMark(QPainter& painter, const Item& item, const WzCustomStyle& style)
{
    const QRect place(item.rect.left() + kIconLeft, item.rect.center().y() - kIconSize / 2 + 1, kIconSize,
                      kIconSize);
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    if (item.checkType == Item::NotCheckable) {
        item.icon.paint(&painter, place, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    } else if (item.checked) {
        const QColor colour = style.colour(enabled ? ColourRole::Accent : ColourRole::DisabledText);
        painter.drawPixmap(place.topLeft(),
                           Icons::pixmap(Icons::path(QStringLiteral("check")), kIconSize, colour,
                                         painter.device()->devicePixelRatioF()));
    } else {
        QRectF box(0, 0, kBoxSize, kBoxSize);
        box.moveCenter(QRectF(place).center());
        painter.setPen(style.colour(ColourRole::Border));
        painter.drawRoundedRect(box, 4, 4);
    }
}

} // namespace

QSize size(const Item& item)
{
    if (item.menuItemType == Item::Separator)
        return {kTextLeft, kSeparatorHeight};
    const QFontMetrics metrics(item.font);
    const QStringList text = parts(item);
    // The menu adds the width of the details itself.
    const int gap = text.at(1).isEmpty() ? 0 : kDetailGap;
    return {textLeft(item) + metrics.horizontalAdvance(text.first()) + gap + kTextRight, kHeight};
}

void draw(QPainter& painter, const Item& item, const WzCustomStyle& style)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    const bool selected = item.state.testFlag(QStyle::State_Selected) && enabled;
    painter.fillRect(item.rect, style.colour(selected ? ColourRole::Pressed : ColourRole::Background));
    if (item.menuItemType == Item::Separator) {
        painter.fillRect(item.rect.left(), item.rect.center().y(), item.rect.width(), 1,
                         style.colour(ColourRole::Frame));
        painter.restore();
        return;
    }
    drawMark(painter, item, style);
    const QRect room = item.rect.adjusted(textLeft(item), 0, -kTextRight, 0);
    const QStringList text = parts(item);
    painter.setFont(item.font);
    painter.setPen(style.colour(enabled ? ColourRole::Text : ColourRole::DisabledText));
    painter.drawText(room, Qt::AlignVCenter | Qt::TextShowMnemonic, text.first());
    painter.setPen(style.colour(enabled ? ColourRole::SecondaryText : ColourRole::DisabledText));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, text.at(1));
    if (item.menuItemType == Item::SubMenu) {
        const QPoint place(item.rect.right() - kIconLeft - kIconSize,
                           item.rect.center().y() - kIconSize / 2 + 1);
        painter.drawPixmap(place,
                           Icons::pixmap(Icons::path(QStringLiteral("right")), kIconSize,
                                         style.colour(ColourRole::SecondaryText),
                                         painter.device()->devicePixelRatioF()));
    }
    painter.restore();
}

} // namespace MenuRow
