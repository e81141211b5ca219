// How old the newest picture of the waveform is when its reader has it, beside the two frames that it may
// take, and how many pictures of a 1080p50 source are seen. The frame of each picture is read from the
// picture itself. Not timed by processor time: a machine that does other things besides is slower.

#include "feed/SegmentNames.h"
#include "feed/SharedPictureReader.h"
#include "server/measure/PictureMeasurement.h"
#include "server/sources/PatternGenerator.h"
#include "types/waveform/WaveformPictures.h"

#include "server/support/FrameNumber.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include <unistd.h>

using namespace Velmora;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr Server::VideoFormat kFormat{.width = 1920, .height = 1080, .rateNumerator = 50};
constexpr auto kFrame = 20ms;
constexpr auto kDuration = 10s;
constexpr double kLimitFrames = 2.0;
constexpr auto kPoll = 200us;

/// Something on every level between, as an ordinary picture has it, over the strip of the frame counter.
class NumberedNoise : public Server::Pattern {
public:
    void paint(Server::PictureCanvas& canvas) const override
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> level(0.1, 0.9);
        for (int y = 0; y < canvas.height(); ++y)
            canvas.fillLines(y, y + 1, [&](int) { return canvas.codes().grey(level(random)); });
        Server::FrameCounterStrip::paint(canvas, 0);
    }
    void advance(Server::PictureCanvas& canvas, std::uint64_t number) const override
    {
        Server::FrameCounterStrip::advance(canvas, static_cast<std::uint32_t>(number));
    }
};

struct Seen {
    std::vector<double> ages; ///< in frames, from the moment when the frame was due
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    int wrong = 0; ///< pictures that do not show the frame whose time they carry
};

/// Looks for kDuration at what is published for windows of @p content.
Seen look(const std::string& segment, QSize content)
{
    const WaveformTypes::WaveformGeometry geometry(content, WaveformTypes::Presentation::Parade, 3);
    Feed::SharedPictureReader reader(segment);
    Seen seen;
    std::chrono::nanoseconds begin{0};
    for (const auto end = Clock::now() + kDuration; Clock::now() < end; std::this_thread::sleep_for(kPoll)) {
        std::optional<std::uint32_t> number;
        std::chrono::nanoseconds timeStamp{0};
        const auto result = reader.read([&](const Feed::PictureView& view) {
            number = frameNumberOf(view, geometry);
            timeStamp = view.timeStamp;
        });
        if (result != Feed::PictureReader::Result::Drawn)
            continue;
        const std::chrono::duration<double> age = Clock::now().time_since_epoch() - timeStamp;
        if (!number) {
            ++seen.wrong;
            continue;
        }
        if (seen.ages.empty()) {
            seen.first = *number;
            begin = timeStamp - *number * kFrame;
        }
        seen.wrong += timeStamp < begin + *number * kFrame;
        seen.last = *number;
        seen.ages.push_back(age / kFrame);
    }
    std::sort(seen.ages.begin(), seen.ages.end());
    return seen;
}

/// Whether the limit was kept.
bool report(QSize content, const Seen& seen)
{
    if (seen.ages.empty()) {
        std::printf("no picture came\n");
        return false;
    }
    const auto share = [&](double part) {
        return seen.ages[static_cast<std::size_t>(part * static_cast<double>(seen.ages.size() - 1))];
    };
    const bool isKept = share(0.99) <= kLimitFrames && seen.wrong == 0;
    std::printf("%4d x %4d: age of a picture in frames: median %.2f, 99 %% %.2f, most %.2f (limit %.0f)%s; "
                "%zu of %u frames seen, %d wrong\n",
                content.width(), content.height(), share(0.5), share(0.99), share(1.0), kLimitFrames,
                isKept ? "" : "  MISSED", seen.ages.size(), seen.last - seen.first + 1, seen.wrong);
    return isKept;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const bool isStrict = std::any_of(
        argv + 1, argv + argc, [](const char* argument) { return std::strcmp(argument, "--strict") == 0; });
    // Names of segments hold the port of their instrument; no instrument has such a one.
    const int port = static_cast<int>(::getpid()) + 400000;
    QThread thread;
    Server::PictureMeasurement measurement(port, [](const auto&, const auto&) {});
    measurement.moveToThread(&thread);
    thread.start();
    const auto inMeasurement = [&](auto call) {
        QMetaObject::invokeMethod(&measurement, call, Qt::BlockingQueuedConnection);
    };
    inMeasurement([&] {
        measurement.setSource(
            std::make_shared<Server::PatternGenerator>(std::make_unique<NumberedNoise>(), kFormat));
    });
    bool isKept = true;
    for (const QSize content : {QSize(960, 510), QSize(1920, 1050)}) {
        inMeasurement([&] { measurement.setWantedContents({content}); });
        const std::string segment =
            Feed::SegmentNames::nameOf(port, WaveformTypes::Pictures::imageName(content));
        isKept = report(content, look(segment, content)) && isKept;
    }
    inMeasurement([&] { measurement.setWantedContents({}); });
    thread.quit();
    thread.wait();
    return isStrict && !isKept ? 1 : 0;
}
