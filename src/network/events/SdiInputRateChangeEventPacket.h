#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// An input has another data rate, or has lost its signal.
class SdiInputRateChangeEventPacket final : public LogSerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName = latin1("SdiInputRateChangeEventPacket");

    /// The values of the wire.
    enum class Input { SdiA, SdiB, SdiC, SdiD, St2022_6 };
    enum class Rate { Rate12G, Rate6G, Rate3G, Rate1_5G, Rate270M, NoSignal };

    /// Without its members, as a message of input A without a signal reads.
    SdiInputRateChangeEventPacket();
    SdiInputRateChangeEventPacket(Input input, Rate rate);

    /// "New rate on SDI In A - 3G". A missing input is A, a missing rate no signal; others that are unknown,
    /// or no whole numbers, read "Error" and "Unknown".
    QString getEventCustomMessage() const override;

private:
    QString inputName() const;
    QString rateName() const;
};
