#include "instruments/audiometering/AudioMetering.h"

#include "gui/control/FocusSweepManager.h"
#include "gui/control/SettingList.h"
#include "gui/style/Icons.h"
#include "gui/style/ToolTipText.h"
#include "gui/style/WzCustomStyle.h"
#include "instruments/MeterSettingTexts.h"
#include "instruments/audiometering/MeterLook.h"
#include "network/packets/MeterPacketReceiver.h"
#include "presets/SettingsContentPreset.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QToolTip>

#include <algorithm>
#include <limits>

namespace {

constexpr QLatin1String kPresetClassName{"AudioMeteringContentPreset", 26};
constexpr QLatin1String kScaleKey{"ppmScaleType", 12};
constexpr QLatin1String kOff{"false", 5};

/// Fifty pictures a second are as many as there are readings.
constexpr int kTickMs = 20;
constexpr int kFiguresMs = 100;
/// A level so old tells nothing about the signal.
constexpr int kMeaninglessSeconds = 5;
constexpr int kPairsPerGroup = 2;
constexpr int kUsualPairs = 8;
constexpr int kPairsPerProgram = 4;
/// The share of a bar over which its colours blend into each other, where that is wanted.
constexpr double kBlend = 0.06;
constexpr QSize kSmallest(300, 180);

/// The numbers of pairs that are shown together: 1, 2, 4, 8, 16, 32.
int roundedUp(int pairs)
{
    int rounded = 1;
    while (rounded < pairs && rounded < MeterRouting::kMostPairs)
        rounded *= 2;
    return rounded;
}

quint32 toNumber(const QStringList& values, bool active)
{
    return active ? values.value(0).toUInt() : 0;
}

} // namespace

AudioMetering::AudioMetering(WzSubWindow* subWindow, Velmora::Wz::Device device)
    : WzSubwindowContent(QString(kClassName), Icons::path(QStringLiteral("audio-meters")), subWindow, device)
    , m_settings(settings(), device)
{
    setPresetClassName(kPresetClassName);
    setupActions();
    connect(getWzStyle(), &WzCustomStyle::subWindowSettingsaUpdated, this, &AudioMetering::relayout);
    connect(&m_contents, &AudioDataNotifier::contentChanged, this, &AudioMetering::showContents);
    setMeteringSource(AudioInput::EmbeddedSdi);
}

AudioMetering::~AudioMetering()
{
    // To give up what is received may bring the news that the connection is gone: while all of this is there.
    m_receiver.reset();
}

void AudioMetering::setupActions()
{
    const MeteringSettings& s = m_settings;
    s.scale->writesTo(this, &AudioMetering::toConfigCoreAudioMeteringPpmScaleTypeChosen);
    s.ballistics->writesTo(this, &AudioMetering::toConfigCoreAudioMeteringBallisticsChosen);
    s.hatHoldTime->writesTo(this, &AudioMetering::toConfigCoreAudioMeteringHatHoldTimeChosen);
    s.resetPeaks->writesTo(this, &AudioMetering::toCommandcore_resetPeakHold);
    connect(s.resetPeaks, &Setting::chosen, this, &AudioMetering::clearAllMarks);
    for (const Setting* const setting : {s.scale, s.ballistics, s.hatHoldTime})
        connect(setting, &Setting::changed, this, &AudioMetering::updateTitle);
    for (const Setting* const setting : {s.pairs, s.firstPair})
        connect(setting, &Setting::changed, this, &AudioMetering::rebuildPairs);
    for (const Setting* const setting : {s.input, s.program})
        connect(setting, &Setting::changed, this,
                [this] { setMeteringSource(m_settings.chosenInput(), m_settings.chosenProgram()); });
    for (const Setting* const setting :
         {s.blending, s.dolbyELineMode, s.monitorButtons, s.soloButtons, s.mixButtons})
        connect(setting, &Setting::changed, this, &AudioMetering::applySettings);
}

QSize AudioMetering::getMinimumWindowSize(const QSize& area) const
{
    // Below this the scale has no room for its rows.
    return WzSubwindowContent::getMinimumWindowSize(area).expandedTo(kSmallest);
}

SerialisableDataPacket AudioMetering::getWidgetStatesAsPreset()
{
    SettingsContentPreset preset(WzSubwindowContent::getWidgetStatesAsPreset());
    preset.setSetting(kScaleKey, static_cast<int>(m_scaleType));
    return preset;
}

