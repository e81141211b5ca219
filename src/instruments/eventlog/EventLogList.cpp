#include "instruments/eventlog/EventLogList.h"

#include "instruments/eventlog/EventLogModel.h"
#include "instruments/eventlog/EventSeverity.h"

#include "gui/control/TouchScroll.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/ToolTipText.h"
#include "gui/style/WzCustomStyle.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace {

constexpr int kUnseenBarWidth = 3;
constexpr int kIconSize = 20;
constexpr int kRightMargin = 8;
constexpr int kToolTipCharacters = 1000;

/// Where the parts of a row stand.
struct RowLayout {
    int height;
    int timeLeft;
    int iconLeft;
    int kindLeft; ///< the kind is left out where it is that of the text
    int textLeft;
};
constexpr RowLayout kSmall{28, 12, 96, 126, 126};
constexpr RowLayout kLarge{36, 16, 220, 256, 416};

const RowLayout& layoutOf(bool large)
{
    return large ? kLarge : kSmall;
}

QColor between(const QColor& a, const QColor& b)
{
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

} // namespace

EventLogList::EventLogList(const EventLogModel& model, const WzCustomStyle& style, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_model(model)
    , m_style(style)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    TouchScroll::enable(*this);
    updateColours();
}

const EventRing& EventLogList::shownEntries() const
{
    return m_isHeld ? m_held : m_model.entries();
}

void EventLogList::updateColours()
{
    m_colours = m_style.instrumentPalette();
    setPalette(m_colours.widgetPalette());
    m_seenText = between(m_colours.colour(ColourRole::Text), m_colours.colour(ColourRole::SecondaryText));
    for (std::size_t i = 0; i < m_icons.size(); ++i) {
        const auto severity = static_cast<EventSeverity>(i);
        m_icons[i] = Icons::pixmap(Icons::path(iconNameOf(severity)), kIconSize,
                                   m_colours.colour(colourRoleOf(severity)), devicePixelRatioF());
    }
    m_timeFont = Fonts::ofPixels(m_largeRows ? Fonts::kTitlePixels : Fonts::kLabelPixels);
    m_textFont = Fonts::ofPixels(m_largeRows ? Fonts::kBodyPixels : Fonts::kTitlePixels);
    viewport()->update();
}

void EventLogList::setLargeRows(bool large)
{
    if (large == m_largeRows)
        return;
    const int top = verticalScrollBar()->value() / rowHeight();
    m_largeRows = large;
    updateColours();
    updateRange();
    verticalScrollBar()->setValue(top * rowHeight());
}

void EventLogList::setEmptyText(const QString& text)
{
    if (text == m_emptyText)
        return;
    m_emptyText = text;
    viewport()->update();
}

void EventLogList::setFilter(const EventKindFilter& filter, const QString& searchedText)
{
    m_rows.setFilter(filter, searchedText);
    m_rows.update(shownEntries());
    updateRange();
    jumpToNewest();
    viewport()->update();
}

void EventLogList::setHeld(bool held)
{
    m_held = held ? m_model.entries() : EventRing();
    m_isHeld = held;
    refresh();
}

void EventLogList::refresh()
{
    const int added = m_rows.update(shownEntries());
    const int before = verticalScrollBar()->value();
    updateRange();
    if (before > 0)
        verticalScrollBar()->setValue(before + added * rowHeight());
    viewport()->update();
}

void EventLogList::jumpToNewest()
{
    verticalScrollBar()->setValue(0);
}

int EventLogList::rowsAbove() const
{
    return (verticalScrollBar()->value() + rowHeight() - 1) / rowHeight();
}

int EventLogList::rowHeight() const
{
    return layoutOf(m_largeRows).height;
}

int EventLogList::rowAt(int y) const
{
    return (y + verticalScrollBar()->value()) / rowHeight();
}

void EventLogList::updateRange()
{
    QScrollBar& bar = *verticalScrollBar();
    bar.setRange(0, qMax(0, m_rows.count() * rowHeight() - viewport()->height()));
    bar.setPageStep(viewport()->height());
    bar.setSingleStep(rowHeight());
}

void EventLogList::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateRange();
}

