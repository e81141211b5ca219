#include "instruments/audiolevels/MeterView.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QPaintEvent>
#include <QPainter>

#include <limits>

namespace {

/// The largest positive sample of 16 bits, as a factor of full scale: what reaches it may have been cut off.
constexpr float kClippedFrom = 32767.0F / 32768.0F;
/// Figures that change faster cannot be read.
constexpr int kReadOutIntervalMs = 100;
/// A level so old tells nothing about the signal.
constexpr int kMeaninglessSeconds = 5;
constexpr int kAgeGap = 11;
constexpr float kNothing = std::numeric_limits<float>::quiet_NaN();

QPixmap renderClipLamp(const QSize& size, bool withWord, const QColor& colour, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRect(QPoint(), size), 2, 2);
    painter.setPen(QPen(Qt::black, 2));
    if (withWord) {
        painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels, true));
        painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, MeterView::tr("CLIP"));
    } else {
        const QPointF middle(size.width() / 2.0, size.height() / 2.0);
        painter.drawLine(middle - QPointF(3, 3), middle + QPointF(3, 3));
        painter.drawLine(middle - QPointF(3, -3), middle + QPointF(3, -3));
    }
    return pixmap;
}

int clipWordWidth()
{
    return QFontMetrics(Fonts::ofPixels(Fonts::kLabelPixels, true)).horizontalAdvance(MeterView::tr("CLIP"))
        + 4;
}

} // namespace

MeterView::MeterView(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_clipWordWidth(clipWordWidth())
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, &MeterView::rebuild);
}

void MeterView::resizeEvent(QResizeEvent*)
{
    rebuild();
}

void MeterView::rebuild()
{
    m_layout = MeterLayout::forSize(size());
    const qreal ratio = devicePixelRatioF();
    const QFont font = Fonts::ofPixels(m_layout.scale.fontPixels);
    m_backdrop = renderMeterBackdrop(m_layout, size(), m_present, m_style, ratio);
    m_figures = MeterFigures(font, m_style.colour(ColourRole::InstrumentText), ratio);
    m_clippedFigures = MeterFigures(font, m_style.colour(ColourRole::Error), ratio);
    m_staleFigures = MeterFigures(font, m_style.colour(ColourRole::StaleText), ratio);
    m_ageFont = font;
    m_clipLamp = renderClipLamp(litLamp(0).size(), m_layout.detail != MeterLayout::Detail::Narrow,
                                m_style.colour(ColourRole::Error), ratio);
    for (Channel& each : m_channels)
        each.bar = {m_layout.scale.bottom(), m_layout.scale.bottom()};
    showBars(m_shown);
    update();
}

QRect MeterView::litLamp(int index) const
{
    return m_layout.litClipLamp(index, m_clipWordWidth);
}

void MeterView::showMeters(const MeterSet& meters)
{
    m_shown = meters;
    showPresence(meters);
    showBars(meters);
    showClips(meters);
    showPhases(meters);
    if (!m_sinceReadOuts.isValid() || m_sinceReadOuts.hasExpired(kReadOutIntervalMs)) {
        m_sinceReadOuts.start();
        showReadOuts(meters);
    }
}

void MeterView::showPresence(const MeterSet& meters)
{
    MeterPairs present;
    for (int pair = 0; pair < MeterLayout::kPairs; ++pair)
        present.set(static_cast<std::size_t>(pair),
                    meters.isPresent(2 * pair) || meters.isPresent(2 * pair + 1));
    if (present == m_present)
        return;
    m_present = present;
    rebuild();
}

void MeterView::showBars(const MeterSet& meters)
{
    for (int i = 0; i < MeterLayout::kChannels; ++i) {
        const auto bar = m_layout.barFor(meters.value(MeterSet::Ppm, i).value_or(kNothing),
                                         meters.value(MeterSet::PeakHold, i).value_or(kNothing));
        const QRect changed = m_layout.changed(i, channel(i).bar, bar);
        channel(i).bar = bar;
        if (!changed.isEmpty())
            update(changed);
    }
}

void MeterView::showClips(const MeterSet& meters)
{
    for (int i = 0; i < MeterLayout::kChannels; ++i) {
        if (channel(i).clipped || !(meters.value(MeterSet::InstantPeakLinear, i).value_or(0) >= kClippedFrom))
            continue;
        channel(i).clipped = true;
        update(litLamp(i));
        update(m_layout.levelArea(i));
    }
}

void MeterView::showReadOuts(const MeterSet& meters)
{
    for (int i = 0; i < MeterLayout::kChannels; ++i) {
        const auto level = meters.value(MeterSet::Ppm, i);
        const auto tenths = level ? std::optional(MeterFigures::tenthsOf(*level)) : std::nullopt;
        if (channel(i).tenths == tenths)
            continue;
        channel(i).tenths = tenths;
        if (m_layout.hasReadOuts())
            update(m_layout.levelArea(i));
    }
}

void MeterView::showPhases(const MeterSet& meters)
{
    for (int pair = 0; pair < MeterLayout::kPairs; ++pair) {
        auto& shown = m_phases[static_cast<std::size_t>(pair)];
        const auto phase = meters.value(MeterSet::Phase, 2 * pair);
        const bool looksAlike = shown.has_value() == phase.has_value()
            && (!phase || m_layout.phaseMarkerLeft(pair, *shown) == m_layout.phaseMarkerLeft(pair, *phase));
        shown = phase;
        if (!looksAlike)
            update(m_layout.phaseArea(pair));
    }
}

