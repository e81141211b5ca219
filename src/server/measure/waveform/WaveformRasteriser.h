#pragma once

#include "server/measure/waveform/ComponentReader.h"
#include "server/measure/waveform/HitTile.h"
#include "server/measure/waveform/TraceLight.h"
#include "server/measure/waveform/TracePainter.h"
#include "server/measure/waveform/WaveformSettings.h"
#include "server/sources/VideoFrame.h"

#include <QSize>

#include <vector>

namespace Velmora::Server {

/// Draws the waveform of frames.
///
/// The picture is the trace alone, for WaveformGeometry::imageRect() of a window's content; the client draws
/// the graticule by the same geometry. Every sample of the frame counts. Hits are counted in integers from
/// the code values, by HitTile, and become light once per picture, by TraceLight. Where a line has fewer
/// samples than a cell has columns, each sample is as wide as it takes.
///
/// A component that the signal lacks leaves its cell empty. Not for use from two threads at once.
class WaveformRasteriser {
public:
    void setSettings(const WaveformSettings& settings);
    const WaveformSettings& settings() const { return m_settings; }
    /// The content of the window that shows the picture, in pixels.
    void setContentSize(QSize size);
    /// Draws the cells at the same time, in the threads of QThreadPool::globalInstance(). Off at first.
    void setParallel(bool parallel) { m_isParallel = parallel; }

    const WaveformTypes::WaveformGeometry& geometry() const { return m_geometry; }
    /// Of the picture; empty when the content is too small for one.
    QSize imageSize() const { return m_geometry.imageRect().size(); }

    /// Fills the whole of @p target, which must be of imageSize(). Draws nothing when it is not.
    void render(const VideoFrame& frame, const PixelBuffer& target);
    /// What there is to be seen while the signal is lost, to be asked for at the pace of frames. False when
    /// the last picture shall stay.
    bool renderLoss(const PixelBuffer& target);

private:
    struct Layer {
        ComponentReader reader;
        std::vector<std::uint16_t> rowOfIndex;
        std::vector<SampleRange> ranges; ///< by column of the cell
        int fewestSamples = 1;
        HitTile tile;
        TraceLight light;
        TracePainter painter;
        QRect cell;
        bool isFirstOfCell = true;
    };

    bool fits(const PixelBuffer& target) const;
    void invalidate();
    void prepare(const VideoFrame& frame);
    Layer makeLayer(const VideoFrame& frame, const WaveformTypes::Channel& channel, int place) const;
    /// @p fixedPercent is the level that the gain leaves where it is.
    void fillRows(Layer& layer, double gain, double fixedPercent) const;
    void fillRanges(Layer& layer) const;
    void clearOutsideCells(const PixelBuffer& target) const;
    void renderLayers(const VideoFrame* frame, const PixelBuffer& target);
    void renderLayer(Layer& layer, const VideoFrame* frame, const PixelBuffer& target);
    void countHits(Layer& layer, const VideoFrame& frame, int firstColumn, int columnCount);
    void paint(const Layer& layer, int firstColumn, int columnCount, const PixelBuffer& target) const;
    bool persists() const;
    std::uint16_t* phosphorOf(const Layer& layer, int firstColumn);

    WaveformSettings m_settings;
    QSize m_contentSize;
    bool m_isParallel = false;
    WaveformTypes::WaveformGeometry m_geometry{{}, WaveformTypes::Presentation::Parade, 1};

    bool m_isPrepared = false;
    VideoFormat m_format;
    std::array<QSize, 4> m_planeSizes;
    std::vector<Layer> m_layers;
    std::vector<std::vector<std::uint16_t>> m_phosphors; ///< by layer; tile after tile
    double m_attackShare = 1.0;
    double m_decayShare = 1.0;
};

} // namespace Velmora::Server
