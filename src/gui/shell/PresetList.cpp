#include "gui/shell/PresetList.h"

#include "gui/control/TouchScroll.h"
#include "gui/shell/HoldButton.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QScrollPrepareEvent>
#include <QScroller>

#include <algorithm>
#include <utility>

namespace {

constexpr int kIconLeft = 24;
constexpr int kIconSize = 24;
constexpr int kMarkSize = 20;
constexpr int kTextLeft = 56;
constexpr int kTextGap = 12;
constexpr int kSelectedBar = 4;
constexpr int kDragDistance = 12;
constexpr int kScrollMs = 60;
constexpr int kSearchMs = 1500;
/// Of a name that is painted; the rest would not fit anyway.
constexpr int kMostCharacters = 200;

} // namespace

PresetList::PresetList(const WzCustomStyle& style, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_style(style)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a finger or the focus moves it
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    TouchScroll::enable(*this);
}

void PresetList::setRows(std::vector<Row> rows)
{
    const bool isSame = rows == m_rows;
    if (isSame && m_awaited.isEmpty())
        return;
    endDrag(false);
    const QString wanted = m_awaited.isEmpty() ? selected() : m_awaited;
    m_rows = std::move(rows);
    const auto find = [this](const QString& name) {
        return std::find_if(m_rows.begin(), m_rows.end(),
                            [&name](const Row& row) { return row.name == name; });
    };
    auto found = find(wanted);
    if (found == m_rows.end() && !m_awaited.isEmpty())
        found = m_selected >= 0 && isRow(m_selected) ? m_rows.begin() + m_selected : m_rows.end();
    else
        m_awaited.clear();
    const int last = static_cast<int>(m_rows.size()) - 1;
    m_selected = found != m_rows.end() ? static_cast<int>(found - m_rows.begin())
                                       : std::min(std::max(m_selected, 0), last);
    updateRange();
    showSelected();
    emit selectionChanged();
}

void PresetList::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

void PresetList::setMovable(bool movable)
{
    m_isMovable = movable;
    endDrag(false);
}

QString PresetList::selected() const
{
    return isRow(m_selected) ? m_rows[static_cast<std::size_t>(m_selected)].name : QString();
}

void PresetList::select(const QString& name)
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&name](const Row& row) { return row.name == name; });
    if (found != m_rows.end())
        selectRow(static_cast<int>(found - m_rows.begin()));
    else
        m_awaited = name;
}

void PresetList::selectRow(int row)
{
    if (!isRow(row))
        return;
    m_awaited.clear();
    m_selected = row;
    showSelected();
    emit selectionChanged();
}

void PresetList::showSelected()
{
    viewport()->update();
    if (!isRow(m_selected))
        return;
    QScrollBar& bar = *verticalScrollBar();
    const int top = m_selected * kRowHeight;
    if (top < bar.value())
        bar.setValue(top);
    else if (top + kRowHeight > bar.value() + viewport()->height())
        bar.setValue(top + kRowHeight - viewport()->height());
}

// --- Places

QRect PresetList::rowRect(int row) const
{
    return {0, row * kRowHeight - verticalScrollBar()->value(), viewport()->width(), kRowHeight};
}

int PresetList::rowAt(int y) const
{
    const int row = (y + verticalScrollBar()->value()) / kRowHeight;
    return isRow(row) ? row : -1;
}

bool PresetList::isGrip(const QPoint& position) const
{
    return m_isMovable && position.x() >= viewport()->width() - kGripWidth && rowAt(position.y()) >= 0;
}

void PresetList::updateRange()
{
    QScrollBar& bar = *verticalScrollBar();
    bar.setRange(0, qMax(0, static_cast<int>(m_rows.size()) * kRowHeight - viewport()->height()));
    bar.setPageStep(viewport()->height());
    bar.setSingleStep(kRowHeight);
}

void PresetList::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateRange();
    showSelected();
}

// --- Order

void PresetList::moveRow(int from, int before)
{
    if (!isRow(from) || !m_isMovable || before == from || before == from + 1)
        return;
    const auto place = [this](int row) { return m_rows.begin() + row; };
    if (from < before)
        std::rotate(place(from), place(from + 1), place(before));
    else
        std::rotate(place(before), place(from), place(from + 1));
    m_selected = from < before ? before - 1 : before;
    showSelected();
    QStringList names;
    for (const Row& row : m_rows)
        names << row.name;
    emit selectionChanged();
    emit orderChosen(names);
}

void PresetList::moveSelected(int rows)
{
    if (!isRow(m_selected + rows))
        return;
    const int target = m_selected + rows;
    moveRow(m_selected, target > m_selected ? target + 1 : target);
}

int PresetList::targetAt(int y) const
{
    const int row = (y + verticalScrollBar()->value() + kRowHeight / 2) / kRowHeight;
    return std::clamp(row, 0, static_cast<int>(m_rows.size()));
}

