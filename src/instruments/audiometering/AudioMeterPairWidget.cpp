#include "instruments/audiometering/AudioMeterPairWidget.h"

#include "instruments/audiometering/MeterLook.h"
#include "instruments/audiometering/PairButtons.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

using AudioDataType = AudioDataNotifier::AudioDataType;

constexpr int kPairsPerGroup = 2;
/// Between the bars and the lines of their scales.
constexpr int kLineGap = 4;
/// For lines between the bars there has to be more room.
constexpr int kLeastMiddleScale = 12;
constexpr int kMonitoredLine = 3;
constexpr int kBoxMargin = 2;
constexpr int kTitleGap = 5; ///< between the titles of neighbours
constexpr int kMostTinyFigures = 2;
constexpr int kNameGap = 11; ///< between the names of the rows and the first pair

QString levelText(float level)
{
    return level > AudioMeterWidget::kLowest
        ? AudioMeterPairWidget::tr("%1 dBFS").arg(QString::number(static_cast<double>(level), 'f', 1))
        : QStringLiteral("--.-");
}

} // namespace

AudioMeterPairWidget::AudioMeterPairWidget(AudioInput input, int pairIndex, QWidget* parent)
    : QWidget(parent)
    , m_input(input)
    , m_pairIndex(pairIndex)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (const Side side : kSides)
        channel(side).meter = new AudioMeterWidget(this);
}

QString AudioMeterPairWidget::createTitleFromGroupAndPairNumbers(int group, int pair)
{
    const int first = 2 * (kPairsPerGroup * (group - 1) + pair) - 1;
    return QStringLiteral("%1 \u00B7 %2").arg(first).arg(first + 1);
}

QString AudioMeterPairWidget::createToolTipFromSourceGroupAndPairNumbers(AudioInput source, int group,
                                                                         int pair)
{
    const int first = 2 * (kPairsPerGroup * (group - 1) + pair) - 1;
    const QString channels = tr("channels %1 and %2").arg(first).arg(first + 1);
    switch (source) {
    case AudioInput::EmbeddedSdi:
        return tr("Embedded audio, group %1, pair %2: %3")
            .arg(QString::number(group), QString::number(pair), channels);
    case AudioInput::Aes:
        return tr("AES input %1: %2").arg(QString::number((first + 1) / 2), channels);
    case AudioInput::St2110_30:
        return tr("ST 2110-30, %1").arg(channels);
    case AudioInput::DolbyE:
        return tr("Decoded programme, %1").arg(channels);
    }
    return channels;
}

void AudioMeterPairWidget::setScaleType(PPMScaleType type)
{
    if (!MeterScale::of(type) || type == m_scaleType)
        return;
    m_scaleType = type;
    applyScale();
}

void AudioMeterPairWidget::applyScale()
{
    if (!m_look)
        return;
    showBars();
    for (const Channel& each : m_channels) {
        each.meter->setRange(scale().lower, scale().upper);
        each.meter->setUnlitSectionsByValue(m_look->unlit);
        each.meter->setColouredSectionsByValue(m_look->lit);
    }
    showFigures();
    update();
}

float AudioMeterPairWidget::convertInstantPeakValueToCurrentStandard(float levelDbfs) const
{
    return static_cast<float>(scale().fromDbfs(static_cast<double>(levelDbfs)));
}

void AudioMeterPairWidget::setPairTitle(const QString& title)
{
    m_title = title;
    update();
}

void AudioMeterPairWidget::setPairTitles(const QString& left, const QString& right)
{
    channel(kLeft).name = left;
    channel(kRight).name = right;
    update();
}

QString AudioMeterPairWidget::title() const
{
    const QString& left = channel(kLeft).name;
    const QString& right = channel(kRight).name;
    if (left.isEmpty() && right.isEmpty())
        return m_title;
    return left == right || right.isEmpty() ? left : left + QStringLiteral(" \u00B7 ") + right;
}

void AudioMeterPairWidget::noteSamplePeak(Side side, float level)
{
    if (level > channel(side).samplePeak)
        channel(side).samplePeak = level;
}

