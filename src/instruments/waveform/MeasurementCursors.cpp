#include "instruments/waveform/MeasurementCursors.h"

#include <algorithm>

namespace {

constexpr int kWholeLine = 100000;
// As far as an unmagnified waveform reaches.
constexpr int kLowestLevel = -8500;
constexpr int kHighestLevel = 110500;

} // namespace

int MeasurementCursors::least(Axis axis)
{
    return axis == Axis::X ? 0 : kLowestLevel;
}

int MeasurementCursors::most(Axis axis)
{
    return axis == Axis::X ? kWholeLine : kHighestLevel;
}

int MeasurementCursors::position(Axis axis, Cursor cursor) const
{
    return cursor == Cursor::Reference ? pair(axis).reference : pair(axis).delta;
}

void MeasurementCursors::moveTo(Axis axis, Cursor cursor, int position)
{
    Pair& both = pair(axis);
    int& moved = cursor == Cursor::Reference ? both.reference : both.delta;
    if (!m_isLinked) {
        moved = std::clamp(position, least(axis), most(axis));
        return;
    }
    const int way = std::clamp(position, least(axis), most(axis)) - moved;
    const int allowed = std::clamp(way, least(axis) - std::min(both.reference, both.delta),
                                   most(axis) - std::max(both.reference, both.delta));
    both.reference += allowed;
    both.delta += allowed;
}

int MeasurementCursors::differential(Axis axis) const
{
    return pair(axis).delta - pair(axis).reference;
}

void MeasurementCursors::setDifferential(Axis axis, int differential)
{
    Pair& both = pair(axis);
    const int wide = most(axis) - least(axis);
    both.delta = std::clamp(both.reference + std::clamp(differential, -wide, wide), least(axis), most(axis));
}

bool MeasurementCursors::isShown(Cursor cursor) const
{
    return m_shown == Shown::Both || (m_shown == Shown::Single && cursor == Cursor::Reference);
}
