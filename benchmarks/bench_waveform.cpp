// The waveform rasteriser against FFmpeg's `waveform` filter: the same frames, one thread each, with and
// without a natural amount of detail.

#include "Ratios.h"
#include "server/measure/waveform/WaveformRasteriser.h"
#include "server/support/SyntheticFrame.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
}

using namespace Velmora::Server;
using namespace Velmora::WaveformTypes;

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr QSize kFullScreen{1920, 1050};
constexpr QSize kQuarterScreen{960, 510};
constexpr QSize kSixteenth{480, 240};

enum class Content {
    Bars,
    Camera, ///< soft shapes with the noise of a good camera
    Detail, ///< with so much noise that most levels of most columns are hit
};

double noiseOf(Content content)
{
    return content == Content::Camera ? 1.5 : 12.0;
}

std::unique_ptr<SyntheticFrame> makePicture(Content content)
{
    auto frame = std::make_unique<SyntheticFrame>(kWidth, kHeight, SyntheticFrame::Sampling::YCbCr422,
                                                  SyntheticFrame::Depth::Bits10);
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0.0, noiseOf(content));
    for (std::size_t plane = 0; plane < 3; ++plane) {
        const int width = frame->frame().planes[plane].width;
        frame->fill(plane, [&](int x, int y) {
            if (content == Content::Bars)
                return 64 + (x * 8 / width * 299 + static_cast<int>(plane) * 157) % 876;
            const double shape = std::sin(x * 9.0 / width + static_cast<double>(plane)) * std::cos(y * 0.006);
            return std::clamp(static_cast<int>(502.0 + 300.0 * shape + noise(random)), 4, 1019);
        });
    }
    return frame;
}

const VideoFrame& picture(Content content)
{
    static const std::array pictures{makePicture(Content::Bars), makePicture(Content::Camera),
                                     makePicture(Content::Detail)};
    return pictures[static_cast<std::size_t>(content)]->frame();
}