void AudioMeterPairWidget::noteClip(Side side)
{
    if (channel(side).isClipped)
        return;
    channel(side).isClipped = true;
    update(litLamp(side));
    update(m_layout.levelArea(side) | m_layout.peakArea(side));
}

void AudioMeterPairWidget::clearMarks()
{
    for (const Side side : kSides) {
        channel(side).samplePeak = AudioMeterWidget::kLowest;
        if (!std::exchange(channel(side).isClipped, false))
            continue;
        update(litLamp(side));
        update(m_layout.levelArea(side) | m_layout.peakArea(side));
    }
}

void AudioMeterPairWidget::clearReadings()
{
    for (Channel& each : m_channels) {
        each.level = AudioMeterWidget::kLowest;
        each.hat = AudioMeterWidget::kLowest;
        each.samplePeak = AudioMeterWidget::kLowest;
    }
    m_phase.reset();
    rateLimitTimerExpired(true);
}

void AudioMeterPairWidget::setPresent(bool left, bool right)
{
    if (left == isPresent(kLeft) && right == isPresent(kRight))
        return;
    channel(kLeft).isPresent = left;
    channel(kRight).isPresent = right;
    showMeters();
}

void AudioMeterPairWidget::setAudioType(Side side, const Content& content)
{
    if (channel(side).content == content)
        return;
    channel(side).content = content;
    showMeters();
}

bool AudioMeterPairWidget::isMetered(Side side) const
{
    return channel(side).isPresent && !channel(side).content.isData();
}

void AudioMeterPairWidget::showMeters()
{
    for (const Side side : kSides) {
        channel(side).meter->setDataMeter(channel(side).content.isData());
        channel(side).meter->setVisible(isMetered(side));
    }
    update();
}

void AudioMeterPairWidget::setDolbyELines(std::optional<int> line, std::optional<int> idealLine)
{
    if (line == m_dolbyELine && idealLine == m_dolbyEIdealLine)
        return;
    m_dolbyELine = line;
    m_dolbyEIdealLine = idealLine;
    update();
}

void AudioMeterPairWidget::setDolbyELineNumberRelative(bool relative)
{
    m_isDolbyELineRelative = relative;
    update();
}

QString AudioMeterPairWidget::dolbyELineText() const
{
    if (!m_dolbyELine)
        return {};
    if (!m_isDolbyELineRelative || !m_dolbyEIdealLine)
        return tr("Line %1").arg(*m_dolbyELine);
    const int distance = *m_dolbyELine - *m_dolbyEIdealLine;
    if (distance == 0)
        return tr("Ideal");
    return tr("Ideal %1%2").arg(distance < 0 ? QChar(0x2212) : QLatin1Char('+')).arg(std::abs(distance));
}

void AudioMeterPairWidget::setMix(bool leftToLeft, bool leftToRight, bool rightToLeft, bool rightToRight)
{
    if (!m_buttons)
        return;
    m_buttons->showMix(kLeft, 0, leftToLeft);
    m_buttons->showMix(kLeft, 1, leftToRight);
    m_buttons->showMix(kRight, 0, rightToLeft);
    m_buttons->showMix(kRight, 1, rightToRight);
}

void AudioMeterPairWidget::setSolo(bool left, bool right)
{
    if (!m_buttons)
        return;
    m_buttons->showSolo(kLeft, left);
    m_buttons->showSolo(kRight, right);
}

void AudioMeterPairWidget::startMonitoring(bool left, bool right)
{
    channel(kLeft).isMonitored = left;
    channel(kRight).isMonitored = right;
    if (m_buttons)
        m_buttons->showMonitored(left || right);
    update(m_layout.field().adjusted(0, 0, 0, m_layout.phaseTop - m_layout.size.height()));
}

PairButtons& AudioMeterPairWidget::buttons()
{
    if (!m_buttons) {
        m_buttons = new PairButtons(this);
        connect(m_buttons, &PairButtons::monitorToggled, this, &AudioMeterPairWidget::monitorToggled);
        connect(m_buttons, &PairButtons::soloToggled, this, &AudioMeterPairWidget::soloToggled);
        connect(m_buttons, &PairButtons::mixToggled, this, &AudioMeterPairWidget::mixToggled);
    }
    return *m_buttons;
}

