#pragma once

#include <array>

/// Where the measurement cursors stand: a pair across the line (X) and a pair across the level (Y), each a
/// reference and a delta cursor. A value.
///
/// Positions are thousandths of a percent, of the active line and of the level above black. They stay within
/// what a waveform can show.
class MeasurementCursors {
public:
    enum class Axis { X, Y };
    enum class Cursor { Reference, Delta };
    enum class Shown { Off, Single, Both };

    static int least(Axis axis);
    static int most(Axis axis);

    int position(Axis axis, Cursor cursor) const;
    /// Moves a cursor. When they are linked the other one keeps its distance, and both stop where one has to.
    void moveTo(Axis axis, Cursor cursor, int position);
    /// From the reference to the delta cursor.
    int differential(Axis axis) const;
    /// Moves the delta cursor.
    void setDifferential(Axis axis, int differential);

    bool isLinked() const { return m_isLinked; }
    void setLinked(bool linked) { m_isLinked = linked; }
    /// The pair that is shown and moved.
    Axis axis() const { return m_axis; }
    void setAxis(Axis axis) { m_axis = axis; }
    Shown shown() const { return m_shown; }
    void setShown(Shown shown) { m_shown = shown; }
    bool isShown(Cursor cursor) const;

    friend bool operator==(const MeasurementCursors&, const MeasurementCursors&) = default;

private:
    struct Pair {
        int reference;
        int delta;

        friend bool operator==(const Pair&, const Pair&) = default;
    };

    Pair& pair(Axis axis) { return m_pairs[static_cast<std::size_t>(axis)]; }
    const Pair& pair(Axis axis) const { return m_pairs[static_cast<std::size_t>(axis)]; }

    std::array<Pair, 2> m_pairs{Pair{25000, 75000}, Pair{0, 100000}};
    Axis m_axis = Axis::Y;
    Shown m_shown = Shown::Off;
    bool m_isLinked = false;
};
