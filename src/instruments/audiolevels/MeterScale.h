#pragma once

/// Where levels in dBFS stand on a bar. Rows count downwards; full scale fills from the row at the top, and
/// each decibel less from so many rows further down.
struct MeterScale {
    static constexpr int kLowestDb = -70;
    static constexpr int kAmberFromDb = -18; ///< the alignment level
    static constexpr int kRedFromDb = -9; ///< the permitted maximum

    int top = 0;
    int pixelsPerDb = 1;
    int fontPixels = 15;

    int height() const { return -kLowestDb * pixelsPerDb; }
    /// The first row below the bars.
    int bottom() const { return top + height(); }

    /// The uppermost row that a level lights; bottom() at the lowest level, below it, and for no number.
    int rowOf(float levelDb) const;
    int rowOfDb(int levelDb) const { return top - levelDb * pixelsPerDb; }

    /// Distances in dB, the narrowest of the round ones at which labels and ticks can be told apart.
    int labelStepDb() const;
    int tickStepDb() const;
};
