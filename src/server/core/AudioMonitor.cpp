#include "server/core/AudioMonitor.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

constexpr unsigned kAllChannels = (1U << kAudioChannels) - 1;

} // namespace

AudioMonitor::AudioMonitor(InstrumentTrees& trees, DatacoreService& datacores, AudioMeterService& meters)
    : m_datacores(datacores)
    , m_meters(meters)
    , m_outputName(&trees.add<DatacoreBase>(Tree::Status, ElementPaths::AudioMonitorStatus::kOutput))
{
    addNumber(trees, ElementPaths::AudioMonitor::kChannelPair, m_mix.pair, 1, kAudioPairs);
    addNumber(trees, ElementPaths::AudioMonitor::kSoloChannel, m_mix.soloChannel, 0, kAudioChannels);
    addNumber(trees, ElementPaths::AudioMonitor::kMixLeft, m_mix.channels[0], 0, kAllChannels);
    addNumber(trees, ElementPaths::AudioMonitor::kMixRight, m_mix.channels[1], 0, kAllChannels);
    const auto& muted =
        trees.add<DatacoreBool>(Tree::Configuration, ElementPaths::AudioMonitor::kMuted, m_isMuted);
    m_datacores.onWritten(muted, [this, &muted] { setMuted(muted.getDataBool()); });
    m_meters.onBlock([this](const AudioBlock& block) { play(block); });
}

void AudioMonitor::addNumber(InstrumentTrees& trees, const QString& path, unsigned& target, unsigned lowest,
                             unsigned highest)
{
    const auto& node =
        trees.add<DatacoreNumberLimits<unsigned int>>(Tree::Configuration, path, target, lowest, highest);
    m_datacores.onWritten(node, [&node, &target] { target = node.getDataNumber(); });
}

void AudioMonitor::setMuted(bool muted)
{
    m_isMuted = muted;
    if (!muted)
        openOutput();
    m_meters.setMonitored(!muted && m_output);
}

void AudioMonitor::openOutput()
{
    if (std::exchange(m_hasTriedToOpen, true))
        return;
    QString error = QStringLiteral("This instrument has no monitor output");
    if (m_open)
        m_output = m_open(error);
    m_outputName->setData(m_output ? m_output->name() : error);
    if (m_output)
        log()->info("Monitoring on {}", m_output->name());
    else
        log()->info("Nothing can be heard: {}", error);
}

void AudioMonitor::play(const AudioBlock& block)
{
    if (!m_output || m_isMuted)
        return;
    m_mix.mix(block, m_stereo);
    m_output->play(m_stereo.data(), block.frames);
}

} // namespace Velmora::Server