void AudioMetering::loadWidgetStatesFromPreset(SerialisableDataPacket& preset)
{
    WzSubwindowContent::loadWidgetStatesFromPreset(preset);
    if (preset.getPacketClassName() != kPresetClassName)
        return;
    const int type = SettingsContentPreset(preset).setting(kScaleKey).toInt(-1);
    if (type < 0 || type > std::numeric_limits<std::uint8_t>::max())
        return;
    const PPMScaleType before = m_scaleType;
    setPPMScaleType(static_cast<PPMScaleType>(type));
    if (m_scaleType != before)
        emit toConfigCoreAudioMeteringPpmScaleTypeChosen(static_cast<unsigned>(m_scaleType));
}

QString AudioMetering::helpText() const
{
    return tr(
        "<h3>Audio Metering</h3>"
        "<p>Each pair of bars shows the levels of two channels on the scale that is chosen: green up to the "
        "alignment level, amber up to the permitted maximum, red above. The white line, the hat, is the "
        "highest level of late; it falls after the hold time.</p>"
        "<p><b>Level</b>: the level in figures, in the unit of the scale. <b>Peak</b>: the highest sample "
        "since the pair was touched. <b>Phase</b>: the correlation of the two channels, from -1 at the left "
        "(opposite) to +1 at the right (equal); nothing where a channel is silent. <b>Clip</b>: a sample has "
        "reached full scale. Tap a pair to put out its lamps and begin a new peak, beside the pairs for all "
        "of them.</p>"
        "<p>Below the bars stands what a channel carries, with its word length. A blue frame with a name "
        "is data instead of sound, such as Dolby E, with the video line on which its frames begin. A dashed "
        "frame is a channel that is not there; a silent one has dark bars.</p>"
        "<p>The context menu and the soft buttons set scale, ballistics and hold time, choose the source and "
        "the pairs, and bring buttons for what is heard: a pair (Mon), one channel alone (S), or a mix for "
        "the left and the right side (L, R). A white line below the title marks what is heard.</p>");
}

void AudioMetering::setPPMScaleType(PPMScaleType type)
{
    if (!MeterScale::of(type) || type == m_scaleType)
        return;
    m_scaleType = type;
    relayout();
    updateTitle();
}

void AudioMetering::setBallistics(Ballistics ballistics)
{
    m_settings.ballistics->choose(QString::number(static_cast<int>(ballistics)));
}

void AudioMetering::setMeteringSource(AudioInput input, int program)
{
    // Comes back here when these were others.
    m_settings.input->choose(QString::number(static_cast<int>(input)));
    m_settings.program->choose(QString::number(program));
    if (!m_pairs.empty() && input == m_input && program == m_program)
        return;
    m_input = input;
    m_program = program;
    m_grownPairs = 0;
    rebuildPairs();
    updateTitle();
}

int AudioMetering::firstPair() const
{
    return std::clamp(m_settings.chosenFirstPair(), 0, MeterRouting::kMostPairs - 1);
}

int AudioMetering::pairCount() const
{
    const int chosen = m_settings.chosenPairs();
    const int usual = m_input == AudioInput::DolbyE ? kPairsPerProgram : kUsualPairs;
    const int wanted = chosen > 0 ? chosen : std::max(usual, m_grownPairs);
    return std::min(wanted, MeterRouting::kMostPairs - firstPair());
}

void AudioMetering::rebuildPairs()
{
    for (const AudioMeterPairWidget* const pair : std::exchange(m_pairs, {}))
        delete pair;
    for (int i = 0; i < pairCount(); ++i)
        m_pairs.push_back(makePair(firstPair() + i));
    setupSourceMeterHash();
    applySettings();
    showContents();
    showNames();
    for (AudioMeterPairWidget* const pair : m_pairs) {
        pair->setStale(staleSeconds() > 0);
        pair->show();
    }
    layOverlays();
    focusSweep().refreshArea();
}

AudioMeterPairWidget* AudioMetering::makePair(int index)
{
    auto* const pair = new AudioMeterPairWidget(m_input, index, this);
    const int inSource = MeterRouting::numberInSource(m_input, index);
    const QString title = AudioMeterPairWidget::createTitleFromGroupAndPairNumbers(
        inSource / kPairsPerGroup + 1, inSource % kPairsPerGroup + 1);
    pair->setPairTitle(MeterRouting::isOfLinkB(m_input, index) ? QStringLiteral("B") + title : title);
    connectButtons(*pair);
    return pair;
}

