#include "gui/shell/LayoutCard.h"

#include "gui/framework/SupportedSubWindows.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"
#include "presets/WindowLayoutPreset.h"

#include <QFocusEvent>
#include <QPainter>

namespace {

constexpr int kSketchInset = 14;
constexpr QSize kSketch{356, 202};
constexpr int kGridLines = 4;
constexpr int kLargeIcon = 36;
constexpr int kSmallIcon = 24;
/// From this width on a window in the sketch bears its name.
constexpr int kNamedWidth = 120;
constexpr int kNamedHeight = 70;
constexpr int kTextInset = 16;
constexpr int kNameTop = 230;
constexpr int kCountTop = 260;
constexpr int kBadgeHeight = 24;
constexpr int kSelectedBar = 4;

} // namespace

LayoutCard::LayoutCard(const WzCustomStyle& style, int index, QWidget* parent)
    : HoldButton(parent)
    , m_style(style)
    , m_index(index)
{
    setCheckable(true);
}

void LayoutCard::setVacant()
{
    m_isVacant = true;
    setCheckable(false);
    setText(tr("New layout"));
}

void LayoutCard::setLayout(const QString& name, const std::vector<Window>& windows, bool isCurrent)
{
    setText(name);
    m_windows = windows;
    m_isCurrent = isCurrent;
    update();
}

std::vector<LayoutCard::Window> LayoutCard::windowsOf(const WindowLayoutPreset& layout, const QSize& area,
                                                      const SupportedSubWindows& catalogue)
{
    std::vector<Window> windows;
    if (area.isEmpty())
        return windows;
    for (const WzSubWindowPreset& preset : layout.getSubWindowPresets()) {
        const SupportedSubWindow* const kind = catalogue.find(
            preset.getWindowTitle(), preset.getWindowContentClassName(), preset.getWindowRole());
        const QRectF bounds = preset.getWindowBounds();
        const QRectF share(bounds.x() / area.width(), bounds.y() / area.height(),
                           bounds.width() / area.width(), bounds.height() / area.height());
        // A preset may say anything: what lies beside the area is not drawn.
        windows.push_back({preset.getWindowTitle(), kind ? kind->icon : QStringLiteral("launcher"),
                           share & QRectF(0, 0, 1, 1)});
    }
    return windows;
}

void LayoutCard::focusInEvent(QFocusEvent* event)
{
    HoldButton::focusInEvent(event);
    // A press is no choice yet: it may be a tap on what was chosen before.
    if (event->reason() != Qt::MouseFocusReason)
        emit focused();
}

void LayoutCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect face = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    if (m_isVacant) {
        paintVacant(painter, face);
        return;
    }
    const bool lit = isChecked() || isDown();
    painter.setPen(
        QPen(m_style.colour(m_isCurrent ? ColourRole::Accent : ColourRole::Frame), m_isCurrent ? 2 : 1));
    painter.setBrush(m_style.colour(lit ? ColourRole::Selected : ColourRole::Background));
    const qreal inset = m_isCurrent ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(face).adjusted(inset, inset, -inset, -inset), 5, 5);
    if (isChecked())
        painter.fillRect(face.left() + 2, face.bottom() - kSelectedBar, face.width() - 4, kSelectedBar,
                         m_style.colour(ColourRole::Accent));
    if (showsFocus()) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 7, 7);
    }
    const QPoint corner = face.topLeft() + QPoint(kSketchInset, kSketchInset);
    paintSketch(painter, QRectF(corner, kSketch));
    paintTexts(painter, face);
}

