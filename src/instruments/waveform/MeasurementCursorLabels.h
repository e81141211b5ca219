#pragma once

#include "instruments/waveform/WaveformComponent.h"
#include "types/waveform/CodeScale.h"
#include "types/waveform/NitsScale.h"

#include <QString>

/// What the measurement cursors read, with its unit.
///
/// Positions are thousandths of a percent: of the active line from its beginning, and of the level above
/// black. A difference is that of the second cursor from the first, in the unit of both.
class MeasurementCursorLabels {
public:
    using XScaleMode = WaveformComponent::MeasurementCursorXScaleMode;
    using YScaleMode = WaveformComponent::MeasurementCursorYScaleMode;

    struct Line {
        int pixels = 0; ///< active ones
        double sampleRate = 0.0; ///< pixels a second
    };

    MeasurementCursorLabels(Line line, const Velmora::WaveformTypes::CodeScale& codes,
                            const Velmora::WaveformTypes::NitsScale& nits);

    /// The level that is 0 % in YScaleMode::PercentRelative.
    void setPercentReference(int level) { m_percentReference = level; }

    QString getMeasurementCursorXLabel(XScaleMode mode, int position) const;
    QString getMeasurementCursorXDiffLabel(XScaleMode mode, int first, int second) const;
    QString getMeasurementCursorYLabel(YScaleMode mode, int level) const;
    QString getMeasurementCursorYDiffLabel(YScaleMode mode, int first, int second) const;

    /// The positive form of a printed number that is nothing but zeros: "-0.0" is "0.0".
    static QString correctZeroRounding(const QString& number);

private:
    double microseconds(int position) const;
    int code(int level) const;
    QString relativeLabel(int span) const;

    Line m_line;
    Velmora::WaveformTypes::CodeScale m_codes;
    Velmora::WaveformTypes::NitsScale m_nits;
    int m_percentReference = 0;
};