void AudioMetering::connectButtons(AudioMeterPairWidget& pair)
{
    const int index = pair.pairIndex();
    connect(&pair, &AudioMeterPairWidget::monitorToggled, this, [this, index](bool monitored) {
        if (monitored)
            emit toConfigCoreAudioMonitorChannelPairChosen(static_cast<unsigned>(index) + 1);
        emit toConfigCoreAudioMonitorMutedChosen(!monitored);
    });
    connect(&pair, &AudioMeterPairWidget::soloToggled, this, [this, index](int side, bool solo) {
        emit toConfigCoreAudioMonitorSoloChannelChosen(solo ? static_cast<unsigned>(2 * index + side + 1)
                                                            : 0U);
    });
    connect(&pair, &AudioMeterPairWidget::mixToggled, this, [this, index](int side, int output, bool mixed) {
        const auto channel = static_cast<quint32>(2 * index + side);
        const quint32 mix = m_facts.monitor.withMixed(channel, static_cast<std::size_t>(output), mixed);
        if (output == 0)
            emit toConfigCoreAudioMonitorMixLeftChosen(mix);
        else
            emit toConfigCoreAudioMonitorMixRightChosen(mix);
    });
}

void AudioMetering::setupSourceMeterHash()
{
    m_routing = MeterRouting(m_input, m_program, m_pairs);
}

void AudioMetering::applySettings()
{
    const std::vector<double> blends(m_settings.blending->isOn() ? 2U : 0U, kBlend);
    for (AudioMeterPairWidget* const pair : m_pairs) {
        pair->setTransitionProportions(blends);
        pair->setDolbyELineNumberRelative(m_settings.isDolbyELineRelative());
        pair->toggleMonitorButtonVisibility(m_settings.monitorButtons->isOn());
        pair->toggleSoloButtonsVisibility(m_settings.soloButtons->isOn());
        pair->toggleMixButtonsVisibility(m_settings.mixButtons->isOn());
    }
    relayout();
    showMonitor();
}

void AudioMetering::relayout()
{
    using Priority = AudioMeterPairWidget::ScaleDisplayPriority;
    const int count = static_cast<int>(m_pairs.size());
    if (count == 0 || size().isEmpty())
        return;
    const MeterScale& scale = *MeterScale::of(m_scaleType);
    m_layout = MeteringLayout::forContent(size(), count, scale, m_settings.buttonRows());
    auto look = std::make_unique<MeterLook>(getWzStyle()->instrumentPalette(), m_layout.pair, scale,
                                            devicePixelRatioF());
    for (int i = 0; i < count; ++i) {
        const bool isFirst = m_layout.isFirst(i);
        const bool isLast = m_layout.isLast(i, count) && m_layout.pair.hasLabels();
        AudioMeterPairWidget* const pair = m_pairs[static_cast<std::size_t>(i)];
        pair->setScaleType(m_scaleType);
        pair->setGeometry(m_layout.cell(i, count));
        pair->setLayout(m_layout.layoutOf(i, count), *look,
                        isFirst && isLast ? Priority::LeftAndRight
                            : isFirst     ? Priority::Left
                            : isLast      ? Priority::Right
                                          : Priority::LinesOnly);
    }
    m_look = std::move(look);
    update();
}

void AudioMetering::resizeEvent(QResizeEvent* event)
{
    WzSubwindowContent::resizeEvent(event);
    relayout();
    updateTitle();
}

/// What the pairs leave free.
void AudioMetering::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), getWzStyle()->colour(ColourRole::InstrumentBackground));
}

void AudioMetering::onMeterPacket(MeterSet::Kind kind, const AudioMetersDataPacket& packet)
{
    if (!packet.isWhole())
        return;
    noteDataArrived();
    const int lost = m_sequences[static_cast<std::size_t>(kind)].lostBefore(packet.getSequenceNumber());
    if (lost > 0)
        setLostCount(lostCount() + lost);
    if (isFrozen())
        return;
    if (kind == MeterSet::Ppm)
        growToShow(packet);
    m_routing.route(kind, packet);
    if (kind == MeterSet::Ppm)
        setNoSignal(!m_routing.hasPresentChannels());
    requestTick();
}