void PresetList::dragTo(int y)
{
    m_target = targetAt(y);
    const bool isAtEnd = y < kRowHeight / 2 || y > viewport()->height() - kRowHeight / 2;
    if (!isAtEnd)
        m_scrollTimer.stop();
    else if (!m_scrollTimer.isActive())
        m_scrollTimer.start(kScrollMs, this);
    viewport()->update();
}

void PresetList::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_scrollTimer.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    const int y = viewport()->mapFromGlobal(QCursor::pos()).y();
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(bar.value() + (y < viewport()->height() / 2 ? -kRowHeight / 4 : kRowHeight / 4));
    dragTo(y);
}

void PresetList::endDrag(bool isKept)
{
    m_scrollTimer.stop();
    qApp->removeEventFilter(this);
    const int from = std::exchange(m_dragged, -1);
    const int before = std::exchange(m_target, -1);
    m_pressed = -1;
    viewport()->update();
    if (isKept && from >= 0)
        moveRow(from, before);
}

// --- Finger and mouse

bool PresetList::viewportEvent(QEvent* event)
{
    // What begins on a grip moves the row and not the list.
    if (event->type() == QEvent::ScrollPrepare
        && isGrip(static_cast<QScrollPrepareEvent*>(event)->startPos().toPoint())) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::TouchBegin || event->type() == QEvent::TouchUpdate) {
        // A second finger takes the drag back.
        if (m_dragged >= 0 && static_cast<QTouchEvent*>(event)->touchPoints().size() > 1)
            endDrag(false);
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void PresetList::mousePressEvent(QMouseEvent* event)
{
    m_sincePress.start();
    m_pressedAt = event->pos();
    m_pressed = event->button() == Qt::LeftButton ? rowAt(event->pos().y()) : -1;
    viewport()->update();
}

void PresetList::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragged < 0 && m_pressed >= 0 && isGrip(m_pressedAt)
        && (event->pos() - m_pressedAt).manhattanLength() >= kDragDistance) {
        m_dragged = m_pressed;
        m_selected = m_pressed;
        qApp->installEventFilter(this);
        emit selectionChanged();
    }
    if (m_dragged >= 0)
        dragTo(event->pos().y());
}

void PresetList::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_dragged >= 0) {
        endDrag(true);
        return;
    }
    const int pressed = std::exchange(m_pressed, -1);
    viewport()->update();
    if (pressed < 0 || !viewport()->rect().contains(event->pos()) || rowAt(event->pos().y()) != pressed)
        return;
    const bool wasHeld = m_sincePress.elapsed() >= HoldButton::kHoldMs;
    const bool wasSelected = pressed == m_selected;
    selectRow(pressed);
    if (wasHeld)
        emit contextMenuWanted(event->globalPos());
    else if (wasSelected && !isGrip(event->pos()))
        emit activated();
}

/// Escape takes the drag back, whoever has the focus, before it closes anything.
bool PresetList::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (m_dragged < 0 || !isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
        return QAbstractScrollArea::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        endDrag(false);
    return true;
}

void PresetList::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!byKey)
        selectRow(rowAt(event->pos().y()));
    if (isRow(m_selected))
        emit contextMenuWanted(byKey ? viewport()->mapToGlobal(rowRect(m_selected).center())
                                     : event->globalPos());
}

void PresetList::wheelEvent(QWheelEvent* event)
{
    // The knob comes as a wheel that no mouse has turned, and goes from row to row.
    if (event->spontaneous())
        QAbstractScrollArea::wheelEvent(event);
    else
        selectRow(m_selected + (event->angleDelta().y() > 0 ? -1 : 1));
}

// --- Keys

bool PresetList::event(QEvent* event)
{
    // A letter looks for a row and is nobody's short cut meanwhile.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const bool isLetter = key->modifiers() == Qt::NoModifier && !key->text().isEmpty()
            && key->text().at(0).isLetterOrNumber();
        if (isLetter)
            event->accept();
    }
    return QAbstractScrollArea::event(event);
}

