#pragma once

#include "types/waveform/CodeScale.h"
#include "types/waveform/NitsScale.h"
#include "types/waveform/WaveformGeometry.h"

#include <QString>

#include <vector>

/// The lines and labels of a scale of levels. All levels are percents of a waveform's left scale, on which Cb
/// and Cr have their zero at 50 %.
class WaveformScale {
public:
    using CodeScale = Velmora::WaveformTypes::CodeScale;
    using Detail = Velmora::WaveformTypes::WaveformGeometry::Detail;
    using NitsScale = Velmora::WaveformTypes::NitsScale;
    using Unit = Velmora::WaveformTypes::VerticalScale;

    struct Label {
        double percent;
        QString text;
        bool isBold = false;
        bool isLimit = false;

        friend bool operator==(const Label&, const Label&) = default;
    };

    /// @p pixelsPerPercent on the screen decides how much is labelled; nothing is where that is 0.
    WaveformScale(Unit unit, const CodeScale& codes, int bits, bool colourDifference, double pixelsPerPercent,
                  Detail detail);

    /// Round values between black and white, at which there are lines; without both.
    const std::vector<double>& lines() const { return m_lines; }
    /// The middles between lines, where there is room.
    const std::vector<double>& halves() const { return m_halves; }
    const std::vector<double>& ticks() const { return m_ticks; }
    /// The codes that SDI allows at both ends, unless they are black and white.
    const std::vector<double>& limits() const { return m_limits; }
    /// Upwards; none closer than their text is high.
    const std::vector<Label>& labels() const { return m_labels; }

    /// "%", "mV", "hex", "dec".
    QString unitText() const;
    /// A level in the unit of the scale: "75 %", "525 mV", "2D1", "721".
    QString readingOf(double percent) const;

    /// The labels of light for a scale of luminance: 0, the reference white and the peak are bold.
    static std::vector<Label> nitsLabels(const NitsScale& nits, double pixelsPerPercent, Detail detail);

    /// A level in the unit of the scale, and back.
    double value(double percent) const { return m_valueAtZero + percent * m_valuePerPercent; }
    double percent(double value) const { return (value - m_valueAtZero) / m_valuePerPercent; }

private:
    QString text(double value) const;
    std::vector<double> multiplesOf(double step) const;
    void placeLines(double pixelsPerPercent, Detail detail);
    void placeLimits(int bits);
    void placeLabels(double pixelsPerPercent, Detail detail);

    Unit m_unit;
    CodeScale m_codes;
    bool m_colourDifference;
    double m_valueAtZero = 0.0;
    double m_valuePerPercent = 1.0;
    std::vector<double> m_lines;
    std::vector<double> m_halves;
    std::vector<double> m_ticks;
    std::vector<double> m_limits;
    std::vector<Label> m_labels;
};
