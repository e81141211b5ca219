#include "instruments/waveform/WaveformGraticuleWidget.h"

#include "gui/picture/FeedPicture.h"
#include "gui/style/Fonts.h"
#include "gui/style/ToolTipText.h"
#include "gui/style/WzCustomStyle.h"
#include "instruments/waveform/WaveformColours.h"
#include "instruments/waveform/WaveformGraticulePainter.h"
#include "instruments/waveform/WaveformHorizontalScale.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

using Velmora::WaveformTypes::Presentation;
using YMode = MeasurementCursorLabels::YScaleMode;

namespace {

constexpr int kSnapPixels = 6;
constexpr int kFineStep = 100; ///< a tenth of a percent
constexpr int kCoarseStep = 1000;
constexpr int kNotch = QWheelEvent::DefaultDeltasPerStep;
constexpr double kStaleOpacity = 0.45;

int positionOf(double percent)
{
    return static_cast<int>(std::lround(percent * 1000.0));
}

} // namespace

WaveformGraticuleWidget::WaveformGraticuleWidget(FeedPicture& picture, const WzCustomStyle& style,
                                                 QWidget* parent)
    : QWidget(parent)
    , m_picture(picture)
    , m_style(style)
    , m_geometry(m_display.geometry())
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Waveform"));
    connect(&m_picture, &FeedPicture::arrived, this, [this] {
        if (!m_held)
            update(QRect(m_picturePlace, m_geometry.imageRect().size()));
    });
}

void WaveformGraticuleWidget::setDisplay(const WaveformDisplay& display, QPoint picture)
{
    if (display == m_display && picture == m_picturePlace)
        return;
    m_display = display;
    m_picturePlace = picture;
    m_geometry = display.geometry();
    m_cells.clear();
    for (const QRect& cell : m_geometry.cells())
        m_cells.push_back(cell.translated(picture));
    m_markers = WaveformMarkers(m_display, m_userMarkers, m_picturePlace);
    m_layer = {};
    update();
}

void WaveformGraticuleWidget::setUserMarkers(const UserMarkers& markers)
{
    if (markers == m_userMarkers)
        return;
    m_userMarkers = markers;
    m_markers = WaveformMarkers(m_display, m_userMarkers, m_picturePlace);
    update();
}

void WaveformGraticuleWidget::setCursors(const MeasurementCursors& cursors, const CursorScale& scale)
{
    if (cursors == m_cursors && scale == m_cursorScale)
        return;
    // A finger that holds a cursor which is not there any more moves nothing.
    if (m_isHeld && (cursors.axis() != m_cursors.axis() || !cursors.isShown(m_active)))
        release();
    m_cursors = cursors;
    m_cursorScale = scale;
    if (!m_cursors.isShown(m_active))
        m_active = Cursor::Reference;
    setFocusPolicy(m_cursors.isShown(Cursor::Reference) ? Qt::StrongFocus : Qt::NoFocus);
    update();
}

void WaveformGraticuleWidget::hold(const HeldTrace& trace)
{
    m_held = trace;
    update();
}

void WaveformGraticuleWidget::goOn()
{
    m_held.reset();
    update();
}

HeldTrace WaveformGraticuleWidget::shownTrace()
{
    return m_held ? *m_held : HeldTrace(m_picture.copy(), m_display);
}

void WaveformGraticuleWidget::setReferenceTrace(const HeldTrace& trace)
{
    m_referenceTrace = trace;
    m_layer = {};
    update();
}

void WaveformGraticuleWidget::setStaleSeconds(int seconds)
{
    if (seconds == m_staleSeconds)
        return;
    m_staleSeconds = seconds;
    update();
}

void WaveformGraticuleWidget::setNotice(const QString& words)
{
    if (words == m_notice)
        return;
    m_notice = words;
    update();
}

int WaveformGraticuleWidget::xAxisPosToScreenPos(int position, int cell) const
{
    const QRect& place = cellAt(cell);
    const int column = m_geometry.column(position * 0.00001);
    // The end of the line is the right edge of its last pixel.
    const bool isEnd = position == MeasurementCursors::most(Axis::X) && column == place.width();
    return place.left() + (isEnd ? column - 1 : column);
}

int WaveformGraticuleWidget::yAxisPosToScreenPos(int position, int cell) const
{
    return yPercentToScreenY(position * 0.001, cell);
}

