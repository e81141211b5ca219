#include "instruments/audiometering/MeterRouting.h"

#include <algorithm>
#include <cmath>

namespace {

using Value = AudioProcessingRegisterApi::MeterValue<float>;
using AudioInput = Velmora::Types::AudioInput;

/// A channel is shown as absent when it was missing for so many moments: one that comes and goes with each
/// packet is not to make its meters come and go.
constexpr quint32 kMomentsUntilAbsent = 25;
/// The largest positive sample of 16 bits, as a factor of full scale: what reaches it may have been cut off.
constexpr float kClippedFrom = 32767.0F / 32768.0F;

quint32 sourceOf(AudioInput input, int program)
{
    switch (input) {
    case AudioInput::EmbeddedSdi:
        return Value::kEmbedded;
    case AudioInput::Aes:
        return Value::kAes;
    case AudioInput::St2110_30:
        return Value::kSt2110Flows;
    case AudioInput::DolbyE:
        break;
    }
    return Value::kFirstProgram + static_cast<quint32>(program);
}

quint32 presenceBitsOf(quint32 source, const AudioMetersDataPacket& packet)
{
    return source == Value::kLinkB || source == Value::kAes ? packet.getPairPresenceBitsLinkBOrAes()
                                                            : packet.getPairPresenceBits();
}

int pairsUpTo(quint32 presenceBits)
{
    int pairs = 0;
    for (; presenceBits != 0; presenceBits >>= 1U)
        ++pairs;
    return pairs;
}

} // namespace

MeterRouting::MeterRouting(AudioInput input, int program, const std::vector<AudioMeterPairWidget*>& pairs)
{
    for (AudioMeterPairWidget* const widget : pairs) {
        const quint32 source =
            isOfLinkB(input, widget->pairIndex()) ? Value::kLinkB : sourceOf(input, program);
        const auto index = static_cast<quint32>(numberInSource(input, widget->pairIndex()));
        m_meters.insert(key(source, 2 * index), {m_pairs.size(), PairLayout::Left});
        m_meters.insert(key(source, 2 * index + 1), {m_pairs.size(), PairLayout::Right});
        m_pairs.push_back({widget, source, index});
    }
}

bool MeterRouting::isOfLinkB(AudioInput input, int pair)
{
    return input == AudioInput::EmbeddedSdi && pair >= kPairsPerLink;
}

int MeterRouting::numberInSource(AudioInput input, int pair)
{
    return isOfLinkB(input, pair) ? pair - kPairsPerLink : pair;
}

int MeterRouting::pairsIn(AudioInput input, const AudioMetersDataPacket& packet)
{
    const auto& values = packet.getMeterValues();
    const int first = pairsUpTo(packet.getPairPresenceBits());
    switch (input) {
    case AudioInput::EmbeddedSdi:
        // The second word speaks of link B or of AES inputs; which one is said by the values.
        return std::any_of(values.begin(), values.end(),
                           [](const Value& value) { return value.source == Value::kLinkB; })
            ? kMostPairs
            : std::min(first, kPairsPerLink);
    case AudioInput::Aes:
        return pairsUpTo(packet.getPairPresenceBitsLinkBOrAes());
    case AudioInput::St2110_30:
        return first;
    case AudioInput::DolbyE:
        break;
    }
    return 0;
}

void MeterRouting::route(MeterSet::Kind kind, const AudioMetersDataPacket& packet)
{
    for (const Value& value : packet.getMeterValues()) {
        const auto meter = m_meters.constFind(key(value.source, value.channel));
        if (meter == m_meters.constEnd())
            continue;
        Pair& pair = m_pairs[meter->pair];
        show(kind, value, *pair.widget, meter->side);
        if (kind == MeterSet::Ppm)
            pair.lastSeen[meter->side] = m_moment;
    }
    if (kind == MeterSet::Ppm)
        showPresence(packet);
}

void MeterRouting::show(MeterSet::Kind kind, const Value& value, AudioMeterPairWidget& pair,
                        PairLayout::Side side)
{
    const bool isLeft = side == PairLayout::Left;
    switch (kind) {
    case MeterSet::Ppm:
        isLeft ? pair.setLeftPpmMeterValue(value.value) : pair.setRightPpmMeterValue(value.value);
        break;
    case MeterSet::PeakHold:
        isLeft ? pair.setLeftPeakHoldValue(value.value) : pair.setRightPeakHoldValue(value.value);
        break;
    case MeterSet::Phase: {
        const bool isMeasured = (value.flags & Value::kNotMeasured) == 0 && std::isfinite(value.value);
        if (isLeft)
            pair.setPhase(isMeasured ? std::optional(value.value) : std::nullopt);
        break;
    }
    case MeterSet::InstantPeakDb:
        isLeft ? pair.setLeftDBLabelValue(value.value) : pair.setRightDBLabelValue(value.value);
        break;
    case MeterSet::InstantPeakLinear:
        if (value.value >= kClippedFrom)
            pair.noteClip(side);
        break;
    }
}

/// After the levels of a moment.
void MeterRouting::showPresence(const AudioMetersDataPacket& packet)
{
    m_hasPresentChannels = !packet.getMeterValues().empty();
    for (Pair& pair : m_pairs) {
        const bool isPairPresent = (presenceBitsOf(pair.source, packet) >> pair.index & 1U) != 0;
        std::array<bool, 2> isPresent{};
        for (const auto side : {PairLayout::Left, PairLayout::Right}) {
            quint32& lastSeen = pair.lastSeen[side];
            if (lastSeen == m_moment && !isPairPresent)
                lastSeen = 0; // a reading of what is not there
            if (lastSeen != m_moment)
                show(MeterSet::Ppm, {.value = AudioMeterWidget::kLowest}, *pair.widget, side);
            isPresent[side] = lastSeen != 0 && m_moment - lastSeen < kMomentsUntilAbsent;
            m_hasPresentChannels = m_hasPresentChannels || isPresent[side];
        }
        pair.widget->setPresent(isPresent[PairLayout::Left], isPresent[PairLayout::Right]);
    }
    ++m_moment;
}

void MeterRouting::forgetPresence()
{
    for (Pair& pair : m_pairs) {
        pair.lastSeen = {};
        pair.widget->setPresent(true, true);
    }
}
