#include "server/measure/waveform/WaveformRasteriser.h"

#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>
#include <cmath>

namespace Velmora::Server {

namespace {

using WaveformTypes::Channel;
using WaveformTypes::channelsOf;
using WaveformTypes::Presentation;
using WaveformTypes::WaveformGeometry;

std::array<QSize, 4> planeSizesOf(const VideoFrame& frame)
{
    std::array<QSize, 4> sizes;
    for (std::size_t i = 0; i < sizes.size(); ++i)
        if (frame.planes[i].samples != nullptr)
            sizes[i] = {frame.planes[i].width, frame.planes[i].height};
    return sizes;
}

/// The share of a change that is done within one frame.
double shareInFrame(double seconds, const VideoFormat& format)
{
    if (!(seconds > 0.0))
        return 1.0;
    const double rate = format.rateNumerator > 0 && format.rateDenominator > 0
        ? static_cast<double>(format.rateNumerator) / format.rateDenominator
        : 50.0;
    return 1.0 - std::exp(-1.0 / (rate * seconds));
}

} // namespace

void WaveformRasteriser::setSettings(const WaveformSettings& settings)
{
    if (settings == m_settings)
        return;
    m_settings = settings;
    invalidate();
}

void WaveformRasteriser::setContentSize(QSize size)
{
    if (size == m_contentSize)
        return;
    m_contentSize = size;
    invalidate();
}

void WaveformRasteriser::invalidate()
{
    m_isPrepared = false;
    const auto channels = channelsOf(m_settings.displayMode, m_settings.customChannels);
    m_geometry = WaveformGeometry(m_contentSize, m_settings.presentation, static_cast<int>(channels.size()),
                                  m_settings.fullWidth, m_settings.view);
}

bool WaveformRasteriser::fits(const PixelBuffer& target) const
{
    return target.pixels != nullptr && !imageSize().isEmpty()
        && QSize(target.width, target.height) == imageSize();
}

bool WaveformRasteriser::persists() const
{
    return m_attackShare < 1.0 || m_decayShare < 1.0;
}

void WaveformRasteriser::prepare(const VideoFrame& frame)
{
    const auto planeSizes = planeSizesOf(frame);
    if (m_isPrepared && frame.format == m_format && planeSizes == m_planeSizes)
        return;
    m_format = frame.format;
    m_planeSizes = planeSizes;
    m_attackShare = shareInFrame(m_settings.attackSeconds, frame.format);
    m_decayShare = shareInFrame(m_settings.decaySeconds, frame.format);

    const auto oldCells = m_layers.size();
    m_layers.clear();
    const auto channels = channelsOf(m_settings.displayMode, m_settings.customChannels);
    for (std::size_t i = 0; i < channels.size(); ++i)
        m_layers.push_back(makeLayer(frame, channels[i], static_cast<int>(i)));

    // What glows of an earlier picture goes on while it fits.
    const QSize cell = m_geometry.cells().front().size();
    const int tiles = (cell.width() + HitTile::kColumns - 1) / HitTile::kColumns;
    const auto size = static_cast<std::size_t>(persists() ? tiles * HitTile::kColumns * cell.height() : 0);
    m_phosphors.resize(m_layers.size());
    for (auto& phosphor : m_phosphors)
        if (phosphor.size() != size || oldCells != m_layers.size())
            phosphor.assign(size, 0);
    m_isPrepared = true;
}

WaveformRasteriser::Layer WaveformRasteriser::makeLayer(const VideoFrame& frame, const Channel& channel,
                                                        int place) const
{
    Layer layer{.reader = ComponentReader(frame, channel.component, m_settings),
                .rowOfIndex = {},
                .ranges = {},
                .tile = {},
                .light = {},
                .painter = TracePainter(m_settings.colourMode, channel.component),
                .cell = m_geometry.cells()[static_cast<std::size_t>(m_geometry.cellOfChannel(place))],
                .isFirstOfCell = place == 0 || m_settings.presentation != Presentation::Overlay};
    int lineCount = 1;
    if (layer.reader.isPresent()) {
        fillRows(layer, m_settings.gains[channel.number], isColourDifference(channel.component) ? 50.0 : 0.0);
        fillRanges(layer);
        lineCount = m_settings.singleLine ? 1 : layer.reader.height();
    }
    layer.light.configure(m_settings, m_geometry.detail(), lineCount, layer.fewestSamples);
    return layer;
}

void WaveformRasteriser::fillRows(Layer& layer, double gain, double fixedPercent) const
{
    const int rows = layer.cell.height();
    const auto& scale = layer.reader.scale();
    layer.rowOfIndex.resize(layer.reader.indexMask() + 1);
    for (unsigned index = 0; index < layer.rowOfIndex.size(); ++index) {
        const double percent =
            fixedPercent + gain * (scale.percent(layer.reader.codeOfIndex(index)) - fixedPercent);
        layer.rowOfIndex[index] =
            static_cast<std::uint16_t>(std::clamp(m_geometry.row(percent), -1, rows) + 1);
    }
}

void WaveformRasteriser::fillRanges(Layer& layer) const
{
    // So that a boundary which is a whole sample in truth is none a sample earlier in binary.
    constexpr double kTiny = 1e-9;
    const int width = layer.reader.width();
    const auto sampleAt = [&](int column) {
        return static_cast<int>(std::floor(m_geometry.linePosition(column) * width + kTiny));
    };
    layer.fewestSamples = width;
    for (int column = 0; column < layer.cell.width(); ++column) {
        const int begin = std::clamp(sampleAt(column), 0, width - 1);
        const int end = std::clamp(sampleAt(column + 1), begin + 1, width);
        layer.ranges.push_back({begin, end});
        layer.fewestSamples = std::min(layer.fewestSamples, end - begin);
    }
}

void WaveformRasteriser::render(const VideoFrame& frame, const PixelBuffer& target)
{
    if (!fits(target))
        return;
    prepare(frame);
    clearOutsideCells(target);
    renderLayers(&frame, target);
}

bool WaveformRasteriser::renderLoss(const PixelBuffer& target)
{
    if (m_settings.onVideoLoss == WaveformTypes::OnVideoLoss::Hold || !fits(target))
        return false;
    clearOutsideCells(target);
    if (!m_isPrepared) {
        for (int y = 0; y < target.height; ++y)
            std::fill_n(target.row(y), target.width, 0);
        return true;
    }
    renderLayers(nullptr, target);
    return true;
}

void WaveformRasteriser::clearOutsideCells(const PixelBuffer& target) const
{
    const auto& cells = m_geometry.cells();
    for (int y = 0; y < target.height; ++y) {
        if (m_layers.empty() || y > cells.back().bottom()
            || m_settings.presentation == Presentation::Stacked) {
            std::fill_n(target.row(y), target.width, 0);
            continue;
        }
        int x = 0;
        for (const QRect& cell : cells) {
            std::fill(target.row(y) + x, target.row(y) + cell.x(), 0);
            x = cell.right() + 1;
        }
        std::fill(target.row(y) + x, target.row(y) + target.width, 0);
    }
}

/// The layers of an overlay are laid over each other in their order; others have nothing in common.
void WaveformRasteriser::renderLayers(const VideoFrame* frame, const PixelBuffer& target)
{
    const bool isParallel = m_isParallel && m_settings.presentation != Presentation::Overlay;
    QSemaphore done;
    int begun = 0;
    for (Layer& layer : m_layers) {
        if (isParallel && &layer != &m_layers.back()) {
            QThreadPool::globalInstance()->start([&, frame] {
                renderLayer(layer, frame, target);
                done.release();
            });
            ++begun;
        } else {
            renderLayer(layer, frame, target);
        }
    }
    done.acquire(begun);
}

/// Without a frame only the glow of earlier ones is drawn.
void WaveformRasteriser::renderLayer(Layer& layer, const VideoFrame* frame, const PixelBuffer& target)
{
    const int columns = layer.cell.width();
    const bool isLit = frame != nullptr && layer.reader.isPresent();
    for (int tile = 0; tile < columns; tile += HitTile::kColumns) {
        const int count = std::min(HitTile::kColumns, columns - tile);
        if (isLit)
            countHits(layer, *frame, tile, count);
        else
            layer.tile.reset(layer.cell.height(), nullptr, 0, 0, 0);
        layer.light.expose(layer.tile, layer.ranges.data() + tile, isLit ? count : 0);
        if (persists())
            layer.light.persist(phosphorOf(layer, tile), m_attackShare, m_decayShare);
        paint(layer, tile, count, target);
    }
}

std::uint16_t* WaveformRasteriser::phosphorOf(const Layer& layer, int firstColumn)
{
    const auto number = static_cast<std::size_t>(&layer - m_layers.data());
    return m_phosphors[number].data() + static_cast<std::ptrdiff_t>(firstColumn) * layer.cell.height();
}

void WaveformRasteriser::countHits(Layer& layer, const VideoFrame& frame, int firstColumn, int columnCount)
{
    const SampleRange* const ranges = layer.ranges.data() + firstColumn;
    // The way into the first column comes from the last sample of the column before.
    const int before = firstColumn == 0 ? ranges[0].begin : ranges[-1].end - 1;
    const int begin = std::min(before, ranges[0].begin);
    const int end = ranges[columnCount - 1].end;
    std::array<SampleRange, HitTile::kColumns> local;
    for (int i = 0; i < columnCount; ++i)
        local[static_cast<std::size_t>(i)] = {ranges[i].begin - begin, ranges[i].end - begin};

    const int height = layer.reader.height();
    int line = 0;
    int lastLine = height;
    if (m_settings.singleLine) {
        // Counted in luma lines; 4:2:0 has fewer of chroma.
        const auto wanted = std::clamp(*m_settings.singleLine, 0, std::max(0, m_format.height - 1));
        line = std::min<int>(
            height - 1,
            static_cast<int>(static_cast<std::int64_t>(wanted) * height / std::max(1, m_format.height)));
        lastLine = line + 1;
    }
    layer.tile.reset(layer.cell.height(), local.data(), columnCount, before - begin,
                     static_cast<std::int64_t>(layer.fewestSamples + 1) * (lastLine - line));
    while (line < lastLine) {
        const int count = std::min(ComponentReader::kMostLines, lastLine - line);
        const IndexLines lines = layer.reader.read(frame, line, count, begin, end);
        layer.tile.add(lines, layer.rowOfIndex.data(), layer.reader.indexMask());
        line += lines.count;
    }
    layer.tile.finish();
}

void WaveformRasteriser::paint(const Layer& layer, int firstColumn, int columnCount,
                               const PixelBuffer& target) const
{
    static_assert(TracePainter::kStride == TraceLight::kColumns);
    const TracePainter::Strip strip{.light = layer.light.row(0),
                                    .columns = columnCount,
                                    .rows = layer.light.rows(),
                                    .firstRowInRange = m_geometry.row(100.0),
                                    .lastRowInRange = m_geometry.row(0.0),
                                    .isFirstLayer = layer.isFirstOfCell};
    layer.painter.paint(strip, target.row(layer.cell.y()) + layer.cell.x() + firstColumn, target.stride);
}

} // namespace Velmora::Server