void EventLogList::scrollContentsBy(int, int)
{
    viewport()->update();
    const int above = rowsAbove();
    if (std::exchange(m_toldAbove, above) != above)
        emit rowsAboveChanged(above);
}

void EventLogList::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect dirty = event->rect();
    painter.fillRect(dirty, m_colours.colour(ColourRole::InstrumentBackground));
    if (m_rows.count() == 0) {
        painter.setFont(m_textFont);
        painter.setPen(m_colours.colour(ColourRole::SecondaryText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter, m_emptyText);
        return;
    }
    const int last = qMin(rowAt(dirty.bottom()), m_rows.count() - 1);
    for (int row = rowAt(dirty.top()); row <= last; ++row) {
        const int top = row * rowHeight() - verticalScrollBar()->value();
        paintRow(painter, QRect(0, top, viewport()->width(), rowHeight()), row);
    }
}

void EventLogList::paintRow(QPainter& painter, const QRect& area, int row) const
{
    const quint64 number = m_rows.number(row);
    // The log may be ahead of the rows by what has gone since the last refresh.
    if (!shownEntries().contains(number))
        return;
    const EventEntry& entry = shownEntries().at(number);
    const RowLayout& layout = layoutOf(m_largeRows);
    const bool unseen = number >= m_model.firstUnseen();
    if (!m_rows.isOdd(row))
        painter.fillRect(area, m_colours.colour(ColourRole::AlternateRow));
    if (unseen)
        painter.fillRect(QRect(area.topLeft(), QSize(kUnseenBarWidth, area.height())),
                         m_colours.colour(ColourRole::Text));

    painter.setFont(m_timeFont);
    painter.setPen(m_colours.colour(ColourRole::SecondaryText));
    const QString format = m_largeRows ? QStringLiteral("yyyy-MM-dd HH:mm:ss") : QStringLiteral("HH:mm:ss");
    const QString time = entry.time.isValid() ? entry.time.toString(format) : QStringLiteral("--:--:--");
    painter.drawText(area.adjusted(layout.timeLeft, 0, 0, 0), Qt::AlignVCenter, time);
    if (layout.kindLeft < layout.textLeft)
        painter.drawText(area.adjusted(layout.kindLeft, 0, 0, 0), Qt::AlignVCenter,
                         EventKindFilter::kindText(entry.kind));
    const auto severity = static_cast<std::size_t>(severityOf(entry));
    painter.drawPixmap(layout.iconLeft, area.top() + (area.height() - kIconSize) / 2, m_icons[severity]);

    painter.setFont(m_textFont);
    painter.setPen(unseen ? m_colours.colour(ColourRole::Text) : m_seenText);
    const QRect room = area.adjusted(layout.textLeft, 0, -kRightMargin, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(entry.message, Qt::ElideRight, room.width()));
}

QString EventLogList::toolTipOf(const EventEntry& entry) const
{
    const QString time = entry.time.isValid() ? entry.time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"))
                                              : tr("Unknown time");
    const QString kind = EventKindFilter::kindText(entry.kind);
    return ToolTipText::of(QStringLiteral("%1\n%2, %3\n%4\n%5")
                               .arg(time, kind, textOf(severityOf(entry)),
                                    entry.message.left(kToolTipCharacters),
                                    EventKindFilter::kindHelp(entry.kind)));
}

bool EventLogList::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const int row = rowAt(help->pos().y());
    if (row < m_rows.count() && shownEntries().contains(m_rows.number(row)))
        QToolTip::showText(help->globalPos(), toolTipOf(shownEntries().at(m_rows.number(row))), viewport());
    return true;
}

void EventLogList::mousePressEvent(QMouseEvent* event)
{
    emit used();
    QAbstractScrollArea::mousePressEvent(event);
}

void EventLogList::wheelEvent(QWheelEvent* event)
{
    emit used();
    QAbstractScrollArea::wheelEvent(event);
}

void EventLogList::keyPressEvent(QKeyEvent* event)
{
    QScrollBar& bar = *verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_Home:
        jumpToNewest();
        break;
    case Qt::Key_End:
        bar.triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    emit used();
}