int WaveformGraticuleWidget::yPercentToScreenY(double percent, int cell) const
{
    return cellAt(cell).top() + m_geometry.row(percent);
}

double WaveformGraticuleWidget::screenXToPercent(int x) const
{
    if (m_cells.empty())
        return 0.0;
    const QRect& cell = cellAt(cellNearest({x, m_cells.front().top()}));
    return 100.0 * m_geometry.linePosition(x - cell.left());
}

double WaveformGraticuleWidget::screenYToPercent(int y) const
{
    if (m_cells.empty())
        return 0.0;
    const QRect& cell = cellAt(cellNearest({m_cells.front().left(), y}));
    return m_geometry.percent(y - cell.top());
}

int WaveformGraticuleWidget::cellNearest(QPoint point) const
{
    const auto distance = [point](const QRect& cell) {
        const int dx = std::max({cell.left() - point.x(), point.x() - cell.right(), 0});
        const int dy = std::max({cell.top() - point.y(), point.y() - cell.bottom(), 0});
        return dx + dy;
    };
    const auto nearest =
        std::min_element(m_cells.begin(), m_cells.end(),
                         [&distance](const QRect& a, const QRect& b) { return distance(a) < distance(b); });
    return static_cast<int>(nearest - m_cells.begin());
}

MeasurementCursorLabels WaveformGraticuleWidget::labels() const
{
    MeasurementCursorLabels labels({m_display.signal.width, m_display.signal.sampleRate},
                                   m_display.codeScale(m_display.isColourDifferenceOnly()),
                                   m_display.nitsScale());
    labels.setPercentReference(m_cursorScale.percentReference);
    return labels;
}

CursorReadOut WaveformGraticuleWidget::readOut() const
{
    return CursorReadOut::of(m_cursors, labels(), m_cursorScale.x, m_cursorScale.y, m_display.hasNitsScale(),
                             cursorPainter().mostColumns());
}

QRect WaveformGraticuleWidget::readOutRect() const
{
    if (!m_cursorScale.isDisplayed)
        return {};
    const auto finger = m_isHeld ? std::optional(m_finger) : std::nullopt;
    return cursorPainter().readOutRect(readOut(), m_cursorScale.corner, finger);
}

QString WaveformGraticuleWidget::levelsAt(QPoint point) const
{
    if (m_cells.empty() || !cellAt(cellNearest(point)).contains(point))
        return {};
    using XMode = MeasurementCursorLabels::XScaleMode;
    const int cell = cellNearest(point);
    const bool isCbCr = m_display.isColourDifferenceCell(cell);
    const double percent = screenYToPercent(point.y());
    const int level = positionOf(percent);
    MeasurementCursorLabels codes({m_display.signal.width, m_display.signal.sampleRate},
                                  m_display.codeScale(isCbCr), m_display.nitsScale());
    QStringList names;
    for (const auto component : m_display.componentsOf(cell))
        names << WaveformComponent::nameOf(component);
    // Cb and Cr are read from their zero.
    const int shownLevel = isCbCr ? level - 50000 : level;
    QStringList lines{names.join(QLatin1Char(' ')),
                      codes.getMeasurementCursorYLabel(YMode::Percent, shownLevel) + QLatin1String("  ")
                          + codes.getMeasurementCursorYLabel(YMode::Millivolts, shownLevel),
                      codes.getMeasurementCursorYLabel(YMode::Decimal, level) + QLatin1String("  ")
                          + codes.getMeasurementCursorYLabel(YMode::Hex, level)};
    if (m_display.hasNitsScale() && !isCbCr)
        lines << codes.getMeasurementCursorYLabel(YMode::Nits, level);
    const int position = positionOf(screenXToPercent(point.x()));
    lines << codes.getMeasurementCursorXLabel(XMode::Percent, position) + QLatin1String("  ")
            + codes.getMeasurementCursorXLabel(XMode::Pixels, position) + QLatin1String("  ")
            + codes.getMeasurementCursorXLabel(XMode::Time, position);
    return lines.join(QLatin1Char('\n'));
}

void WaveformGraticuleWidget::renderLayer()
{
    const WzPalette palette = m_style.instrumentPalette();
    m_layer = WaveformGraticulePainter(m_display, palette, m_picturePlace)
                  .render(size(), m_referenceTrace, devicePixelRatioF());
}

