#include "server/core/AudioMeterService.h"

#include "network/packets/InstantPeakDbMetersData.h"
#include "network/packets/InstantPeakLinearMetersData.h"
#include "network/packets/PeakHoldMetersData.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace Velmora::Server {

using namespace std::chrono_literals;

namespace {

constexpr auto kReadingInterval = 20ms;
/// Frames per read, a whole number of readings.
constexpr std::size_t kBlockFrames = AudioMeters::kFramesPerReading;
/// When the program was held up for longer than this, what was missed is passed over rather than measured in
/// a rush.
constexpr std::uint64_t kLongestLag = kAudioSampleRate / 2;

constexpr std::array kMeterPackets{RawDataPacket::PID_PPM_METERS, RawDataPacket::PID_PEAK_HOLD_METERS,
                                   RawDataPacket::PID_PHASE_METERS, RawDataPacket::PID_INSTANT_PEAK_DB_METERS,
                                   RawDataPacket::PID_INSTANT_PEAK_LINEAR_METERS};

using MeterValue = AudioProcessingRegisterApi::MeterValue<float>;

/// The values of the channels that are present, as a packet carries them.
template<typename ReadValue>
AudioMetersDataPacket::MeterValues meterValues(const ChannelSet& present, ReadValue&& readValue)
{
    AudioMetersDataPacket::MeterValues values;
    values.reserve(kAudioChannels);
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        if (!present.test(channel))
            continue;
        MeterValue value;
        value.channel = static_cast<quint8>(channel);
        value.pair = static_cast<quint32>(channel / 2);
        readValue(channel, value);
        values.push_back(value);
    }
    return values;
}

AudioMetersDataPacket::MeterValues meterValues(const ChannelSet& present, const ChannelValues& readings)
{
    return meterValues(present,
                       [&](std::size_t channel, MeterValue& value) { value.value = readings[channel]; });
}

AudioMetersDataPacket::MeterValues phaseValues(const AudioMeterReading& reading)
{
    return meterValues(reading.present, [&](std::size_t channel, MeterValue& value) {
        const std::size_t pair = channel / 2;
        value.value = reading.phase[pair];
        if (!reading.phaseValid.test(pair))
            value.flags |= MeterValue::kNotMeasured;
    });
}

ChannelSet channelsOf(const AudioBlock& block)
{
    ChannelSet present;
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        present.set(channel, block.channels[channel] != nullptr);
    return present;
}

/// Tells by a read of no frames, which takes nothing out of the source.
ChannelSet channelsOf(AudioSource& source)
{
    AudioBuffer buffer(1);
    AudioPlanes planes = buffer.planes();
    planes.frames = 0;
    return channelsOf(source.read(planes));
}

quint32 pairPresenceBits(const ChannelSet& present)
{
    quint32 bits = 0;
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        if (present.test(channel))
            bits |= 1U << (channel / 2);
    }
    return bits;
}

} // namespace

AudioMeterService::AudioMeterService(std::unique_ptr<AudioSource> source, RawDataStreamer& streamer,
                                     QObject* parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_present(channelsOf(*m_source))
    , m_streamer(streamer)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(kReadingInterval);
    connect(&m_timer, &QTimer::timeout, this, &AudioMeterService::onTick);
    connect(&m_streamer, &RawDataStreamer::wantedChanged, this, &AudioMeterService::onWantedChanged);
    onWantedChanged();
}

void AudioMeterService::setSource(std::unique_ptr<AudioSource> source)
{
    m_source = std::move(source);
    m_present = channelsOf(*m_source);
}

void AudioMeterService::setMonitored(bool monitored)
{
    m_isMonitored = monitored;
    onWantedChanged();
}

void AudioMeterService::onWantedChanged()
{
    const bool runs = isWanted() || m_isMonitored;
    if (runs == m_timer.isActive())
        return;
    if (runs) {
        m_source->resume();
        m_meters.reset();
        m_framesRead = 0;
        m_clock.start();
        m_timer.start();
    } else {
        m_timer.stop();
    }
    emit runningChanged(runs);
}

void AudioMeterService::onTick()
{
    const std::uint64_t due = framesIn(std::chrono::nanoseconds(m_clock.nsecsElapsed()));
    if (due > m_framesRead + kLongestLag)
        m_framesRead = due - kBlockFrames;
    while (m_framesRead + kBlockFrames <= due) {
        m_framesRead += kBlockFrames;
        measure(kBlockFrames);
    }
}

void AudioMeterService::measure(std::size_t frames)
{
    AudioBuffer buffer(frames);
    const AudioBlock block = m_source->read(buffer.planes());
    m_meters.process(block, [this](const AudioMeterReading& reading) { publish(reading); });
    for (const auto& receive : m_receivers)
        receive(block);
    const ChannelSet present = channelsOf(block);
    if (std::exchange(m_present, present) != present)
        emit presentChannelsChanged();
}

void AudioMeterService::publish(const AudioMeterReading& reading)
{
    const quint32 pairs = pairPresenceBits(reading.present);
    const quint32 sequence = m_sequenceNumber++;
    const ChannelSet& present = reading.present;
    m_streamer.send(PpmMetersData(meterValues(present, reading.levelDb()), pairs, 0, sequence));
    m_streamer.send(PeakHoldMetersData(meterValues(present, reading.peakHoldDb), pairs, 0, sequence));
    m_streamer.send(PhaseMetersData(phaseValues(reading), pairs, 0, sequence));
    m_streamer.send(InstantPeakDbMetersData(meterValues(present, reading.instantPeakDb), pairs, 0, sequence));
    m_streamer.send(
        InstantPeakLinearMetersData(meterValues(present, reading.instantPeakLinear), pairs, 0, sequence));
}

std::uint64_t AudioMeterService::framesIn(std::chrono::nanoseconds duration)
{
    // In two steps: nanoseconds times the sample rate pass 64 bits within five days.
    const auto whole = std::chrono::floor<std::chrono::seconds>(duration);
    const auto rest = static_cast<std::uint64_t>((duration - whole).count());
    return static_cast<std::uint64_t>(whole.count()) * kAudioSampleRate
        + rest * kAudioSampleRate / std::nano::den;
}

bool AudioMeterService::isWanted() const
{
    return std::any_of(kMeterPackets.begin(), kMeterPackets.end(),
                       [this](auto identifier) { return m_streamer.isWanted(identifier); });
}

} // namespace Velmora::Server
