#include "gui/shell/ListRow.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr int kIconLeft = 24;
constexpr int kIconSize = 24;
constexpr int kTextLeft = 64;
constexpr int kRightMargin = 16;
constexpr int kChevronLeft = 40; ///< from the right edge
constexpr int kSelectedBar = 4;
constexpr int kFocusRing = 2;
constexpr int kTextGap = 12;

} // namespace

ListRow::ListRow(const WzCustomStyle& style, const QString& iconName, const QString& text, QWidget* parent)
    : HoldButton(parent)
    , m_style(style)
    , m_iconName(iconName)
{
    setText(text);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ListRow::setIconName(const QString& name)
{
    m_iconName = name;
    update();
}

void ListRow::setSecondary(const QString& text)
{
    m_secondary = text;
    update();
}

void ListRow::setDetail(const QString& text)
{
    m_detail = text;
    update();
}

void ListRow::setChevron(bool shown)
{
    m_chevron = shown;
    update();
}

QSize ListRow::sizeHint() const
{
    const int text = QFontMetrics(Fonts::ofPixels(Fonts::kBodyPixels)).horizontalAdvance(this->text());
    return {kTextLeft + text + kRightMargin, kHeight};
}

void ListRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isDown())
        painter.fillRect(rect(), m_style.colour(ColourRole::Pressed));
    else if (isChecked())
        painter.fillRect(rect(), m_style.colour(ColourRole::Selected));
    if (isChecked())
        painter.fillRect(0, 0, kSelectedBar, height(), m_style.colour(ColourRole::Accent));
    const auto drawIcon = [&](int left, const QString& name, ColourRole role) {
        painter.drawPixmap(
            left, (height() - kIconSize) / 2,
            Icons::pixmap(Icons::path(name), kIconSize, m_style.colour(role), devicePixelRatioF()));
    };
    if (!m_iconName.isEmpty())
        drawIcon(kIconLeft, m_iconName,
                 !isEnabled()      ? ColourRole::DisabledText
                     : isChecked() ? ColourRole::Text
                                   : ColourRole::SecondaryText);
    if (m_chevron)
        drawIcon(width() - kChevronLeft, QStringLiteral("right"),
                 isEnabled() ? ColourRole::SecondaryText : ColourRole::DisabledText);
    paintTexts(painter);
    if (showsFocus()) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), kFocusRing));
        painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
}

void ListRow::paintTexts(QPainter& painter) const
{
    const ColourRole secondary = isEnabled() ? ColourRole::SecondaryText : ColourRole::DisabledText;
    QRect room = rect().adjusted(kTextLeft, 0, m_chevron ? -kChevronLeft - kTextGap : -kRightMargin, 0);
    if (!m_detail.isEmpty()) {
        painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
        painter.setPen(m_style.colour(secondary));
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, m_detail);
        room.setRight(room.right() - painter.fontMetrics().horizontalAdvance(m_detail) - kTextGap);
    }
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(isEnabled() ? ColourRole::Text : ColourRole::DisabledText));
    const QString shown = painter.fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    if (m_secondary.isEmpty()) {
        painter.drawText(room, Qt::AlignVCenter, shown);
        return;
    }
    painter.drawText(room.adjusted(0, 9, 0, 0), Qt::AlignTop, shown);
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    painter.setPen(m_style.colour(secondary));
    painter.drawText(room.adjusted(0, 0, 0, -8), Qt::AlignBottom,
                     painter.fontMetrics().elidedText(m_secondary, Qt::ElideRight, room.width()));
}