/// Only ever more pairs, until the source is another one: what goes away may be back soon.
void AudioMetering::growToShow(const AudioMetersDataPacket& packet)
{
    const int needed = roundedUp(MeterRouting::pairsIn(m_input, packet));
    if (needed <= std::max(m_grownPairs, kUsualPairs))
        return;
    m_grownPairs = needed;
    if (pairCount() != static_cast<int>(m_pairs.size()))
        rebuildPairs();
}

/// All meters follow one tick, which comes only when there is something new.
void AudioMetering::requestTick()
{
    if (m_tick.isActive())
        return;
    const qint64 since = m_sinceTick.isValid() ? m_sinceTick.elapsed() : kTickMs;
    m_tick.start(static_cast<int>(std::clamp<qint64>(kTickMs - since, 0, kTickMs)), Qt::PreciseTimer, this);
}

void AudioMetering::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_tick.timerId()) {
        WzSubwindowContent::timerEvent(event);
        return;
    }
    m_tick.stop();
    m_sinceTick.start();
    const bool withFigures = !m_sinceFigures.isValid() || m_sinceFigures.hasExpired(kFiguresMs);
    if (withFigures)
        m_sinceFigures.start();
    for (AudioMeterPairWidget* const pair : m_pairs)
        pair->rateLimitTimerExpired(withFigures);
}

AudioMeterPairWidget* AudioMetering::pairAt(const QPoint& position) const
{
    const auto found = std::find_if(m_pairs.begin(), m_pairs.end(), [&](const AudioMeterPairWidget* pair) {
        return pair->pairLayout().field().translated(pair->pos()).contains(position);
    });
    return found == m_pairs.end() ? nullptr : *found;
}

void AudioMetering::mousePressEvent(QMouseEvent* event)
{
    if (AudioMeterPairWidget* const pair = pairAt(event->pos()))
        pair->clearMarks();
    else
        clearAllMarks();
    WzSubwindowContent::mousePressEvent(event);
}

void AudioMetering::clearAllMarks()
{
    for (AudioMeterPairWidget* const pair : m_pairs)
        pair->clearMarks();
}

void AudioMetering::clearReadings()
{
    for (AudioMeterPairWidget* const pair : m_pairs)
        pair->clearReadings();
    m_routing.forgetPresence();
    m_tick.stop();
    m_sinceFigures.invalidate();
}

bool AudioMetering::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return WzSubwindowContent::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const AudioMeterPairWidget* const pair = pairAt(help->pos());
    if (!pair) {
        QToolTip::hideText();
        return true;
    }
    const QPoint inPair = help->pos() - pair->pos();
    const bool isLeft = inPair.x() < pair->pairLayout().field().center().x();
    QToolTip::showText(help->globalPos(),
                       ToolTipText::of(pair->toolTipText(isLeft ? PairLayout::Left : PairLayout::Right)),
                       this);
    return true;
}

void AudioMetering::onExposedChanged(bool exposed)
{
    if (exposed) {
        m_sequences = {};
        setLostCount(0);
        m_receiver = std::make_unique<MeterPacketReceiver>(
            [this](MeterSet::Kind kind, const AudioMetersDataPacket& packet) {
                onMeterPacket(kind, packet);
            });
    } else {
        m_receiver.reset();
        // What is shown would be old by the time that it is seen again.
        if (!isFrozen())
            clearReadings();
    }
    setUpdatesDue(exposed);
}

void AudioMetering::onFrozenChanged(bool frozen)
{
    if (frozen)
        m_tick.stop();
    else if (!isConnected())
        clearReadings();
    else
        onStaleChanged(staleSeconds());
}

void AudioMetering::onConnectionChanged(bool connected)
{
    if (connected)
        return;
    m_source = {};
    m_contents.setItems({});
    m_facts = {};
    showContents();
    showNames();
    showMonitor();
    updateTitle();
    if (!isFrozen()) {
        onStaleChanged(0);
        clearReadings();
    }
}

void AudioMetering::onStaleChanged(int seconds)
{
    if (isFrozen())
        return;
    for (AudioMeterPairWidget* const pair : m_pairs)
        pair->setStale(seconds > 0);
    if (seconds >= kMeaninglessSeconds)
        clearReadings();
    updateTitle();
}