void LayoutCard::paintVacant(QPainter& painter, const QRect& face) const
{
    QPen dashes(m_style.colour(showsFocus() ? ColourRole::Accent : ColourRole::Border), showsFocus() ? 2 : 1);
    dashes.setDashPattern({6, 6});
    painter.setPen(dashes);
    painter.setBrush(isDown() ? QBrush(m_style.colour(ColourRole::Pressed)) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(QRectF(face).adjusted(1, 1, -1, -1), 5, 5);
    const QColor colour = m_style.colour(isEnabled() ? ColourRole::SecondaryText : ColourRole::DisabledText);
    painter.drawPixmap(
        face.center() - QPoint(kLargeIcon / 2, kLargeIcon),
        Icons::pixmap(Icons::path(QStringLiteral("add")), kLargeIcon, colour, devicePixelRatioF()));
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(colour);
    painter.drawText(face.adjusted(0, face.height() / 2 + 12, 0, 0), Qt::AlignHCenter | Qt::AlignTop, text());
}

void LayoutCard::paintSketch(QPainter& painter, const QRectF& frame) const
{
    const WzPalette colours = m_style.instrumentPalette();
    painter.setPen(colours.colour(ColourRole::InstrumentLine));
    painter.setBrush(colours.colour(ColourRole::InstrumentBackground));
    painter.drawRect(frame.adjusted(0.5, 0.5, -0.5, -0.5));
    const QRectF area = frame.adjusted(2, 2, -2, -2);
    painter.setPen(colours.colour(ColourRole::Background));
    for (int i = 1; i < kGridLines; ++i) {
        const qreal x = qRound(area.left() + area.width() * i / kGridLines) + 0.5;
        const qreal y = qRound(area.top() + area.height() * i / kGridLines) + 0.5;
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    }
    for (const Window& window : m_windows) {
        const QRectF place(area.left() + window.place.x() * area.width(),
                           area.top() + window.place.y() * area.height(), window.place.width() * area.width(),
                           window.place.height() * area.height());
        paintWindow(painter, QRectF(place.toRect()).adjusted(1.5, 1.5, -1.5, -1.5), window);
    }
}

void LayoutCard::paintWindow(QPainter& painter, const QRectF& place, const Window& window) const
{
    if (place.width() <= 0 || place.height() <= 0)
        return;
    const WzPalette colours = m_style.instrumentPalette();
    painter.setPen(colours.colour(ColourRole::Border));
    painter.setBrush(colours.colour(ColourRole::DisabledFill));
    painter.drawRoundedRect(place, 1.5, 1.5);
    const bool isNamed = place.width() >= kNamedWidth && place.height() >= kNamedHeight;
    const int icon = isNamed ? kLargeIcon : kSmallIcon;
    if (place.width() < icon || place.height() < icon)
        return;
    QRect iconPlace(0, 0, icon, icon);
    iconPlace.moveCenter(place.center().toPoint() - QPoint(0, isNamed ? 12 : 0));
    painter.drawPixmap(iconPlace.topLeft(),
                       Icons::pixmap(Icons::path(window.icon), icon,
                                     colours.colour(isNamed ? ColourRole::Text : ColourRole::SecondaryText),
                                     devicePixelRatioF()));
    if (!isNamed)
        return;
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    painter.setPen(colours.colour(ColourRole::SecondaryText));
    const QRect room(qRound(place.left()) + 4, iconPlace.bottom() + 4, qRound(place.width()) - 8, 22);
    painter.drawText(room, Qt::AlignHCenter | Qt::AlignTop,
                     painter.fontMetrics().elidedText(window.title, Qt::ElideRight, room.width()));
}

void LayoutCard::paintTexts(QPainter& painter, const QRect& face) const
{
    const QRect room = face.adjusted(kTextInset, 0, -kTextInset, 0);
    const auto rowAt = [&room](int top) { return QRect(room.left(), room.top() + top, room.width(), 28); };
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(ColourRole::SecondaryText));
    const QString place = QString::number(m_index + 1);
    painter.drawText(rowAt(kNameTop), Qt::AlignRight | Qt::AlignVCenter, place);
    painter.setPen(m_style.colour(ColourRole::Text));
    const QRect nameRoom = rowAt(kNameTop).adjusted(0, 0, -48, 0);
    painter.drawText(nameRoom, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, nameRoom.width()));
    const int count = static_cast<int>(m_windows.size());
    painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    painter.setPen(m_style.colour(ColourRole::SecondaryText));
    painter.drawText(rowAt(kCountTop), Qt::AlignLeft | Qt::AlignVCenter,
                     count == 1 ? tr("1 window") : tr("%1 windows").arg(count));
    if (!m_isCurrent)
        return;
    const QString words = tr("Current");
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels, true));
    const int wide = painter.fontMetrics().horizontalAdvance(words) + 24;
    const QRect badge(room.right() + 1 - wide, room.top() + kCountTop + 2, wide, kBadgeHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_style.colour(ColourRole::Accent));
    painter.drawRoundedRect(badge, kBadgeHeight / 2.0, kBadgeHeight / 2.0);
    painter.setPen(Qt::black);
    painter.drawText(badge, Qt::AlignCenter, words);
}
