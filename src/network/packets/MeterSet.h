#pragma once

#include "network/packets/AudioMetersDataPacket.h"

#include <QByteArray>

#include <array>
#include <bitset>
#include <optional>

/// The meter packets of one moment, put together by their sequence number.
class MeterSet {
public:
    static constexpr int kChannels = 16;

    enum Kind { Ppm, PeakHold, Phase, InstantPeakDb, InstantPeakLinear };
    static constexpr int kKinds = 5;

    explicit MeterSet(quint32 sequenceNumber = 0)
        : m_sequenceNumber(sequenceNumber)
    {
    }

    quint32 sequenceNumber() const { return m_sequenceNumber; }
    void add(Kind kind, const AudioMetersDataPacket& packet);
    bool isComplete() const { return m_received.all(); }

    bool isPresent(int channel) const { return m_present.test(static_cast<size_t>(channel)); }
    /// The reading, or nothing when none was received or none could be measured.
    std::optional<float> value(Kind kind, int channel) const;

    /// One line of JSON: the sequence number, and for each kind an array over the channels up to the last one
    /// present, null where there is no value.
    QByteArray toJson() const;

private:
    using Values = std::array<std::optional<float>, kChannels>;

    quint32 m_sequenceNumber;
    std::bitset<kKinds> m_received;
    std::bitset<kChannels> m_present;
    std::array<Values, kKinds> m_values;
};
