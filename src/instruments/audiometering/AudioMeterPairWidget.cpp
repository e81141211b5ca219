#include "instruments/audiometering/AudioMeterPairWidget.h"

#include "instruments/audiometering/MeterLook.h"
#include "instruments/audiometering/PairButtons.h"

#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace {

constexpr int kPairsPerGroup = 2;

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
    for (AudioMeterWidget*& meter : m_meters)
        meter = new AudioMeterWidget(this);
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
    for (AudioMeterWidget* const meter : m_meters) {
        meter->setRange(scale().lower, scale().upper);
        meter->setUnlitSectionsByValue(m_look->unlit);
        meter->setColouredSectionsByValue(m_look->lit);
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
    m_state.title = title;
    update();
}

void AudioMeterPairWidget::setPairTitles(const QString& left, const QString& right)
{
    m_state.channel(kLeft).name = left;
    m_state.channel(kRight).name = right;
    update();
}

void AudioMeterPairWidget::noteSamplePeak(Side side, float level)
{
    if (level > m_state.channel(side).samplePeak)
        m_state.channel(side).samplePeak = level;
}

void AudioMeterPairWidget::noteClip(Side side)
{
    if (m_state.channel(side).isClipped)
        return;
    m_state.channel(side).isClipped = true;
    update(litLamp(side));
    update(m_layout.levelArea(side) | m_layout.peakArea(side));
}

void AudioMeterPairWidget::clearMarks()
{
    for (const Side side : kSides) {
        m_state.channel(side).samplePeak = AudioMeterWidget::kLowest;
        if (!std::exchange(m_state.channel(side).isClipped, false))
            continue;
        update(litLamp(side));
        update(m_layout.levelArea(side) | m_layout.peakArea(side));
    }
}

void AudioMeterPairWidget::clearReadings()
{
    for (PairState::Channel& each : m_state.channels) {
        each.level = AudioMeterWidget::kLowest;
        each.hat = AudioMeterWidget::kLowest;
        each.samplePeak = AudioMeterWidget::kLowest;
    }
    m_state.phase.reset();
    rateLimitTimerExpired(true);
}

void AudioMeterPairWidget::setPresent(bool left, bool right)
{
    if (left == isPresent(kLeft) && right == isPresent(kRight))
        return;
    m_state.channel(kLeft).isPresent = left;
    m_state.channel(kRight).isPresent = right;
    showMeters();
}

void AudioMeterPairWidget::setAudioType(Side side, const Content& content)
{
    if (m_state.channel(side).content == content)
        return;
    m_state.channel(side).content = content;
    showMeters();
}

void AudioMeterPairWidget::showMeters()
{
    for (const Side side : kSides) {
        meter(side).setDataMeter(m_state.channel(side).content.isData());
        meter(side).setVisible(m_state.isMetered(side));
    }
    update();
}

void AudioMeterPairWidget::setDolbyELines(std::optional<int> line, std::optional<int> idealLine)
{
    if (line == m_state.dolbyELine && idealLine == m_state.dolbyEIdealLine)
        return;
    m_state.dolbyELine = line;
    m_state.dolbyEIdealLine = idealLine;
    update();
}

void AudioMeterPairWidget::setDolbyELineNumberRelative(bool relative)
{
    m_state.isDolbyELineRelative = relative;
    update();
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
    m_state.channel(kLeft).isMonitored = left;
    m_state.channel(kRight).isMonitored = right;
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
        meter(side).setGeometry(layout.bar(side));
        meter(side).setStaleColours(look.staleFill, look.staleText);
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
    for (AudioMeterWidget* const meter : m_meters)
        meter->setTransitionProportions(proportions);
}

void AudioMeterPairWidget::setStale(bool stale)
{
    if (stale == m_state.isStale)
        return;
    m_state.isStale = stale;
    for (AudioMeterWidget* const meter : m_meters)
        meter->setStale(stale);
    update();
}

QString AudioMeterPairWidget::toolTipText(Side side) const
{
    const PairState::Channel& shown = m_state.channel(side);
    const int pair = m_pairIndex % kPairsPerGroup + 1;
    QStringList lines{
        createToolTipFromSourceGroupAndPairNumbers(m_input, m_pairIndex / kPairsPerGroup + 1, pair)};
    lines << tr("Channel %1").arg(2 * m_pairIndex + 1 + side)
            + (shown.name.isEmpty() ? QString() : QStringLiteral(": ") + shown.name);
    if (!shown.isPresent)
        return (lines << tr("Not present")).join(QLatin1Char('\n'));
    lines << tr("Carries %1")
                 .arg(shown.content.isData() ? shown.content.dataText() : shown.content.shortText());
    if (m_state.dolbyELine)
        lines << tr("Begins on line %1, ideal is %2")
                     .arg(QString::number(*m_state.dolbyELine),
                          m_state.dolbyEIdealLine ? QString::number(*m_state.dolbyEIdealLine)
                                                  : QStringLiteral("--"));
    if (m_state.isMetered(side))
        lines << tr("Level %1").arg(levelText(shown.level)) << tr("Held peak %1").arg(levelText(shown.hat))
              << tr("Highest sample since touched %1").arg(levelText(shown.samplePeak))
              << tr("Phase %1")
                     .arg(m_state.phase ? QString::number(static_cast<double>(*m_state.phase), 'f', 2)
                                        : QStringLiteral("-.--"));
    return lines.join(QLatin1Char('\n'));
}

void AudioMeterPairWidget::rateLimitTimerExpired(bool withFigures)
{
    showBars();
    for (AudioMeterWidget* const meter : m_meters)
        meter->rateLimitTimerExpired();
    showPhase();
    if (withFigures)
        showFigures();
}

void AudioMeterPairWidget::showBars()
{
    for (const Side side : kSides) {
        const PairState::Channel& shown = m_state.channel(side);
        meter(side).setValue(convertInstantPeakValueToCurrentStandard(shown.level));
        meter(side).setPeakHoldValue(convertInstantPeakValueToCurrentStandard(shown.hat));
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
            show(m_state.channel(side).levelNumber, m_state.channel(side).level, m_layout.levelArea(side));
        if (m_layout.peakBaseline > 0)
            show(m_state.channel(side).peakNumber, m_state.channel(side).samplePeak, m_layout.peakArea(side));
    }
}

void AudioMeterPairWidget::showPhase()
{
    const bool looksAlike = m_state.shownPhase.has_value() == m_state.phase.has_value()
        && (!m_state.phase
            || m_layout.phaseMarkerLeft(*m_state.shownPhase) == m_layout.phaseMarkerLeft(*m_state.phase));
    if (looksAlike)
        return;
    m_state.shownPhase = m_state.phase;
    update(m_layout.phaseArea());
}

QRect AudioMeterPairWidget::litLamp(Side side) const
{
    return m_look ? m_layout.litClipLamp(side, m_look->clipWordWidth) : QRect();
}

void AudioMeterPairWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    for (const QRect& rect : event->region())
        painter.fillRect(rect, m_look ? m_look->background : QColor(Qt::black));
    if (m_look)
        PairPainter(m_state, m_layout, *m_look, m_priority, scale().decimals).paint(painter, event->region());
}