void AudioMeterPairWidget::toggleMonitorButtonVisibility(bool visible)
{
    if (visible || m_buttons)
        buttons().setMonitorVisible(visible);
}

void AudioMeterPairWidget::toggleSoloButtonsVisibility(bool visible)
{
    if (visible || m_buttons)
        buttons().setSoloVisible(visible);
}

void AudioMeterPairWidget::toggleMixButtonsVisibility(bool visible)
{
    if (visible || m_buttons)
        buttons().setMixVisible(visible);
}

void AudioMeterPairWidget::setLayout(const PairLayout& layout, const MeterLook& look,
                                     ScaleDisplayPriority priority)
{
    m_layout = layout;
    m_look = &look;
    m_priority = priority;
    for (const Side side : kSides) {
        channel(side).meter->setGeometry(layout.bar(side));
        channel(side).meter->setStaleColours(look.staleFill, look.staleText);
    }
    if (m_buttons) {
        m_buttons->place(layout);
        m_buttons->setVisible(layout.hasButtons);
    }
    applyScale();
    showMeters();
}

void AudioMeterPairWidget::setTransitionProportions(const std::vector<double>& proportions)
{
    for (const Channel& each : m_channels)
        each.meter->setTransitionProportions(proportions);
}

void AudioMeterPairWidget::setStale(bool stale)
{
    if (stale == m_isStale)
        return;
    m_isStale = stale;
    for (const Channel& each : m_channels)
        each.meter->setStale(stale);
    update();
}

QString AudioMeterPairWidget::toolTipText(Side side) const
{
    const Channel& shown = channel(side);
    const int pair = m_pairIndex % kPairsPerGroup + 1;
    QStringList lines{
        createToolTipFromSourceGroupAndPairNumbers(m_input, m_pairIndex / kPairsPerGroup + 1, pair)};
    lines << tr("Channel %1").arg(2 * m_pairIndex + 1 + side)
            + (shown.name.isEmpty() ? QString() : QStringLiteral(": ") + shown.name);
    if (!shown.isPresent)
        return (lines << tr("Not present")).join(QLatin1Char('\n'));
    lines << tr("Carries %1")
                 .arg(shown.content.isData() ? shown.content.dataText() : shown.content.shortText());
    if (m_dolbyELine)
        lines << tr("Begins on line %1, ideal is %2")
                     .arg(QString::number(*m_dolbyELine),
                          m_dolbyEIdealLine ? QString::number(*m_dolbyEIdealLine) : QStringLiteral("--"));
    if (isMetered(side))
        lines << tr("Level %1").arg(levelText(shown.level)) << tr("Held peak %1").arg(levelText(shown.hat))
              << tr("Highest sample since touched %1").arg(levelText(shown.samplePeak))
              << tr("Phase %1")
                     .arg(m_phase ? QString::number(static_cast<double>(*m_phase), 'f', 2)
                                  : QStringLiteral("-.--"));
    return lines.join(QLatin1Char('\n'));
}

void AudioMeterPairWidget::rateLimitTimerExpired(bool withFigures)
{
    showBars();
    for (const Channel& each : m_channels)
        each.meter->rateLimitTimerExpired();
    showPhase();
    if (withFigures)
        showFigures();
}

void AudioMeterPairWidget::showBars()
{
    for (const Channel& each : m_channels) {
        each.meter->setValue(convertInstantPeakValueToCurrentStandard(each.level));
        each.meter->setPeakHoldValue(convertInstantPeakValueToCurrentStandard(each.hat));
    }
}

std::optional<int> AudioMeterPairWidget::numberOf(float levelDbfs) const
{
    if (!(levelDbfs > AudioMeterWidget::kLowest))
        return std::nullopt;
    return MeterFigures::numberOf(convertInstantPeakValueToCurrentStandard(levelDbfs), scale().decimals);
}

