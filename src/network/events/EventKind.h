#pragma once

#include <QMetaType>
#include <QString>

/// What an event is about, one value for each event class: for filters and lists. Not on the wire.
enum class EventKind {
    LogReset,
    Scte104,
    AudioPresence,
    Sfp,
    IpInterfaces,
    IpReceive,
    IpTransmit,
    Reference,
    VideoStandard,
    SdiRate,
    RestRequest,
    AlignmentJitter,
    TimingJitter,
    Nmos,
    Ptp,
};
inline constexpr int kEventKindCount = static_cast<int>(EventKind::Ptp) + 1;

/// A short name without blanks ("audio-presence").
QString eventKindName(EventKind kind);

Q_DECLARE_METATYPE(EventKind)
