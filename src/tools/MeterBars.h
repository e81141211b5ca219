#pragma once

#include "network/packets/MeterSet.h"

#include <QString>

/// Meters as lines of text.
namespace MeterBars {

/// What stands behind the bars.
enum class State { Live, Waiting, NotConnected };

/// A head line with the state, a scale, and one line a channel: number, level, bar with the peak-hold mark,
/// and on the lower channel of a pair its phase. Unless the state is Live the readings are shown as "--.-",
/// never as if they still held.
QString draw(const MeterSet& meters, State state, const QString& server);

/// Columns of the bar of one channel for a level in dBFS: none at -70 and below, all at 0 and above.
int barLength(float levelDb);

} // namespace MeterBars
