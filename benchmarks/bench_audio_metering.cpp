#include "Ratios.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "instruments/MeteringFixture.h"
#include "logging/Logging.h"

#include <benchmark/benchmark.h>

#include <QEventLoop>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

#include <cmath>
#include <ctime>

// 64 meters on a screen of the design size. The peer does nothing but copy the same bars from a picture that
// was made before: lit up to the level, unlit above, and the hat.

namespace {

constexpr int kChannels = 64;
constexpr QSize kScreen(1920, 1080);

/// Levels that wander as those of a programme do: most bars move with each reading, hats now and then.
float levelOf(int channel, int moment)
{
    return -30.0F + 20.0F * std::sin(0.13F * static_cast<float>(moment) + static_cast<float>(channel));
}

float hatOf(int channel, int moment)
{
    return levelOf(channel, moment / 25 * 25) + 3.0F;
}

class Meters {
public:
    Meters()
        : m_fixture(kScreen)
    {
        m_fixture.metering->meteringSettings().pairs->choose(QStringLiteral("32"));
        QApplication::processEvents();
    }

    void deliver(int moment)
    {
        MeteringFixture::Values levels;
        MeteringFixture::Values hats;
        for (int channel = 0; channel < kChannels; ++channel) {
            const quint32 link = channel < kChannels / 2 ? 0 : 1;
            const auto inLink = static_cast<quint8>(channel % (kChannels / 2));
            levels.push_back({inLink, inLink / 2U, link, 0, levelOf(channel, moment)});
            hats.push_back({inLink, inLink / 2U, link, 0, hatOf(channel, moment)});
        }
        m_fixture.deliver(MeterSet::Ppm, levels, ~0U, ~0U);
        m_fixture.deliver(MeterSet::PeakHold, hats);
        m_fixture.deliver(MeterSet::InstantPeakDb, hats);
        m_fixture.deliver(MeterSet::InstantPeakLinear, {});
        m_fixture.deliver(MeterSet::Phase, {});
    }
    void show(bool withFigures) const
    {
        for (AudioMeterPairWidget* const pair : m_fixture.metering->pairs())
            pair->rateLimitTimerExpired(withFigures);
    }
    QList<QRect> bars() const
    {
        QList<QRect> bars;
        for (const AudioMeterPairWidget* const pair : m_fixture.metering->pairs()) {
            for (const auto side : {PairLayout::Left, PairLayout::Right})
                bars << pair->pairLayout().bar(side).translated(pair->pos());
        }
        return bars;
    }

private:
    MeteringFixture m_fixture;
};

/// Bars copied from a picture.
class CopiedBars : public QWidget {
public:
    explicit CopiedBars(const QList<QRect>& bars)
        : m_bars(bars)
        , m_picture(2 * bars.first().width(), bars.first().height())
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        m_picture.fill(Qt::darkGreen);
        resize(kScreen);
        show();
        QApplication::processEvents();
    }

    void showMoment(int moment)
    {
        m_moment = moment;
        for (const QRect& bar : m_bars)
            update(bar);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        if (event->rect() == rect())
            painter.fillRect(rect(), Qt::black);
        for (int i = 0; i < m_bars.size(); ++i) {
            const QRect& bar = m_bars[i];
            const int row =
                static_cast<int>(-levelOf(i, m_moment) * static_cast<float>(bar.height()) / 70.0F);
            const int hat = static_cast<int>(-hatOf(i, m_moment) * static_cast<float>(bar.height()) / 70.0F);
            painter.drawPixmap(bar.left(), bar.top(), m_picture, 0, 0, bar.width(), row);
            painter.drawPixmap(bar.left(), bar.top() + row, m_picture, bar.width(), row, bar.width(),
                               bar.height() - row);
            painter.fillRect(bar.left(), bar.top() + hat, bar.width(), 3, Qt::white);
        }
    }

private:
    const QList<QRect> m_bars;
    QPixmap m_picture;
    int m_moment = 0;
};

void meters(benchmark::State& state)
{
    Meters meters;
    int moment = 0;
    for (auto _ : state) {
        meters.deliver(++moment);
        meters.show(moment % 5 == 0);
        QApplication::processEvents();
    }
}
BENCHMARK(meters);

void copiedBars(benchmark::State& state)
{
    CopiedBars bars(Meters().bars());
    int moment = 0;
    for (auto _ : state) {
        bars.showMoment(++moment);
        QApplication::processEvents();
    }
}
BENCHMARK(copiedBars);

/// In real time, 50 readings a second: what the window takes of one core.
void shareOfOneCore()
{
    constexpr int kMoments = 250;
    Meters meters;
    int moment = 0;
    QEventLoop loop;
    QTimer readings;
    readings.setTimerType(Qt::PreciseTimer);
    QObject::connect(&readings, &QTimer::timeout, &loop, [&] {
        meters.deliver(++moment);
        if (moment == kMoments)
            loop.quit();
    });
    const std::clock_t begin = std::clock();
    QElapsedTimer clock;
    clock.start();
    readings.start(20);
    loop.exec();
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    std::printf("64 meters at 50 readings a second take %.1f %% of one core (limit 10 %%)\n",
                100.0 * seconds / (static_cast<double>(clock.elapsed()) / 1000.0));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Velmora::initLogging(false, "");
    QApplication::setStyle(new WzDisplayCustomStyle);
    QApplication application(argc, argv);
    initiateFonts();
    shareOfOneCore();
    return runBenchmarks(
        argc, argv,
        {{"64 meters, against copying their bars from a picture", "meters", "copiedBars", 1.0 / 3}});
}