void AudioMeterPairWidget::showFigures()
{
    const auto show = [this](std::optional<int>& shown, float level, const QRect& area) {
        const auto number = numberOf(level);
        if (std::exchange(shown, number) != number)
            update(area);
    };
    for (const Side side : kSides) {
        if (m_layout.levelBaseline > 0)
            show(channel(side).levelNumber, channel(side).level, m_layout.levelArea(side));
        if (m_layout.peakBaseline > 0)
            show(channel(side).peakNumber, channel(side).samplePeak, m_layout.peakArea(side));
    }
}

void AudioMeterPairWidget::showPhase()
{
    const bool looksAlike = m_shownPhase.has_value() == m_phase.has_value()
        && (!m_phase || m_layout.phaseMarkerLeft(*m_shownPhase) == m_layout.phaseMarkerLeft(*m_phase));
    if (looksAlike)
        return;
    m_shownPhase = m_phase;
    update(m_layout.phaseArea());
}

QRect AudioMeterPairWidget::litLamp(Side side) const
{
    return m_look ? m_layout.litClipLamp(side, m_look->clipWordWidth) : QRect();
}

void AudioMeterPairWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRegion& region = event->region();
    for (const QRect& rect : region)
        painter.fillRect(rect, m_look ? m_look->background : QColor(Qt::black));
    if (!m_look)
        return;
    const QRect title(0, 0, width(), m_layout.titleBaseline + m_layout.fontPixels / 3);
    if (region.intersects(title))
        paintTitle(painter);
    if (m_layout.fieldLeft > 0 && m_layout.hasLabels()
        && region.intersects(QRect(0, 0, m_layout.fieldLeft, m_layout.scale.top())))
        paintRowNames(painter);
    if (region.intersects(QRect(0, m_layout.scale.top() - m_layout.fontPixels, width(), height()))) {
        paintScales(painter);
        paintInsteadOfBars(painter);
        paintAudioTypes(painter);
    }
    for (const Side side : kSides) {
        paintFigures(painter, side, region.boundingRect());
        if (isMetered(side) && region.intersects(litLamp(side)))
            paintLamp(painter, side);
    }
    if (isMetered(kLeft) && isMetered(kRight) && region.intersects(m_layout.phaseArea()))
        paintPhase(painter);
}

/// As much of the title as there is room for: whole, close together, the first channel alone.
QString AudioMeterPairWidget::shownTitle() const
{
    const QFontMetrics metrics(m_look->font);
    const QString whole = title();
    const int room = m_layout.pitch - kTitleGap;
    const auto fits = [&](const QString& text) { return metrics.horizontalAdvance(text) <= room; };
    if (m_layout.hasLabels() && fits(whole))
        return whole;
    if (whole != m_title)
        return metrics.elidedText(whole, Qt::ElideRight, room);
    const QString close = QString(whole).remove(QLatin1Char(' '));
    const QString first = whole.section(QLatin1Char(' '), 0, 0);
    if (m_layout.detail != PairLayout::Detail::Tiny)
        return m_layout.hasFullTitles && fits(close) ? close : first;
    // What distinguishes the links has no room.
    return first.right(kMostTinyFigures);
}

void AudioMeterPairWidget::paintTitle(QPainter& painter) const
{
    const bool isPresentAtAll = isPresent(kLeft) || isPresent(kRight);
    painter.setFont(m_look->font);
    painter.setPen(isPresentAtAll ? m_look->text : m_look->disabledText);
    const QString text = shownTitle();
    const QRect field = m_layout.field();
    const int half = m_layout.fontPixels;
    const auto paint = [&](const QString& line, int baseline) {
        painter.drawText(QRect(field.left(), baseline - 2 * half, field.width(),
                               2 * half + painter.fontMetrics().descent()),
                         Qt::AlignHCenter | Qt::AlignBottom, line);
    };
    if (m_layout.detail == PairLayout::Detail::Tiny && text.size() == 2) {
        paint(text.left(1), m_layout.titleBaseline - half + 1);
        paint(text.right(1), m_layout.titleBaseline);
    } else {
        paint(text, m_layout.titleBaseline);
    }
    for (const Side side : kSides) {
        const QRect bar = m_layout.bar(side);
        if (channel(side).isMonitored)
            painter.fillRect(bar.left(), m_layout.titleBaseline + 3, bar.width(), kMonitoredLine,
                             m_look->text);
    }
}

