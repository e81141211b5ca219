#include "Ratios.h"

#include "feed/SegmentNames.h"
#include "feed/SharedPictureWriter.h"
#include "gui/picture/FeedPicture.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "instruments/waveform/WaveformGraticuleWidget.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>
#include <QRandomGenerator>

#include <unistd.h>

namespace {

using namespace Velmora;
using WaveformTypes::Component;

/// A window of the full screen that shows a parade, and the instrument that draws for it.
class Screen {
public:
    Screen()
        : m_host{QHostAddress(QHostAddress::LocalHost), static_cast<int>(::getpid()) + 400000, 0}
        , m_writer(Feed::SegmentNames::nameOf(m_host.instrumentPort, "bench"))
        , widget(m_picture, style, nullptr)
    {
        WaveformDisplay display;
        display.content = {1920, 1050};
        display.signal.isPresent = true;
        display.channels = {{0, Component::Y}, {1, Component::Cb}, {2, Component::Cr}};
        const QRect image = display.geometry().imageRect();
        imageSize = image.size();
        widget.resize(image.width(), image.bottom() + 1);
        widget.setDisplay(display, {0, image.top()});
        m_picture.setHost(m_host);
        m_picture.setImage("bench", display.content);
        m_picture.setSize(imageSize);
        publish();
        m_picture.setWatched(true);
        while (m_picture.state() != FeedPicture::State::Live)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // As a window has it.
        target = QImage(widget.size(), QImage::Format_RGB32);
    }

    /// A trace that has something of everything: dark, glowing and bright pixels.
    void publish()
    {
        const auto buffer = m_writer.begin(imageSize.width(), imageSize.height());
        for (int y = 0; y < buffer.height; ++y) {
            for (int x = 0; x < buffer.width; ++x) {
                const auto light = static_cast<unsigned>((x * 7 + y * 13) % 1024);
                const unsigned shown = light < 256 ? light : 0;
                buffer.pixels[y * buffer.stride + x] = shown * 0x01010101U;
            }
        }
        m_writer.publish({});
    }

    WzDisplayCustomStyle style;
    QSize imageSize;
    QImage target;

private:
    PictureHost m_host;
    Feed::SharedPictureWriter m_writer;
    FeedPicture m_picture;

public:
    WaveformGraticuleWidget widget;
};

Screen& screen()
{
    static Screen screen;
    return screen;
}

/// What the window costs for each picture.
void paintWindow(benchmark::State& state)
{
    Screen& s = screen();
    const QRegion dirty(QRect(QPoint(0, s.widget.height() - s.imageSize.height()), s.imageSize));
    for (auto _ : state)
        s.widget.render(&s.target, dirty.boundingRect().topLeft(), dirty, QWidget::RenderFlags());
}

/// The measure: the trace blended over the screen, and the graticule copied to it.
void blits(benchmark::State& state)
{
    Screen& s = screen();
    QImage trace(s.imageSize, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < trace.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(trace.scanLine(y));
        for (int x = 0; x < trace.width(); ++x) {
            const auto light = static_cast<unsigned>((x * 7 + y * 13) % 1024);
            line[x] = (light < 256 ? light : 0) * 0x01010101U;
        }
    }
    QImage layer(s.target.size(), QImage::Format_RGB32);
    layer.fill(Qt::black);
    for (auto _ : state) {
        QPainter painter(&s.target);
        painter.drawImage(0, 0, layer);
        painter.drawImage(0, 0, trace);
    }
}

BENCHMARK(paintWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(blits)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    initiateFonts();
    // A picture costs at most twice what its blits do.
    return runBenchmarks(argc, argv, {{"a picture of a full screen", "paintWindow", "blits", 0.5}});
}
