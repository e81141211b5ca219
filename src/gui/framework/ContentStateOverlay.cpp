#include "gui/framework/ContentStateOverlay.h"

#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QLocale>
#include <QPainter>

namespace {

constexpr int kDashedWidth = 3;
constexpr int kHatchedWidth = 4;
constexpr int kHatchWidth = 3;
constexpr int kHatchPitch = 8;
constexpr int kBadgeHeight = 28;
constexpr int kBadgeMargin = 8;
constexpr int kBadgeIcon = 20;
/// The tool bar may cover the top of the screen.
constexpr int kToolBarHeight = 56;

QRect pill(QPainter& painter, const QRect& area, const QString& words)
{
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels, true));
    const int width = painter.fontMetrics().horizontalAdvance(words) + kBadgeIcon + 30;
    return {area.right() + 1 - kBadgeMargin - width, area.top() + kBadgeMargin, width, kBadgeHeight};
}

} // namespace

ContentStateOverlay::ContentStateOverlay(const WzSubwindowContent& content, QWidget* window)
    : QWidget(window)
    , m_content(content)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(window->rect());
    setObjectName(QStringLiteral("ContentStateOverlay"));
}

QRect ContentStateOverlay::contentArea() const
{
    return m_content.geometry();
}

/// The part of it that no tool bar covers.
QRect ContentStateOverlay::badgeArea() const
{
    QRect area = contentArea();
    area.setTop(qMax(area.top(), kToolBarHeight - m_content.getSubWindow()->y()));
    return area;
}

void ContentStateOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ConnectionStatus& connection = m_content.getSubWindow()->area().connectionStatus();
    paintFrame(painter);
    if (connection.state() == ConnectionStatus::State::Connecting && !m_content.m_hasData)
        paintProgress(painter);
    else if (!m_content.m_hasData || !m_content.m_connected)
        paintWords(painter, tr("Not connected"), Fonts::kBodyPixels);
    else if (m_content.m_noSignal)
        paintWords(painter, tr("No Signal"), Fonts::kReadOutPixels);
    if (m_content.isFrozen())
        paintFrozenLabel(painter);
    else if (m_content.m_lostCount > 0)
        paintLostBadge(painter);
}

void ContentStateOverlay::paintFrame(QPainter& painter) const
{
    const ConnectionStatus& connection = m_content.getSubWindow()->area().connectionStatus();
    const bool dead = !m_content.m_connected || !m_content.m_hasData;
    QPen pen(Qt::white);
    if (m_content.isFrozen()) {
        paintHatchedFrame(painter);
        return;
    }
    if (dead && connection.state() != ConnectionStatus::State::Connecting) {
        pen.setWidth(kDashedWidth);
        // 14 on, 10 off, in units of the pen's width.
        pen.setDashPattern({14.0 / kDashedWidth, 10.0 / kDashedWidth});
        pen.setCapStyle(Qt::FlatCap);
    } else {
        return;
    }
    const qreal half = pen.widthF() / 2;
    painter.setPen(pen);
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
}

void ContentStateOverlay::paintHatchedFrame(QPainter& painter) const
{
    painter.save();
    painter.setClipRegion(QRegion(rect()).subtracted(
        rect().adjusted(kHatchedWidth, kHatchedWidth, -kHatchedWidth, -kHatchedWidth)));
    painter.fillRect(rect(), Qt::black);
    painter.setPen(QPen(Qt::white, kHatchWidth));
    for (int x = -height(); x < width(); x += kHatchPitch)
        painter.drawLine(x, height(), x + height(), 0);
    painter.restore();
}

void ContentStateOverlay::paintWords(QPainter& painter, const QString& words, int pixels) const
{
    painter.setFont(Fonts::ofPixels(pixels, true));
    const QRect room = painter.fontMetrics().boundingRect(words).adjusted(-16, -8, 16, 8);
    QRect plate(QPoint(), room.size());
    plate.moveCenter(contentArea().center());
    painter.fillRect(plate, QColor(0, 0, 0, 200));
    painter.setPen(Qt::white);
    painter.drawText(plate, Qt::AlignCenter, words);
}

void ContentStateOverlay::paintProgress(QPainter& painter) const
{
    const WzPalette style = m_content.getWzStyle()->instrumentPalette();
    const ConnectionStatus& connection = m_content.getSubWindow()->area().connectionStatus();
    paintWords(painter, tr("Connecting"), Fonts::kBodyPixels);
    const QRect area = contentArea();
    QRect bar(0, 0, qMin(240, area.width() - 40), 8);
    bar.moveCenter(area.center() + QPoint(0, 32));
    painter.fillRect(bar, style.colour(ColourRole::InstrumentLine));
    const int announced = connection.nodesAnnounced();
    const int received = qMin(connection.nodesReceived(), announced);
    if (announced > 0) {
        QRect done = bar;
        done.setWidth(static_cast<int>(qint64(bar.width()) * received / announced));
        painter.fillRect(done, style.colour(ColourRole::Information));
    }
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    painter.setPen(style.colour(ColourRole::InstrumentSecondaryText));
    painter.drawText(bar.translated(0, 20).adjusted(-40, -8, 40, 12), Qt::AlignCenter,
                     tr("%1 of %2 nodes").arg(QString::number(received), QString::number(announced)));
}

void ContentStateOverlay::paintFrozenLabel(QPainter& painter) const
{
    const QString words = tr("Frozen %1").arg(m_content.frozenSince().toString(QStringLiteral("HH:mm:ss")));
    const QRect label = pill(painter, badgeArea(), words);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(label, 2, 2);
    painter.drawPixmap(
        label.left() + 8, label.top() + 4,
        Icons::pixmap(Icons::path(QStringLiteral("freeze")), kBadgeIcon, Qt::black, devicePixelRatioF()));
    painter.setPen(Qt::black);
    painter.drawText(label.adjusted(kBadgeIcon + 14, 0, 0, 0), Qt::AlignVCenter, words);
}

void ContentStateOverlay::paintLostBadge(QPainter& painter) const
{
    const QString words = tr("%1 lost").arg(QLocale().toString(m_content.m_lostCount));
    const QRect badge = pill(painter, badgeArea(), words);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_content.getWzStyle()->instrumentPalette().colour(ColourRole::Error));
    painter.drawRoundedRect(badge, kBadgeHeight / 2.0, kBadgeHeight / 2.0);
    painter.drawPixmap(badge.left() + 8, badge.top() + 4,
                       Icons::pixmap(Icons::path(QStringLiteral("status-error")), kBadgeIcon, Qt::black,
                                     devicePixelRatioF()));
    painter.setPen(Qt::black);
    painter.drawText(badge.adjusted(kBadgeIcon + 14, 0, 0, 0), Qt::AlignVCenter, words);
}