void AudioMeterPairWidget::paintScales(QPainter& painter) const
{
    const QRect field = m_layout.field();
    const QRect left = m_layout.bar(kLeft);
    const QRect right = m_layout.bar(kRight);
    const FixedScale& shown = m_layout.scale;
    const auto lines = [&](int from, int to) { shown.paintLines(painter, from, to - from, m_look->scale); };
    lines(field.left(), left.left() - kLineGap);
    if (m_layout.barGap >= kLeastMiddleScale + 2 * kLineGap)
        lines(left.right() + 1 + kLineGap, right.left() - kLineGap);
    lines(right.right() + 1 + kLineGap, field.right() + 1);
    const bool both = m_priority == ScaleDisplayPriority::LeftAndRight;
    if (both || m_priority == ScaleDisplayPriority::Left)
        shown.paintMargin(painter, FixedScale::Side::Left, field.left(), field.left(), m_look->scale);
    const int margin = width() - field.right() - 1;
    if (both || m_priority == ScaleDisplayPriority::Right)
        shown.paintMargin(painter, FixedScale::Side::Right, field.right() + 1, margin, m_look->scale);
}

void AudioMeterPairWidget::paintRowNames(QPainter& painter) const
{
    painter.setFont(m_look->font);
    painter.setPen(m_look->secondaryText);
    const auto name = [&](int middle, const QString& words) {
        const int half = m_layout.fontPixels;
        painter.drawText(QRect(0, middle - half, m_layout.fieldLeft - kNameGap, 2 * half),
                         Qt::AlignRight | Qt::AlignVCenter, words);
    };
    const int aboveBaseline = m_layout.fontPixels * 2 / 5;
    if (m_layout.levelBaseline > 0)
        name(m_layout.levelBaseline - aboveBaseline, tr("Level"));
    if (m_layout.peakBaseline > 0)
        name(m_layout.peakBaseline - aboveBaseline, tr("Peak"));
    name(m_layout.phaseTop + m_layout.phaseHeight / 2, tr("Phase"));
    name(m_layout.lampTop + m_layout.lampHeight / 2, tr("Clip"));
}

/// What stands where there is nothing to meter.
void AudioMeterPairWidget::paintInsteadOfBars(QPainter& painter) const
{
    const Channel& left = channel(kLeft);
    const Channel& right = channel(kRight);
    const auto textOf = [](const Channel& each) {
        return each.isPresent ? each.content.dataText() : tr("Not present");
    };
    if (!isMetered(kLeft) && !isMetered(kRight) && left.isPresent == right.isPresent) {
        paintBox(painter, m_layout.bars(), textOf(left), left.isPresent);
        return;
    }
    for (const Side side : kSides) {
        if (!isMetered(side))
            paintBox(painter, m_layout.bar(side), textOf(channel(side)), channel(side).isPresent);
    }
}

void AudioMeterPairWidget::paintBox(QPainter& painter, const QRect& box, const QString& text,
                                    bool isData) const
{
    painter.fillRect(box, isData ? m_look->dataFill : m_look->background);
    QPen pen(isData ? m_look->data : m_look->line);
    if (!isData)
        pen.setDashPattern({4, 4});
    painter.setPen(pen);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    if (box.width() < m_layout.fontPixels)
        return;
    painter.save();
    painter.setFont(m_look->font);
    painter.setPen(isData ? m_look->data : m_look->secondaryText);
    painter.translate(box.center());
    painter.rotate(-90);
    const int half = box.height() / 2 - kBoxMargin;
    const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, 2 * half);
    painter.drawText(QRect(-half, -box.width() / 2, 2 * half, box.width()), Qt::AlignCenter, shown);
    painter.restore();
}