void rasterise(benchmark::State& state, Content content, const WaveformSettings& settings, QSize size)
{
    const VideoFrame& frame = picture(content);
    WaveformRasteriser rasteriser;
    rasteriser.setSettings(settings);
    rasteriser.setContentSize(size);
    const QSize imageSize = rasteriser.imageSize();
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(imageSize.width() * imageSize.height()));
    const PixelBuffer target{pixels.data(), imageSize.width(), imageSize.height(), imageSize.width()};
    for (auto _ : state) {
        rasteriser.render(frame, target);
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

WaveformSettings parade(Filter filter = Filter::Raw)
{
    WaveformSettings settings;
    settings.filter = filter;
    return settings;
}

WaveformSettings rgb()
{
    WaveformSettings settings = parade();
    settings.displayMode = DisplayMode::Rgb;
    return settings;
}

WaveformSettings persisting()
{
    WaveformSettings settings = parade();
    settings.decaySeconds = 0.5;
    return settings;
}

WaveformSettings luma()
{
    WaveformSettings settings = parade();
    settings.displayMode = DisplayMode::Custom;
    settings.customChannels[0] = {true, Component::Y};
    return settings;
}

/// FFmpeg's filter behind a source and before a sink, in one thread.
class WaveformGraph {
public:
    explicit WaveformGraph(const std::string& options)
        : m_graph(avfilter_graph_alloc())
    {
        m_graph->nb_threads = 1;
        m_graph->thread_type = 0;
        const std::string source = "video_size=1920x1080:pix_fmt=yuv422p10le:time_base=1/50";
        check(avfilter_graph_create_filter(&m_source, avfilter_get_by_name("buffer"), "in", source.c_str(),
                                           nullptr, m_graph));
        AVFilterContext* waveform = nullptr;
        check(avfilter_graph_create_filter(&waveform, avfilter_get_by_name("waveform"), "waveform",
                                           options.c_str(), nullptr, m_graph));
        check(avfilter_graph_create_filter(&m_sink, avfilter_get_by_name("buffersink"), "out", nullptr,
                                           nullptr, m_graph));
        check(avfilter_link(m_source, 0, waveform, 0));
        check(avfilter_link(waveform, 0, m_sink, 0));
        check(avfilter_graph_config(m_graph, nullptr));
        m_out = av_frame_alloc();
    }
    ~WaveformGraph()
    {
        av_frame_free(&m_out);
        avfilter_graph_free(&m_graph);
    }
    WaveformGraph(const WaveformGraph&) = delete;
    WaveformGraph& operator=(const WaveformGraph&) = delete;

    void filter(AVFrame* frame)
    {
        check(av_buffersrc_write_frame(m_source, frame));
        check(av_buffersink_get_frame(m_sink, m_out));
        benchmark::DoNotOptimize(m_out->data[0]);
        av_frame_unref(m_out);
    }

private:
    static void check(int result)
    {
        if (result < 0) {
            std::fprintf(stderr, "FFmpeg's filter failed (%d)\n", result);
            std::exit(1);
        }
    }

    AVFilterGraph* m_graph;
    AVFilterContext* m_source = nullptr;
    AVFilterContext* m_sink = nullptr;
    AVFrame* m_out = nullptr;
};

void ffmpeg(benchmark::State& state, Content content, const char* options)
{
    const VideoFrame& frame = picture(content);
    AVFrame* const in = av_frame_alloc();
    in->format = AV_PIX_FMT_YUV422P10LE;
    in->width = kWidth;
    in->height = kHeight;
    av_frame_get_buffer(in, 0);
    for (std::size_t plane = 0; plane < 3; ++plane)
        for (int y = 0; y < kHeight; ++y)
            std::copy_n(frame.planes[plane].line(y), frame.planes[plane].width,
                        reinterpret_cast<std::uint16_t*>(in->data[plane] + y * in->linesize[plane]));
    WaveformGraph graph(options);
    for (auto _ : state) {
        ++in->pts;
        graph.filter(in);
    }
    state.SetItemsProcessed(state.iterations());
    AVFrame* owned = in;
    av_frame_free(&owned);
}

/// Does nothing but take the time that a 1080p50 source leaves.
void frameTime(benchmark::State& state)
{
    for (auto _ : state)
        state.SetIterationTime(0.020);
}
BENCHMARK(frameTime)->UseManualTime()->Iterations(1);

BENCHMARK_CAPTURE(rasterise, paradeBars, Content::Bars, parade(), kFullScreen);
BENCHMARK_CAPTURE(rasterise, paradeDetail, Content::Detail, parade(), kFullScreen);
BENCHMARK_CAPTURE(rasterise, technicalDetail, Content::Detail, parade(Filter::Technical), kFullScreen);
BENCHMARK_CAPTURE(rasterise, lowPassDetail, Content::Detail, parade(Filter::LowPass), kFullScreen);
BENCHMARK_CAPTURE(rasterise, rgbDetail, Content::Detail, rgb(), kFullScreen);
BENCHMARK_CAPTURE(rasterise, persistentDetail, Content::Detail, persisting(), kFullScreen);
BENCHMARK_CAPTURE(rasterise, quarterDetail, Content::Detail, parade(), kQuarterScreen);
BENCHMARK_CAPTURE(rasterise, sixteenthDetail, Content::Detail, parade(), kSixteenth);
BENCHMARK_CAPTURE(rasterise, lumaBars, Content::Bars, luma(), kFullScreen);
BENCHMARK_CAPTURE(rasterise, lumaCamera, Content::Camera, luma(), kFullScreen);
BENCHMARK_CAPTURE(rasterise, lumaDetail, Content::Detail, luma(), kFullScreen);
BENCHMARK_CAPTURE(ffmpeg, paradeBars, Content::Bars, "components=7:display=parade");
BENCHMARK_CAPTURE(ffmpeg, paradeDetail, Content::Detail, "components=7:display=parade");
BENCHMARK_CAPTURE(ffmpeg, lumaBars, Content::Bars, "components=1");
BENCHMARK_CAPTURE(ffmpeg, lumaCamera, Content::Camera, "components=1");
BENCHMARK_CAPTURE(ffmpeg, lumaDetail, Content::Detail, "components=1");

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(
        argc, argv,
        {{"parade of bars against FFmpeg", "rasterise/paradeBars", "ffmpeg/paradeBars", 3.0},
         {"parade of a detailed picture against FFmpeg", "rasterise/paradeDetail", "ffmpeg/paradeDetail",
          3.0},
         {"luma of bars against FFmpeg", "rasterise/lumaBars", "ffmpeg/lumaBars", 3.0},
         {"luma of a camera's picture against FFmpeg", "rasterise/lumaCamera", "ffmpeg/lumaCamera", 3.0},
         {"luma of a detailed picture against FFmpeg", "rasterise/lumaDetail", "ffmpeg/lumaDetail", 3.0},
         {"parade of 1080p50 in real time", "rasterise/paradeDetail", "frameTime", 1.0},
         {"parade of 1080p50, filtered, in real time", "rasterise/technicalDetail", "frameTime", 1.0}});
}
