#include "gui/control/ReadOnlyRows.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace {

using Verdict = ElementState::Verdict;

/// From this size on, rows are twice as high: such a window is read from afar.
constexpr QSize kLargeFrom(1600, 900);
constexpr int kMargin = 12;
constexpr int kLeastValueLeft = 144;
constexpr int kIconSize = 20;
constexpr int kLargeIconSize = 36;
constexpr int kFrameWidth = 2;
constexpr int kPositionWidth = 4;

QString markOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Valid:
        return QStringLiteral("status-ok");
    case Verdict::Warning:
        return QStringLiteral("status-warning");
    case Verdict::Error:
        return QStringLiteral("status-error");
    case Verdict::Inactive:
    case Verdict::Unknown:
        break;
    }
    return {};
}

ColourRole markColourOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Warning:
        return ColourRole::Warning;
    case Verdict::Error:
        return ColourRole::Error;
    default:
        return ColourRole::Ok;
    }
}

} // namespace

ReadOnlyRows::ReadOnlyRows(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, QOverload<>::of(&QWidget::update));
}

void ReadOnlyRows::setRows(const std::vector<Row>& rows)
{
    if (rows == m_rows)
        return;
    m_rows = rows;
    layOut();
}

bool ReadOnlyRows::isLarge() const
{
    return width() >= kLargeFrom.width() && height() >= kLargeFrom.height();
}

int ReadOnlyRows::rowHeight() const
{
    return isLarge() ? 2 * kRowHeight : kRowHeight;
}

int ReadOnlyRows::iconSize() const
{
    return isLarge() ? kLargeIconSize : kIconSize;
}

int ReadOnlyRows::rowsInSight() const
{
    return height() / rowHeight();
}

QRect ReadOnlyRows::rowRect(int index) const
{
    const int place = index - m_first;
    if (place < 0 || place >= rowsInSight())
        return {};
    return {0, place * rowHeight(), width(), rowHeight()};
}

void ReadOnlyRows::layOut()
{
    m_labelFont = Fonts::ofPixels(isLarge() ? Fonts::kBodyPixels : Fonts::kLabelPixels);
    m_valueFont = Fonts::ofPixels(isLarge() ? Fonts::kReadOutPixels : Fonts::kTitlePixels);
    const QFontMetrics metrics(m_labelFont);
    m_valueLeft = kLeastValueLeft;
    for (const Row& row : m_rows)
        m_valueLeft = std::max(m_valueLeft, 2 * kMargin + metrics.horizontalAdvance(row.label));
    scrollTo(m_first);
    update();
}

void ReadOnlyRows::scrollTo(int first)
{
    const int last = std::max(0, static_cast<int>(m_rows.size()) - rowsInSight());
    const int permitted = std::clamp(first, 0, last);
    if (permitted == m_first)
        return;
    m_first = permitted;
    update();
}

void ReadOnlyRows::resizeEvent(QResizeEvent*)
{
    layOut();
}

void ReadOnlyRows::wheelEvent(QWheelEvent* event)
{
    const int before = m_first;
    scrollTo(m_first - (event->angleDelta().y() > 0) + (event->angleDelta().y() < 0));
    event->setAccepted(m_first != before);
}

bool ReadOnlyRows::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const int row = m_first + help->pos().y() / rowHeight();
    const bool isRow = row < static_cast<int>(m_rows.size()) && !rowRect(row).isEmpty();
    QToolTip::showText(help->globalPos(), isRow && m_toolTips ? m_toolTips(row) : QString(), this,
                       isRow ? rowRect(row) : QRect());
    return true;
}

void ReadOnlyRows::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), m_style.colour(ColourRole::InstrumentBackground));
    for (int i = 0; i < static_cast<int>(m_rows.size()); ++i) {
        if (event->region().intersects(rowRect(i)))
            paintRow(painter, i);
    }
    if (rowsInSight() < static_cast<int>(m_rows.size()))
        paintPosition(painter);
}

void ReadOnlyRows::paintRow(QPainter& painter, int index) const
{
    const Row& row = m_rows[static_cast<std::size_t>(index)];
    const QRect area = rowRect(index);
    if (index % 2 == 1)
        painter.fillRect(area, m_style.colour(ColourRole::AlternateRow));
    painter.setFont(m_labelFont);
    painter.setPen(m_style.colour(ColourRole::InstrumentSecondaryText));
    painter.drawText(area.adjusted(kMargin, 0, 0, 0), Qt::AlignVCenter, row.label);

    const bool isDead = row.verdict == Verdict::Unknown || row.verdict == Verdict::Inactive;
    painter.setFont(m_valueFont);
    painter.setPen(m_style.colour(isDead ? ColourRole::InstrumentDisabledText : ColourRole::InstrumentText));
    const QRect value = area.adjusted(m_valueLeft, 0, -2 * kMargin - iconSize(), 0);
    painter.drawText(value, Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(row.value, Qt::ElideRight, value.width()));
    paintMark(painter, row, area);
}

void ReadOnlyRows::paintMark(QPainter& painter, const Row& row, const QRect& area) const
{
    const bool isInvalid = row.verdict == Verdict::Warning || row.verdict == Verdict::Error;
    if (!isInvalid && !(row.verdict == Verdict::Valid && row.marksValid))
        return;
    const QColor colour = m_style.colour(markColourOf(row.verdict));
    const int size = iconSize();
    painter.drawPixmap(area.right() + 1 - kMargin - size, area.top() + (area.height() - size) / 2,
                       Icons::pixmap(Icons::path(markOf(row.verdict)), size, colour, devicePixelRatioF()));
    if (!isInvalid)
        return;
    const QRect inside =
        area.adjusted(m_valueLeft - kMargin + kFrameWidth, kFrameWidth, -kFrameWidth, -kFrameWidth);
    const QRegion frame =
        QRegion(inside.adjusted(-kFrameWidth, -kFrameWidth, kFrameWidth, kFrameWidth)).subtracted(inside);
    for (const QRect& edge : frame)
        painter.fillRect(edge, colour);
}

/// A bar at the right edge that stands for the rows in sight.
void ReadOnlyRows::paintPosition(QPainter& painter) const
{
    const int count = static_cast<int>(m_rows.size());
    const int length = height() * rowsInSight() / count;
    painter.fillRect(width() - kPositionWidth, height() * m_first / count, kPositionWidth, length,
                     m_style.colour(ColourRole::InstrumentDisabledText));
}