void AudioMeterPairWidget::paintFigures(QPainter& painter, Side side, const QRect& dirty) const
{
    const Channel& shown = channel(side);
    if (side == kLeft && m_dolbyELine && m_layout.hasLabels()) {
        painter.setFont(m_look->font);
        painter.setPen(m_look->data);
        QString text = dolbyELineText();
        if (painter.fontMetrics().horizontalAdvance(text) > m_layout.pitch)
            text = text.section(QLatin1Char(' '), -1);
        painter.drawText(QRect(m_layout.fieldLeft, m_layout.levelBaseline - 2 * m_layout.fontPixels,
                               m_layout.pitch, 2 * m_layout.fontPixels + 4),
                         Qt::AlignHCenter | Qt::AlignBottom, text);
    }
    if (!isMetered(side))
        return;
    const auto paint = [&](const QRect& area, const QPoint& end, std::optional<int> number) {
        const bool isDim = m_isStale || !number;
        const MeterFigures& figures = isDim ? m_look->staleFigures
            : shown.isClipped               ? m_look->clippedFigures
                                            : m_look->figures;
        if (area.intersects(dirty))
            figures.draw(painter, end, number, scale().decimals);
    };
    if (m_layout.levelBaseline > 0)
        paint(m_layout.levelArea(side), m_layout.levelEnd(side), shown.levelNumber);
    if (m_layout.peakBaseline > 0)
        paint(m_layout.peakArea(side), m_layout.peakEnd(side), shown.peakNumber);
}

void AudioMeterPairWidget::paintLamp(QPainter& painter, Side side) const
{
    if (channel(side).isClipped) {
        painter.drawPixmap(litLamp(side).topLeft(), m_look->clipLamp);
        return;
    }
    painter.setPen(m_look->line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_layout.clipLamp(side).adjusted(0, 0, -1, -1));
}

void AudioMeterPairWidget::paintPhase(QPainter& painter) const
{
    const QRect track = m_layout.phaseTrack();
    painter.fillRect(track, m_look->line);
    if (!m_shownPhase)
        return;
    const int middle = track.left() + track.width() / 2;
    const int marker = m_layout.phaseMarkerLeft(*m_shownPhase);
    const int value = marker + PairLayout::kPhaseMarkerWidth / 2;
    const QColor colour = m_isStale ? m_look->staleText : *m_shownPhase < 0 ? m_look->error : m_look->ok;
    painter.fillRect(std::min(middle, value), track.top(), std::abs(value - middle), track.height(), colour);
    const int top = track.top() - PairLayout::kPhaseOverhang;
    const int height = track.height() + 2 * PairLayout::kPhaseOverhang;
    painter.fillRect(middle - 1, top, 2, height, m_look->secondaryText);
    painter.fillRect(marker, top, PairLayout::kPhaseMarkerWidth, height,
                     m_isStale ? m_look->staleText : QColor(Qt::white));
}

void AudioMeterPairWidget::paintAudioTypes(QPainter& painter) const
{
    if (m_layout.typeBaseline == 0)
        return;
    const Channel& left = channel(kLeft);
    const Channel& right = channel(kRight);
    const auto textOf = [](const Channel& each) {
        return (each.isPresent ? each.content : Content{}).shortText();
    };
    painter.setFont(m_look->font);
    painter.setPen(m_look->secondaryText);
    const auto paint = [&](int fieldLeft, int width, const QString& text) {
        const int half = m_layout.fontPixels;
        painter.drawText(QRect(fieldLeft, m_layout.typeBaseline - 2 * half, width, 2 * half + 4),
                         Qt::AlignHCenter | Qt::AlignBottom,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, width - 2));
    };
    if (textOf(left) == textOf(right)) {
        paint(m_layout.fieldLeft, m_layout.pitch, textOf(left));
        return;
    }
    // Without the word length, for which there is no room.
    const auto shortOf = [&textOf](const Channel& each) {
        return textOf(each).section(QLatin1Char(' '), 0, 0);
    };
    paint(m_layout.fieldLeft, m_layout.pitch / 2, shortOf(left));
    paint(m_layout.fieldLeft + m_layout.pitch / 2, m_layout.pitch / 2, shortOf(right));
}
