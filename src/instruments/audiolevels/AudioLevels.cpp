#include "instruments/audiolevels/AudioLevels.h"

#include "gui/control/SettingList.h"
#include "gui/style/Icons.h"
#include "instruments/MeterSettingTexts.h"
#include "instruments/audiolevels/MeterView.h"

#include "network/packets/MeterSetReceiver.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

QString levelText(const std::optional<float>& level)
{
    return level ? AudioLevels::tr("%1 dBFS").arg(QString::number(static_cast<double>(*level), 'f', 1))
                 : QStringLiteral("--.-");
}

} // namespace

AudioLevels::AudioLevels(WzSubWindow* subWindow, Velmora::Wz::Device device)
    : WzSubwindowContent(QString(kClassName), Icons::path(QStringLiteral("audio-meters")), subWindow, device)
    , m_view(new MeterView(*getWzStyle(), this))
    , m_ballistics(settings().addOptions(tr("Ballistics"), MeterSettingTexts::ballisticsOptions()))
    , m_hatHoldTime(settings().addNumber(tr("Hat Hold Time"), MeterSettingTexts::hatHoldTimeRange()))
{
    m_ballistics->writesTo(this, &AudioLevels::toConfigCoreAudioMeteringBallisticsChosen);
    m_hatHoldTime->writesTo(this, &AudioLevels::toConfigCoreAudioMeteringHatHoldTimeChosen);
    settings().addButton(tr("Reset Held Peaks"))->writesTo(this, &AudioLevels::toCommandcore_resetPeakHold);
    for (const Setting* const setting : {m_ballistics, m_hatHoldTime})
        connect(setting, &Setting::changed, this, &AudioLevels::updateTitle);
}

AudioLevels::~AudioLevels() = default;

void AudioLevels::recalculateActionWidgetWidths(bool touchLayout)
{
    settings().fitActions(touchLayout);
}

QString AudioLevels::helpText() const
{
    return tr(
        "<h3>Audio Levels</h3>"
        "<p>Each pair of bars shows the levels of two channels in dBFS: green up to -18 dBFS, the "
        "alignment level, amber up to -9 dBFS, the permitted maximum, and red above.</p>"
        "<p>The white line is the highest level of late; it falls after the hold time.</p>"
        "<p><b>Level</b>: the level in figures. <b>Phase</b>: the correlation of the two channels, "
        "from -1 at the left (opposite) to +1 at the right (equal); none where a channel is silent. "
        "<b>Clip</b>: a sample has reached full scale; tap the window to put the lamps out.</p>"
        "<p>The context menu and the soft buttons set the ballistics and the hold time, and reset the held "
        "peaks.</p>");
}

void AudioLevels::fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active)
{
    m_source = {values, reasons, active};
    updateTitle();
}

void AudioLevels::fromConfigCoreAudioMeteringBallisticsUpdated(QStringList values, QStringList reasons,
                                                               bool active)
{
    m_ballistics->fromElement(values, reasons, active);
}

void AudioLevels::fromConfigCoreAudioMeteringHatHoldTimeUpdated(QStringList values, QStringList reasons,
                                                                bool active)
{
    m_hatHoldTime->fromElement(values, reasons, active);
}

void AudioLevels::updateTitle()
{
    QStringList details{QStringLiteral("dBFS")};
    if (m_view->meterLayout().hasReadOuts()) {
        if (m_ballistics->isUsable())
            details << m_ballistics->valueText();
        if (m_hatHoldTime->isUsable())
            details << tr("hold %1").arg(m_hatHoldTime->valueText());
    }
    if (m_source.isUsable())
        details << QLatin1Char(' ') + m_source.text();
    setTitleDetails(details.join(QLatin1String("  ")));
}

void AudioLevels::resizeEvent(QResizeEvent* event)
{
    m_view->setGeometry(rect());
    WzSubwindowContent::resizeEvent(event);
    updateTitle();
}

void AudioLevels::mousePressEvent(QMouseEvent* event)
{
    m_view->releaseClipLamps();
    WzSubwindowContent::mousePressEvent(event);
}

bool AudioLevels::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return WzSubwindowContent::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
    return true;
}

QString AudioLevels::toolTipAt(const QPoint& position) const
{
    const int channel = m_view->meterLayout().channelAt(position);
    if (channel < 0)
        return {};
    const MeterSet& meters = m_view->shownMeters();
    const auto phase = meters.value(MeterSet::Phase, channel);
    return tr("Channel %1\nLevel %2\nHeld peak %3\nSample peak %4\nPhase %5")
        .arg(QString::number(channel + 1), levelText(meters.value(MeterSet::Ppm, channel)),
             levelText(meters.value(MeterSet::PeakHold, channel)),
             levelText(meters.value(MeterSet::InstantPeakDb, channel)),
             phase ? QString::number(static_cast<double>(*phase), 'f', 2) : QStringLiteral("-.--"));
}

void AudioLevels::onMeters(const MeterSet& meters, int lost)
{
    noteDataArrived();
    setLostCount(lostCount() + lost);
    bool hasChannel = false;
    for (int i = 0; i < MeterSet::kChannels; ++i)
        hasChannel = hasChannel || meters.isPresent(i);
    setNoSignal(!hasChannel);
    if (!isFrozen())
        m_view->showMeters(meters);
}

void AudioLevels::onExposedChanged(bool exposed)
{
    if (exposed) {
        m_receiver = std::make_unique<MeterSetReceiver>(
            [this](const MeterSet& meters, int lost) { onMeters(meters, lost); });
        setLostCount(0);
    } else {
        m_receiver.reset();
        // What is shown would be old by the time that it is seen again.
        if (!isFrozen())
            m_view->clearMeters();
    }
    setUpdatesDue(exposed);
}

void AudioLevels::onFrozenChanged(bool frozen)
{
    if (frozen)
        return;
    if (isConnected())
        m_view->setStaleSeconds(staleSeconds());
    else
        m_view->clearMeters();
}

void AudioLevels::onConnectionChanged(bool connected)
{
    if (connected)
        return;
    m_source = {};
    updateTitle();
    if (!isFrozen()) {
        m_view->setStaleSeconds(0);
        m_view->clearMeters();
    }
}

void AudioLevels::onStaleChanged(int seconds)
{
    if (!isFrozen())
        m_view->setStaleSeconds(seconds);
}
