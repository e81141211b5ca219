#pragma once

#include "types/waveform/WaveformTypes.h"

#include <QRect>
#include <QSize>

#include <vector>

namespace Velmora::WaveformTypes {

/// Which part of the signal a waveform shows.
struct WaveformView {
    double horizontalMagnification = 1.0; ///< from 1
    double horizontalPosition =
        0.0; ///< 0 shows the beginning of the line, 1 its end; nothing at magnification 1
    double verticalMagnification = 1.0; ///< about the level at 50 %
    double verticalPosition =
        0.0; ///< in percent: which level lies 50 % above the one that stands at 50 %'s place

    friend bool operator==(const WaveformView&, const WaveformView&) = default;
};

/// Where a waveform's cells stand in the content of its window, and which level and which part of the line
/// each of their pixels shows. The instrument draws the trace by it and the client the graticule, so that the
/// two agree to the pixel.
///
/// Unmagnified, a cell shows -8.5 to 110.5 %, at a whole number of pixels per percent (stacked cells: per ten
/// percent): 2, 4 and 8 in windows of 480, 960 and 1920 px, as far as the height allows. The row of a level
/// is the pixel row whose centre is nearest to it; every 10 % fall on a centre. There is no row for 0 % that
/// moves with the range of codes or with the kind of component: see CodeScale.
///
/// The picture that the instrument sends covers imageRect() and nothing else.
class WaveformGeometry {
public:
    static constexpr double kLowestPercent = -8.5;
    static constexpr double kHighestPercent = 110.5;

    /// How much room there is for labels; the margins follow from it.
    enum class Detail { Small, Medium, Full };

    /// @p content is the window without its title line, in design pixels. Content too small for anything
    /// gives empty rectangles.
    WaveformGeometry(QSize content, Presentation presentation, int channels, bool fullWidth = false,
                     const WaveformView& view = {});

    Detail detail() const { return m_detail; }
    /// What the picture covers, in the content.
    QRect imageRect() const { return m_imageRect; }
    /// Of one size; in the picture. A parade and a stack have one for each channel, an overlay has one.
    const std::vector<QRect>& cells() const { return m_cells; }
    /// The cell of a channel, by its place in the order of the channels.
    int cellOfChannel(int channel) const { return m_cells.size() == 1 ? 0 : channel; }

    double pixelsPerPercent() const { return m_pixelsPerTenPercent / 10.0; }
    /// The row of a level, counted from the top of a cell; outside the cell for levels out of view.
    int row(double percent) const;
    /// The level at the centre of a row.
    double percent(int row) const;

    /// The part of the line that the column of a cell begins with; 0 to 1 is the active line.
    double linePosition(int column) const;
    /// The column that shows a position on the line; outside the cell when it is out of view.
    int column(double linePosition) const;

private:
    void placeCells(QSize content, Presentation presentation, int channels, bool fullWidth);
    double rowPosition(double percent) const;

    WaveformView m_view;
    Detail m_detail = Detail::Small;
    int m_pixelsPerTenPercent = 0;
    int m_rowOfFiftyPercent = 0;
    QRect m_imageRect;
    std::vector<QRect> m_cells;
};

} // namespace Velmora::WaveformTypes
