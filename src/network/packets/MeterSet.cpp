#include "network/packets/MeterSet.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

constexpr std::array<const char*, MeterSet::kKinds> kNames{"ppm", "peakHold", "phase", "instantPeakDb",
                                                           "instantPeakLinear"};

/// Rounded to the third decimal, which is finer than any meter shows.
double rounded(float value)
{
    return std::round(static_cast<double>(value) * 1000.0) / 1000.0 + 0.0; // no negative zero
}

} // namespace

void MeterSet::add(Kind kind, const AudioMetersDataPacket& packet)
{
    m_received.set(static_cast<size_t>(kind));
    for (const auto& value : packet.getMeterValues()) {
        // Only the first source's channels have a place here.
        if (value.source != 0 || value.channel >= kChannels)
            continue;
        m_present.set(value.channel);
        if ((value.flags & value.kNotMeasured) == 0)
            m_values[static_cast<size_t>(kind)][value.channel] = value.value;
    }
}

std::optional<float> MeterSet::value(Kind kind, int channel) const
{
    return m_values[static_cast<size_t>(kind)][static_cast<size_t>(channel)];
}

QByteArray MeterSet::toJson() const
{
    int channels = kChannels;
    while (channels > 0 && !isPresent(channels - 1))
        --channels;

    QJsonObject object{{QStringLiteral("sequence"), static_cast<qint64>(m_sequenceNumber)}};
    for (int kind = 0; kind < kKinds; ++kind) {
        QJsonArray values;
        for (int channel = 0; channel < channels; ++channel) {
            const auto reading = value(static_cast<Kind>(kind), channel);
            values.append(reading ? QJsonValue(rounded(*reading)) : QJsonValue());
        }
        object.insert(QLatin1String(kNames[static_cast<size_t>(kind)]), values);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}
