#include "gui/framework/WzTitleLine.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int kIconSize = 20;
constexpr int kIconLeft = 8;
constexpr int kTitleLeft = 36;
constexpr int kGap = 8;

} // namespace

WzTitleLine::WzTitleLine(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WzTitleLine::setIcon(const QString& path)
{
    m_iconPath = path;
    update();
}

void WzTitleLine::setInstance(int instance)
{
    m_instance = instance;
    update();
}

void WzTitleLine::setTitle(const QString& title)
{
    m_title = title;
    update();
}

void WzTitleLine::setDetails(const QString& details)
{
    if (details == m_details)
        return;
    m_details = details;
    update();
}

QRect WzTitleLine::helpArea() const
{
    return {width() - kHelpReach, 0, kHelpReach, height()};
}

void WzTitleLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor text = m_style.colour(ColourRole::Text);
    const QColor secondary = m_style.colour(ColourRole::SecondaryText);
    painter.fillRect(rect(), m_style.colour(ColourRole::Background));
    const int iconTop = (height() - kIconSize) / 2;
    const qreal ratio = devicePixelRatioF();
    if (!m_iconPath.isEmpty())
        painter.drawPixmap(kIconLeft, iconTop, Icons::pixmap(m_iconPath, kIconSize, text, ratio));
    const int helpLeft = width() - kIconSize - kIconLeft;
    painter.drawPixmap(helpLeft, iconTop,
                       Icons::pixmap(Icons::path(QStringLiteral("help")), kIconSize, secondary, ratio));

    painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    const int titleWidth = painter.fontMetrics().horizontalAdvance(m_title);
    int left = kTitleLeft;
    painter.setPen(text);
    painter.drawText(QRect(left, 0, titleWidth, height()), Qt::AlignVCenter, m_title);
    left += titleWidth + kGap;
    painter.setPen(secondary);
    if (m_instance > 0) {
        const QString instance = QString::number(m_instance);
        painter.drawText(QRect(left, 0, helpLeft - left, height()), Qt::AlignVCenter, instance);
        left += painter.fontMetrics().horizontalAdvance(instance) + kGap;
    }
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    const int room = helpLeft - 12 - left;
    painter.drawText(QRect(left, 0, room, height()), Qt::AlignVCenter | Qt::AlignRight,
                     painter.fontMetrics().elidedText(m_details, Qt::ElideLeft, room));
}

void WzTitleLine::mousePressEvent(QMouseEvent* event)
{
    // The press ends here: the window behind would take it for a second one, at its upper edge.
    m_helpPressed = event->button() == Qt::LeftButton && helpArea().contains(event->pos());
}

void WzTitleLine::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    if (!m_helpPressed)
        event->ignore();
}

void WzTitleLine::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_helpPressed && helpArea().contains(event->pos()))
        emit helpRequested();
    else
        event->ignore();
    m_helpPressed = false;
}