void WaveformGraticuleWidget::paintLayer(QPainter& painter, const QRect& dirty) const
{
    const qreal ratio = m_layer.devicePixelRatioF();
    painter.drawPixmap(QRectF(dirty), m_layer,
                       QRectF(QPointF(dirty.topLeft()) * ratio, QSizeF(dirty.size()) * ratio));
}

void WaveformGraticuleWidget::paintPicture(QPainter& painter, const QRect& dirty)
{
    const auto background = [&] {
        painter.setOpacity(1.0);
        paintLayer(painter, dirty);
        painter.setOpacity(m_staleSeconds > 0 ? kStaleOpacity : 1.0);
    };
    if (!m_held) {
        m_picture.paint(painter, m_picturePlace, background);
    } else {
        background();
        painter.setOpacity(1.0);
        m_held->paint(painter, m_display, m_picturePlace);
    }
    painter.setOpacity(1.0);
}

void WaveformGraticuleWidget::paintEvent(QPaintEvent* event)
{
    if (m_layer.isNull() && !size().isEmpty())
        renderLayer();
    QPainter painter(this);
    paintPicture(painter, event->rect());
    if (m_cells.empty())
        return;
    paintPictureCursor(painter);
    m_markers.paint(painter);
    cursorPainter().paint(painter, m_active, hasFocus() ? m_style.colour(ColourRole::Accent) : QColor());
    if (m_cursorScale.isDisplayed && m_cursors.isShown(Cursor::Reference))
        cursorPainter().paintReadOut(painter, m_style.instrumentPalette(), readOut(), readOutRect());
    paintWords(painter);
}

void WaveformGraticuleWidget::paintPictureCursor(QPainter& painter) const
{
    if (!m_display.cursorPixel || m_display.signal.width <= 0)
        return;
    constexpr int kOn = 3;
    constexpr int kOff = 5;
    const double position = (*m_display.cursorPixel + 0.5) / m_display.signal.width;
    for (const QRect& cell : m_cells) {
        const int column = m_geometry.column(position);
        if (column < 0 || column >= cell.width())
            continue;
        for (int y = cell.top(); y <= cell.bottom(); y += kOn + kOff)
            painter.fillRect(cell.left() + column, y, 1, std::min(kOn, cell.bottom() + 1 - y), Qt::white);
    }
}

void WaveformGraticuleWidget::paintWords(QPainter& painter) const
{
    const QRect picture(m_picturePlace, m_geometry.imageRect().size());
    if (m_staleSeconds > 0) {
        painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
        painter.setPen(m_style.instrumentPalette().colour(ColourRole::Warning));
        painter.drawText(picture.adjusted(0, 4, -6, 0), Qt::AlignRight | Qt::AlignTop,
                         m_staleSeconds < 60 ? tr("%1 s").arg(m_staleSeconds)
                                             : tr("%1 min").arg(m_staleSeconds / 60));
    }
    if (m_notice.isEmpty())
        return;
    const int flags = Qt::AlignCenter | Qt::TextWordWrap;
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.fillRect(painter.boundingRect(picture, flags, m_notice).adjusted(-12, -8, 12, 8),
                     QColor::fromRgba(WaveformColours::kLabelBackground));
    painter.setPen(m_style.instrumentPalette().colour(ColourRole::InstrumentText));
    painter.drawText(picture, flags, m_notice);
}

void WaveformGraticuleWidget::resizeEvent(QResizeEvent* event)
{
    m_layer = {};
    QWidget::resizeEvent(event);
}

/// No release comes to what is not seen any more, when the layout is switched in the middle of a drag.
void WaveformGraticuleWidget::hideEvent(QHideEvent* event)
{
    if (m_isHeld)
        release();
    QWidget::hideEvent(event);
}

void WaveformGraticuleWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange) {
        m_layer = {};
        update();
    }
    QWidget::changeEvent(event);
}

int WaveformGraticuleWidget::positionAt(QPoint point) const
{
    return positionOf(m_cursors.axis() == Axis::X ? screenXToPercent(point.x())
                                                  : screenYToPercent(point.y()));
}

void WaveformGraticuleWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_cells.empty()) {
        QWidget::mousePressEvent(event);
        return;
    }
    const QRect figures = m_cursors.isShown(Cursor::Reference) ? readOutRect() : QRect();
    const auto cursor = cursorPainter().cursorAt(event->pos());
    if (cursor) {
        m_active = *cursor;
        m_isHeld = true;
        m_finger = event->pos();
        const int position = m_cursors.position(m_cursors.axis(), m_active);
        m_grip = m_cursors.axis() == Axis::X
            ? QPoint(xAxisPosToScreenPos(position, cellNearest(m_finger)) - m_finger.x(), 0)
            : QPoint(0, yAxisPosToScreenPos(position, cellNearest(m_finger)) - m_finger.y());
        emit holdingChanged(true);
        update();
    } else if (figures.contains(event->pos())) {
        // Round the picture, clockwise.
        static constexpr std::array kCorners{Qt::BottomLeftCorner, Qt::TopLeftCorner, Qt::TopRightCorner,
                                             Qt::BottomRightCorner};
        const auto* const now = std::find(kCorners.begin(), kCorners.end(), m_cursorScale.corner);
        emit cornerChosen(now == kCorners.end() || now + 1 == kCorners.end() ? kCorners.front() : *(now + 1));
    } else {
        QWidget::mousePressEvent(event);
    }
}

void WaveformGraticuleWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isHeld || m_cells.empty())
        return;
    m_finger = event->pos();
    const int position = positionAt(m_finger + m_grip);
    const bool isFree = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    emit cursorMoved(m_active, isFree ? position : snapped(position));
    update();
}

void WaveformGraticuleWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_isHeld)
        release();
    else
        QWidget::mouseReleaseEvent(event);
}

void WaveformGraticuleWidget::release()
{
    m_isHeld = false;
    emit holdingChanged(false);
    update();
}

/// What is worth meeting exactly: the lines of the graticule and the markers.
std::vector<int> WaveformGraticuleWidget::snapPositions() const
{
    std::vector<int> positions;
    if (m_cursors.axis() == Axis::X) {
        for (const auto& mark : WaveformHorizontalScale::marks(m_display, m_geometry))
            positions.push_back(positionOf(mark.position * 100.0));
        return positions;
    }
    const WaveformScale scale = m_display.scale(m_geometry, m_display.isColourDifferenceOnly());
    std::vector<double> levels{0.0, 100.0};
    for (const auto* const each : {&m_markers.levels(), &scale.lines(), &scale.limits()})
        levels.insert(levels.end(), each->begin(), each->end());
    for (const double level : levels)
        positions.push_back(positionOf(level));
    return positions;
}

int WaveformGraticuleWidget::snapped(int position) const
{
    const auto pixelOf = [this](int place) {
        return m_cursors.axis() == Axis::X ? xAxisPosToScreenPos(place) : yAxisPosToScreenPos(place);
    };
    for (const int target : snapPositions()) {
        if (std::abs(pixelOf(target) - pixelOf(position)) <= kSnapPixels)
            return target;
    }
    return position;
}

void WaveformGraticuleWidget::stepCursor(int steps, bool isCoarse)
{
    const int step = isCoarse ? kCoarseStep : kFineStep;
    emit cursorMoved(m_active, m_cursors.position(m_cursors.axis(), m_active) + steps * step);
}

void WaveformGraticuleWidget::wheelEvent(QWheelEvent* event)
{
    // Fine wheels tell parts of a notch.
    m_wheelAngle += event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const int steps = m_wheelAngle / kNotch;
    m_wheelAngle -= steps * kNotch;
    event->accept();
    if (steps == 0)
        return;
    if (m_cursors.isShown(Cursor::Reference) && !event->modifiers().testFlag(Qt::ControlModifier))
        stepCursor(steps, event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier));
    else
        emit zoomed(steps);
}

/// Along the axis the cursor moves; across it the other cursor is taken.
void WaveformGraticuleWidget::keyPressEvent(QKeyEvent* event)
{
    const bool isLevel = m_cursors.axis() == Axis::Y;
    const bool isCoarse = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool hasBoth = m_cursors.isShown(Cursor::Delta);
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Left: {
        if (!m_cursors.isShown(Cursor::Reference))
            break;
        const bool isForward = event->key() == Qt::Key_Up || event->key() == Qt::Key_Right;
        const bool isAlong = isLevel == (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down);
        if (isAlong)
            stepCursor(isForward ? 1 : -1, isCoarse);
        else if (hasBoth)
            m_active = m_active == Cursor::Reference ? Cursor::Delta : Cursor::Reference;
        update();
        return;
    }
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

bool WaveformGraticuleWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QString levels = levelsAt(help->pos());
    QToolTip::showText(help->globalPos(), levels.isEmpty() ? levels : ToolTipText::of(levels), this);
    return true;
}
