#include "gui/shell/ToolBarItem.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr int kPadding = 16;
constexpr int kIconSize = 24;
constexpr int kGap = 10;
constexpr int kBadgeHeight = 24;
constexpr int kMinimumWidth = 56;
constexpr int kHighestBadge = 999;

QFont labelFont(bool emphasised)
{
    return Fonts::ofPixels(Fonts::kBodyPixels, emphasised);
}

QFont badgeFont()
{
    return Fonts::ofPixels(Fonts::kLabelPixels, true);
}

int badgeWidth(const QString& text)
{
    return qMax(kBadgeHeight, QFontMetrics(badgeFont()).horizontalAdvance(text) + 16);
}

} // namespace

ToolBarItem::ToolBarItem(const WzCustomStyle& style, const QString& iconName, IconSide side, QWidget* parent)
    : QAbstractButton(parent)
    , m_style(style)
    , m_iconName(iconName)
    , m_iconSide(side)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setFocusPolicy(Qt::NoFocus);
}

void ToolBarItem::setIconName(const QString& name)
{
    if (name == m_iconName)
        return;
    m_iconName = name;
    update();
}

void ToolBarItem::setIconColour(const QColor& colour)
{
    if (colour == m_iconColour)
        return;
    m_iconColour = colour;
    update();
}

void ToolBarItem::setLabel(const QString& label)
{
    if (label == m_label)
        return;
    const int before = textWidth();
    m_label = label;
    if (textWidth() != before)
        updateGeometry();
    update();
}

void ToolBarItem::setSecondary(const QString& text)
{
    if (text == m_secondary)
        return;
    m_secondary = text;
    updateGeometry();
    update();
}

void ToolBarItem::setEmphasised(bool emphasised)
{
    if (emphasised == m_emphasised)
        return;
    m_emphasised = emphasised;
    updateGeometry();
    update();
}

void ToolBarItem::setBadge(int count)
{
    if (count == m_badge)
        return;
    m_badge = count;
    updateGeometry();
    update();
}

QString ToolBarItem::badgeText() const
{
    return m_badge > kHighestBadge ? QStringLiteral("%1+").arg(kHighestBadge) : QString::number(m_badge);
}

int ToolBarItem::textWidth() const
{
    int width = m_label.isEmpty() ? 0 : QFontMetrics(labelFont(m_emphasised)).horizontalAdvance(m_label);
    if (!m_secondary.isEmpty())
        width += QFontMetrics(labelFont(false)).horizontalAdvance(m_secondary) + (width > 0 ? kGap : 0);
    return width;
}

QSize ToolBarItem::sizeHint() const
{
    int content = textWidth();
    if (!m_iconName.isEmpty())
        content += kIconSize + (content > 0 ? kGap : 0);
    if (m_badge > 0)
        content += badgeWidth(badgeText()) + kGap / 2;
    return {qMax(kMinimumWidth, content + 2 * kPadding), kMinimumWidth};
}

void ToolBarItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isDown())
        painter.fillRect(rect(), m_style.colour(ColourRole::Pressed));
    const QColor text = m_style.colour(isEnabled() ? ColourRole::Text : ColourRole::DisabledText);
    const bool iconOnly = m_label.isEmpty() && m_secondary.isEmpty() && m_badge == 0;
    int left = iconOnly ? (width() - kIconSize) / 2 : kPadding;
    const auto drawIcon = [&] {
        if (m_iconName.isEmpty())
            return;
        const QColor colour = m_iconColour.isValid() && isEnabled() ? m_iconColour : text;
        painter.drawPixmap(left, (height() - kIconSize) / 2,
                           Icons::pixmap(Icons::path(m_iconName), kIconSize, colour, devicePixelRatioF()));
        left += kIconSize + kGap;
    };
    const auto drawText = [&](const QString& words, const QFont& font, const QColor& colour) {
        if (words.isEmpty())
            return;
        painter.setFont(font);
        painter.setPen(colour);
        const int wide = painter.fontMetrics().horizontalAdvance(words);
        painter.drawText(QRect(left, 0, wide, height()), Qt::AlignVCenter, words);
        left += wide + kGap;
    };
    if (m_iconSide == IconSide::Left)
        drawIcon();
    drawText(m_label, labelFont(m_emphasised), text);
    drawText(m_secondary, labelFont(false),
             m_style.colour(isEnabled() ? ColourRole::SecondaryText : ColourRole::DisabledText));
    if (m_iconSide == IconSide::Right)
        drawIcon();
    if (m_badge > 0)
        paintBadge(painter, left - kGap / 2);
}

void ToolBarItem::paintBadge(QPainter& painter, int left) const
{
    const QRect badge(left, (height() - kBadgeHeight) / 2, badgeWidth(badgeText()), kBadgeHeight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_style.colour(ColourRole::Text));
    painter.drawRoundedRect(badge, kBadgeHeight / 2.0, kBadgeHeight / 2.0);
    painter.setFont(badgeFont());
    painter.setPen(m_style.colour(ColourRole::Background));
    painter.drawText(badge, Qt::AlignCenter, badgeText());
}
