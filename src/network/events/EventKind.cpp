#include "network/events/EventKind.h"

#include <array>

namespace {

/// By the values of EventKind.
constexpr std::array<const char*, kEventKindCount> kNames{
    "log-reset",     "scte104",       "audio-presence",
    "sfp",           "ip-interfaces", "ip-rx",
    "ip-tx",         "reference",     "video-standard",
    "sdi-rate",      "rest-request",  "alignment-jitter",
    "timing-jitter", "nmos",          "ptp",
};

} // namespace

QString eventKindName(EventKind kind)
{
    return QString::fromLatin1(kNames.at(static_cast<size_t>(kind)));
}
