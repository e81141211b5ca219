#pragma once

#include "instruments/waveform/WaveformScale.h"
#include "instruments/waveform/WaveformSignal.h"
#include "types/waveform/WaveformGeometry.h"
#include "types/waveform/WaveformTypes.h"

#include <QSize>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// All that decides what the graticule and the scales of a waveform look like. A value.
struct WaveformDisplay {
    using WaveformGeometry = Velmora::WaveformTypes::WaveformGeometry;
    using Channel = Velmora::WaveformTypes::Channel;
    using Component = Velmora::WaveformTypes::Component;

    WaveformSignal signal; ///< with what is overridden
    QSize content; ///< the window without its title line
    std::vector<Channel> channels;
    /// By the number of the channel.
    std::array<double, Velmora::WaveformTypes::kChannels> gains{1.0, 1.0, 1.0, 1.0};
    Velmora::WaveformTypes::Presentation presentation = Velmora::WaveformTypes::Presentation::Parade;
    bool isFullWidth = false;
    Velmora::WaveformTypes::WaveformView view;
    Velmora::WaveformTypes::VerticalScale verticalScale = Velmora::WaveformTypes::VerticalScale::Percent;
    Velmora::WaveformTypes::HorizontalScale horizontalScale =
        Velmora::WaveformTypes::HorizontalScale::PercentOfLine;
    Velmora::WaveformTypes::NitsScaleSide nitsSide = Velmora::WaveformTypes::NitsScaleSide::Right;
    Velmora::WaveformTypes::SLog3Mode sLog3Mode = Velmora::WaveformTypes::SLog3Mode::SLog3;
    Velmora::WaveformTypes::FullRangeMode fullRangeMode = Velmora::WaveformTypes::FullRangeMode::Rp2077;

    bool hasReferenceMarker = false;
    std::optional<double> peakWhiteNits;
    std::optional<int> cursorPixel; ///< of the picture cursor, where it is to be shown

    friend bool operator==(const WaveformDisplay&, const WaveformDisplay&) = default;

    WaveformGeometry geometry() const;
    /// On the screen, magnified.
    double pixelsPerPercent(const WaveformGeometry& geometry) const;
    WaveformScale scale(const WaveformGeometry& geometry, bool colourDifference) const;
    Velmora::WaveformTypes::NitsScale nitsScale() const { return signal.nitsScale(sLog3Mode); }
    Velmora::WaveformTypes::CodeScale codeScale(bool colourDifference) const;

    bool hasColourDifference() const;
    bool isColourDifferenceOnly() const;
    /// The components that a cell shows.
    std::vector<Component> componentsOf(int cell) const;
    /// Why the trace of a cell is not what its graticule says: components that the signal lacks, and gains.
    QStringList notesOf(int cell) const;
    /// Whether a cell shows Cb and Cr alone, so that its scale has its zero in the middle.
    bool isColourDifferenceCell(int cell) const;

    std::vector<Channel> channelsOfCell(int cell) const;

    /// What a scale beside the picture counts in.
    enum class Scale { None, Levels, ColourDifference, Nits };
    /// Beside a cell of a stack. Cells side by side share the scales of all.
    Scale leftScale(int cell) const;
    Scale rightScale(int cell) const;
    /// In the last cell of levels, for what the scale of Cb and Cr has taken the margin of.
    Scale innerScale() const;
    std::vector<WaveformScale::Label> labelsOf(Scale scale, const WaveformGeometry& geometry) const;

    /// Whether there is a scale of light: where the curve is one of high dynamic range.
    bool hasNitsScale() const;
    bool showRightHandNitsScale() const;
    /// Whether the scale of light takes the left margin and that of levels the right one.
    bool yAxisLeftRightSwap() const;
};