void PresetList::keyPressEvent(QKeyEvent* event)
{
    const bool moves = event->modifiers() == Qt::ControlModifier;
    const int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
    if (step != 0 && moves)
        moveSelected(step);
    else if (step != 0)
        selectRow(m_selected + step);
    else if (event->key() == Qt::Key_Home)
        selectRow(0);
    else if (event->key() == Qt::Key_End)
        selectRow(static_cast<int>(m_rows.size()) - 1);
    else if (event->modifiers() == Qt::NoModifier && !event->text().isEmpty()
             && event->text().at(0).isPrint())
        searchFor(event->text());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

/// The next row that begins with what was typed in a row.
void PresetList::searchFor(const QString& typed)
{
    const bool goesOn = m_sinceTyped.isValid() && m_sinceTyped.elapsed() < kSearchMs;
    m_searched = goesOn ? m_searched + typed : typed;
    m_sinceTyped.start();
    const int count = static_cast<int>(m_rows.size());
    const int first = m_selected + (m_searched.size() == 1 ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        const int row = (std::max(first, 0) + i) % count;
        if (m_rows[static_cast<std::size_t>(row)].name.startsWith(m_searched, Qt::CaseInsensitive)) {
            selectRow(row);
            return;
        }
    }
}

void PresetList::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void PresetList::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// --- Painting

void PresetList::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), m_style.colour(ColourRole::Background));
    if (m_rows.empty()) {
        painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
        painter.setPen(m_style.colour(ColourRole::SecondaryText));
        painter.drawText(viewport()->rect().adjusted(kTextLeft, 0, -kTextLeft, 0),
                         Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
        return;
    }
    const int last = static_cast<int>(m_rows.size()) - 1;
    const int offset = verticalScrollBar()->value();
    for (int row = offset / kRowHeight; row <= std::min(last, (offset + viewport()->height()) / kRowHeight);
         ++row)
        paintRow(painter, row);
    if (m_dragged >= 0)
        paintTarget(painter);
}

void PresetList::paintRow(QPainter& painter, int row) const
{
    const QRect area = rowRect(row);
    const bool isSelected = row == m_selected;
    if (row == m_pressed && m_dragged < 0)
        painter.fillRect(area, m_style.colour(ColourRole::Pressed));
    else if (isSelected)
        painter.fillRect(area, m_style.colour(ColourRole::Selected));
    if (isSelected)
        painter.fillRect(area.left(), area.top(), kSelectedBar, area.height(),
                         m_style.colour(ColourRole::Accent));
    else
        painter.fillRect(kTextLeft, area.bottom(), area.width() - kTextLeft, 1,
                         m_style.colour(ColourRole::Frame));
    painter.drawPixmap(
        kIconLeft, area.top() + (area.height() - kIconSize) / 2,
        Icons::pixmap(Icons::path(QStringLiteral("preset")), kIconSize,
                      m_style.colour(isSelected ? ColourRole::Text : ColourRole::SecondaryText),
                      devicePixelRatioF()));
    paintTexts(painter, area.adjusted(kTextLeft, 0, -kGripWidth, 0), m_rows[static_cast<std::size_t>(row)]);
    if (m_isMovable)
        paintGrip(painter, area);
    const bool showsFocus = hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (isSelected && showsFocus) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), 2));
        painter.drawRect(QRectF(area).adjusted(1, 1, -1, -1));
    }
}

void PresetList::paintTexts(QPainter& painter, const QRect& area, const Row& row) const
{
    int markWidth = 0;
    if (!row.mark.isEmpty()) {
        painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
        markWidth = kTextGap + kMarkSize + 6 + painter.fontMetrics().horizontalAdvance(row.mark) + kTextGap;
    }
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(ColourRole::Text));
    const QString name = painter.fontMetrics().elidedText(row.name.left(kMostCharacters).simplified(),
                                                          Qt::ElideRight, area.width() - markWidth);
    const QRect room = row.secondary.isEmpty() ? area : area.adjusted(0, 9, 0, -30);
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine, name);
    const int markLeft = area.left() + painter.fontMetrics().horizontalAdvance(name) + kTextGap;
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    painter.setPen(m_style.colour(ColourRole::SecondaryText));
    painter.drawText(area.adjusted(0, 0, 0, -8), Qt::AlignBottom, row.secondary);
    if (row.mark.isEmpty())
        return;
    painter.drawPixmap(markLeft, room.center().y() - kMarkSize / 2 + 1,
                       Icons::pixmap(Icons::path(QStringLiteral("status-ok")), kMarkSize,
                                     m_style.colour(ColourRole::Ok), devicePixelRatioF()));
    painter.drawText(room.adjusted(markLeft + kMarkSize + 6 - area.left(), 0, 0, 0), Qt::AlignVCenter,
                     row.mark);
}

/// Three lines to hold it by.
void PresetList::paintGrip(QPainter& painter, const QRect& area) const
{
    constexpr int kWide = 18;
    const int left = area.right() - (kGripWidth + kWide) / 2;
    for (const int y : {-6, 0, 6})
        painter.fillRect(left, area.center().y() + y, kWide, 2, m_style.colour(ColourRole::SecondaryText));
}

/// Where the row that is dragged will land.
void PresetList::paintTarget(QPainter& painter) const
{
    const int y = m_target * kRowHeight - verticalScrollBar()->value();
    painter.fillRect(0, std::clamp(y - 2, 0, viewport()->height() - 4), viewport()->width(), 4,
                     m_style.colour(ColourRole::Accent));
}