void AudioMetering::updateTitle()
{
    QStringList details;
    if (staleSeconds() > 0)
        details << tr("No readings for %1 s").arg(staleSeconds());
    details << Velmora::Types::convertPPMScaleTypeToString(m_scaleType);
    if (m_layout.pair.hasLabels()) {
        if (m_settings.ballistics->isUsable())
            details << m_settings.ballistics->valueText();
        if (m_settings.hatHoldTime->isUsable())
            details << tr("hold %1").arg(m_settings.hatHoldTime->valueText());
    }
    if (m_input != AudioInput::EmbeddedSdi)
        details << m_settings.input->valueText();
    if (m_input == AudioInput::DolbyE)
        details << m_settings.program->valueText();
    if (m_source.isUsable())
        details << QLatin1Char(' ') + m_source.text();
    setTitleDetails(details.join(QLatin1String("  ")));
}

void AudioMetering::fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons,
                                                          bool active)
{
    m_source = {values, reasons, active};
    updateTitle();
}

void AudioMetering::fromConfigCoreAudioMeteringPpmScaleTypeUpdated(QStringList values, QStringList reasons,
                                                                   bool active)
{
    m_settings.scale->fromElement(values, reasons, active);
    bool ok = false;
    const uint type = values.value(0).toUInt(&ok);
    if (ok && type <= std::numeric_limits<std::uint8_t>::max())
        setPPMScaleType(static_cast<PPMScaleType>(type));
}

void AudioMetering::onBallisticsChanged(QStringList values, QStringList reasons, bool active)
{
    m_settings.ballistics->fromElement(values, reasons, active);
}

void AudioMetering::onHatHoldTimeChanged(QStringList values, QStringList reasons, bool active)
{
    m_settings.hatHoldTime->fromElement(values, reasons, active);
}

void AudioMetering::fromConfigCoreAudioMonitorChannelPairUpdated(QStringList values, QStringList, bool active)
{
    m_facts.monitor.pair = toNumber(values, active);
    showMonitor();
}

void AudioMetering::fromConfigCoreAudioMonitorMutedUpdated(QStringList values, QStringList, bool active)
{
    m_facts.monitor.isMuted = !active || values.value(0) != kOff;
    showMonitor();
}

void AudioMetering::fromConfigCoreAudioMonitorSoloChannelUpdated(QStringList values, QStringList, bool active)
{
    m_facts.monitor.soloChannel = toNumber(values, active);
    showMonitor();
}

void AudioMetering::fromConfigCoreAudioMonitorMixLeftUpdated(QStringList values, QStringList, bool active)
{
    m_facts.monitor.mix[0] = toNumber(values, active);
    showMonitor();
}

void AudioMetering::fromConfigCoreAudioMonitorMixRightUpdated(QStringList values, QStringList, bool active)
{
    m_facts.monitor.mix[1] = toNumber(values, active);
    showMonitor();
}

/// Only the embedded audio is heard.
void AudioMetering::showMonitor()
{
    (m_input == AudioInput::EmbeddedSdi ? m_facts : ChannelFacts()).showMonitor(m_pairs);
}

void AudioMetering::fromStatusCoreAudioContentChannelsUpdated(QStringList values, QStringList, bool active)
{
    m_contents.setItems(active ? values : QStringList());
}

void AudioMetering::fromStatusCoreAudioContentDolbyELinesUpdated(QStringList values, QStringList, bool active)
{
    m_facts.dolbyELines = active ? values : QStringList();
    showContents();
}

void AudioMetering::fromStatusCoreAudioContentDolbyEIdealLineUpdated(QStringList values, QStringList,
                                                                     bool active)
{
    m_facts.dolbyEIdealLine = ChannelFacts::toLine(active ? values.value(0) : QString());
    showContents();
}

void AudioMetering::fromStatusCoreChannelNamesUpdated(QStringList values, QStringList, bool active)
{
    m_facts.names = active ? values : QStringList();
    showNames();
}

/// What is known of contents and names concerns the embedded audio.
void AudioMetering::showContents()
{
    if (m_input == AudioInput::EmbeddedSdi)
        m_facts.showContents(m_pairs, m_contents);
}

void AudioMetering::showNames()
{
    if (m_input == AudioInput::EmbeddedSdi)
        m_facts.showNames(m_pairs);
}