void MeterView::clearMeters()
{
    m_present.set();
    for (Channel& each : m_channels)
        each.clipped = false;
    forgetValues();
    rebuild();
}

void MeterView::forgetValues()
{
    m_shown = MeterSet();
    showBars(m_shown);
    showReadOuts(m_shown);
    showPhases(m_shown);
    m_sinceReadOuts.invalidate();
}

void MeterView::setStaleSeconds(int seconds)
{
    m_staleSeconds = seconds;
    m_age = seconds < 60 ? tr("%1 s").arg(seconds) : tr("%1 min").arg(seconds / 60);
    if (seconds >= kMeaninglessSeconds)
        forgetValues();
    update();
}

void MeterView::releaseClipLamps()
{
    for (int i = 0; i < MeterLayout::kChannels; ++i) {
        if (!channel(i).clipped)
            continue;
        channel(i).clipped = false;
        update(litLamp(i));
        update(m_layout.levelArea(i));
    }
}

void MeterView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRegion& region = event->region();
    paintBackdrop(painter, region);
    for (int i = 0; i < MeterLayout::kChannels; ++i) {
        if (!m_present.test(static_cast<std::size_t>(i / 2)))
            continue;
        if (region.intersects(m_layout.bar(i)))
            paintBar(painter, i, event->rect());
        if (m_layout.hasReadOuts() && region.intersects(m_layout.levelArea(i)))
            paintReadOut(painter, i);
        if (channel(i).clipped && region.intersects(litLamp(i)))
            painter.drawPixmap(litLamp(i).topLeft(), m_clipLamp);
    }
    for (int pair = 0; pair < MeterLayout::kPairs; ++pair) {
        if (m_phases[static_cast<std::size_t>(pair)] && region.intersects(m_layout.phaseArea(pair)))
            paintPhase(painter, pair);
    }
    if (m_staleSeconds == 0)
        return;
    painter.setFont(m_ageFont);
    painter.setPen(m_style.colour(ColourRole::Warning));
    painter.drawText(QRect(0, 0, m_layout.left - kAgeGap, m_layout.titleBaseline + 5),
                     Qt::AlignRight | Qt::AlignBottom, m_age);
}

void MeterView::paintBackdrop(QPainter& painter, const QRegion& region) const
{
    const qreal ratio = m_backdrop.devicePixelRatioF();
    for (const QRect& rect : region)
        painter.drawPixmap(QRectF(rect), m_backdrop,
                           QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio));
}

void MeterView::paintBar(QPainter& painter, int index, const QRect& dirty) const
{
    const MeterScale& scale = m_layout.scale;
    const QRect column = m_layout.bar(index);
    const MeterLayout::Bar& shown = channel(index).bar;
    const bool isLive = m_staleSeconds == 0;
    const QRect lit = QRect(column.left(), shown.row, column.width(), scale.bottom() - shown.row) & dirty;
    const auto zone = [&](int from, int to, ColourRole role) {
        const QRect rows = QRect(column.left(), from, column.width(), to - from) & lit;
        if (!rows.isEmpty())
            painter.fillRect(rows, m_style.colour(isLive ? role : ColourRole::StaleFill));
    };
    const int red = scale.rowOfDb(MeterScale::kRedFromDb);
    const int amber = scale.rowOfDb(MeterScale::kAmberFromDb);
    zone(scale.top, red, ColourRole::Error);
    zone(red, amber, ColourRole::Warning);
    zone(amber, scale.bottom(), ColourRole::Ok);
    const QRect hat = m_layout.hat(index, shown) & dirty;
    if (!hat.isEmpty())
        painter.fillRect(hat, isLive ? QColor(Qt::white) : m_style.colour(ColourRole::StaleText));
}

void MeterView::paintReadOut(QPainter& painter, int index) const
{
    const Channel& shown = channel(index);
    const MeterFigures& figures = m_staleSeconds > 0 || !shown.tenths ? m_staleFigures
        : shown.clipped                                               ? m_clippedFigures
                                                                      : m_figures;
    figures.draw(painter, m_layout.levelRight(index), m_layout.levelBaseline, shown.tenths);
}

void MeterView::paintPhase(QPainter& painter, int pair) const
{
    const float phase = *m_phases[static_cast<std::size_t>(pair)];
    const QRect track = m_layout.phaseTrack(pair);
    const int middle = track.left() + track.width() / 2;
    const int marker = m_layout.phaseMarkerLeft(pair, phase);
    const int value = marker + MeterLayout::kPhaseMarkerWidth / 2;
    const bool isLive = m_staleSeconds == 0;
    const ColourRole role = !isLive ? ColourRole::StaleText : phase < 0 ? ColourRole::Error : ColourRole::Ok;
    painter.fillRect(std::min(middle, value), track.top(), std::abs(value - middle), track.height(),
                     m_style.colour(role));
    const int top = track.top() - MeterLayout::kPhaseOverhang;
    const int height = track.height() + 2 * MeterLayout::kPhaseOverhang;
    painter.fillRect(middle - 1, top, 2, height, m_style.colour(ColourRole::InstrumentSecondaryText));
    painter.fillRect(marker, top, MeterLayout::kPhaseMarkerWidth, height,
                     isLive ? QColor(Qt::white) : m_style.colour(ColourRole::StaleText));
}
