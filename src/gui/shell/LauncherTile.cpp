#include "gui/shell/LauncherTile.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr int kPadding = 16;
constexpr int kIconTop = 13;
constexpr int kIconSize = 36;
constexpr int kNameBottom = 9; ///< from the lower edge
constexpr int kStateTop = 14;
constexpr int kPinSize = 18;
constexpr QSize kMark(8, 4);
constexpr int kMarkPitch = 14;
constexpr int kMostMarks = 3;
constexpr int kGap = 8;

} // namespace

LauncherTile::LauncherTile(const WzCustomStyle& style, const QString& iconName, const QString& name,
                           QWidget* parent)
    : HoldButton(parent)
    , m_style(style)
    , m_iconName(iconName)
{
    setText(name);
}

void LauncherTile::setOpenCount(int count)
{
    m_openCount = count;
    update();
}

void LauncherTile::setPinned(bool pinned)
{
    m_pinned = pinned;
    update();
}

void LauncherTile::focusInEvent(QFocusEvent* event)
{
    HoldButton::focusInEvent(event);
    emit focused();
}

void LauncherTile::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect face = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    painter.setPen(m_style.colour(ColourRole::Frame));
    painter.setBrush(m_style.colour(isDown() ? ColourRole::Pressed : ColourRole::Raised));
    painter.drawRoundedRect(QRectF(face).adjusted(0.5, 0.5, -0.5, -0.5), 4.5, 4.5);
    if (showsFocus()) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 7, 7);
    }
    painter.drawPixmap(face.left() + kPadding, face.top() + kIconTop,
                       Icons::pixmap(Icons::path(m_iconName), kIconSize, m_style.colour(ColourRole::Text),
                                     devicePixelRatioF()));
    painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    painter.setPen(m_style.colour(ColourRole::Text));
    const QRect room = face.adjusted(kPadding, 0, -kPadding, -kNameBottom);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignBottom,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
    paintState(painter, face);
}

/// From the right: a mark for each open window, how many there are, and the pin.
void LauncherTile::paintState(QPainter& painter, const QRect& face) const
{
    int right = face.right() + 1 - kPadding;
    for (int i = 0; i < qMin(m_openCount, kMostMarks); ++i) {
        painter.fillRect(QRect(QPoint(right - kMark.width(), face.top() + 20), kMark),
                         m_style.colour(ColourRole::Text));
        right -= kMarkPitch;
    }
    if (m_openCount > 0) {
        right -= kGap - (kMarkPitch - kMark.width());
        painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
        painter.setPen(m_style.colour(ColourRole::SecondaryText));
        const QString words = tr("%1 open").arg(m_openCount);
        const QRect room(face.left(), face.top() + kStateTop, right - face.left(), 20);
        painter.drawText(room, Qt::AlignRight | Qt::AlignTop, words);
        right -= painter.fontMetrics().horizontalAdvance(words) + kGap;
    }
    if (m_pinned)
        painter.drawPixmap(right - kPinSize, face.top() + kStateTop - 1,
                           Icons::pixmap(Icons::path(QStringLiteral("favourite")), kPinSize,
                                         m_style.colour(ColourRole::SecondaryText), devicePixelRatioF()));
}
