#pragma once

#include "instruments/waveform/MeasurementCursorLabels.h"
#include "instruments/waveform/MeasurementCursors.h"

#include <QColor>
#include <QStringList>

#include <vector>

/// The figures of the measurement cursors as a table: a row for each cursor and one for their difference, the
/// chosen unit first.
struct CursorReadOut {
    struct Row {
        QString name;
        QRgb colour; ///< transparent for the difference, which is no cursor
        QStringList values;
    };

    /// @p mostColumns of units at most; levels of high dynamic range are told as light, too.
    static CursorReadOut of(const MeasurementCursors& cursors, const MeasurementCursorLabels& labels,
                            MeasurementCursorLabels::XScaleMode xMode,
                            MeasurementCursorLabels::YScaleMode yMode, bool isHdr, int mostColumns);

    QStringList headings;
    std::vector<Row> rows;
};
