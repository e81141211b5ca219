#pragma once

#include "types/Types.h"

#include <QString>

#include <vector>

/// What one type of meter scale says: its range and ticks in its own unit, and where its readings stand
/// against dBFS. A value.
struct MeterScale {
    using Type = Velmora::Types::PPMScaleType;

    double lower; ///< the reading at the foot of the bar
    double upper;
    double majorInterval;
    double firstMajorOffset; ///< from the foot
    double minorInterval;
    double dbPerUnit;
    double dbfsAtZero; ///< the level that reads 0
    double reference; ///< the reading that is labelled in any case
    double amberFrom; ///< the alignment level
    double redFrom; ///< the permitted maximum
    int decimals; ///< of a read-out, which is to tell tenths of a decibel

    /// Null for a value outside the table.
    static const MeterScale* of(Type type);

    double range() const { return upper - lower; }
    double fromDbfs(double dbfs) const { return (dbfs - dbfsAtZero) / dbPerUnit; }
    /// From the foot upwards.
    std::vector<double> majorTicks() const;
    /// Those without a major tick in the same place.
    std::vector<double> minorTicks() const;
    /// How many equal steps the range has, on which all ticks fall.
    int stepCount() const;
    double step() const { return range() / stepCount(); }

    /// "−18", "0", "+9"; marks of a scale without negative readings carry no sign.
    QString label(double reading) const;
};
