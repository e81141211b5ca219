#include "feed/PictureScaler.h"
#include "feed/SegmentNames.h"
#include "feed/SharedPictureReader.h"
#include "feed/SharedPictureWriter.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <functional>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Velmora::Feed;
using namespace std::chrono_literals;

using Result = PictureReader::Result;
using State = PictureReader::State;
using Damage = std::function<void(SegmentHeader&)>;

Q_DECLARE_METATYPE(Damage)

namespace {

/// Of a port that no instrument has, and of this process and its children, since tests run side by side.
std::string segmentName(const char* image = "test")
{
    static const int s_port = static_cast<int>(::getpid()) + 100000;
    return SegmentNames::nameOf(s_port, image);
}

std::chrono::nanoseconds now()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

/// A picture whose pixels are all its frame number.
bool write(SharedPictureWriter& writer, int width = 64, int height = 32)
{
    const PictureBuffer buffer = writer.begin(width, height);
    if (buffer.pixels == nullptr)
        return false;
    for (int y = 0; y < height; ++y)
        std::fill_n(buffer.pixels + y * buffer.stride, width, static_cast<std::uint32_t>(writer.frame() + 1));
    writer.publish(now());
    return true;
}

bool isWhole(const PictureView& picture)
{
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (picture.pixels[y * picture.stride + x] != picture.frame)
                return false;
    return true;
}

/// Ends a child at the end of its scope at the latest.
class Child {
public:
    /// @p run is done over and over, without Qt, until the child is killed.
    explicit Child(const std::function<void()>& run)
        : m_pid(::fork())
    {
        if (m_pid == 0)
            for (;;)
                run();
    }
    ~Child() { kill(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void kill()
    {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            ::waitpid(m_pid, nullptr, 0);
        }
        m_pid = -1;
    }

private:
    pid_t m_pid;
};

} // namespace

class tst_SharedPictures : public WzTest {
    Q_OBJECT

private slots:
    void cleanup();
    void bringsPicturesAcross();
    void isPrivate();
    void followsAGrowingPicture();
    void tellsATornPicture();
    void allowsOneWriter();
    void refusesDamagedSegments_data();
    void refusesDamagedSegments();
    void refusesASegmentCutShort();
    void survivesTheWritersDeath();
    void survivesTheReadersDeath();
    void arrivesWithinTwoFrames();
    void reducesByAreas();
};

void tst_SharedPictures::cleanup()
{
    Segment::unlink(segmentName());
    WzTest::cleanup();
}

void tst_SharedPictures::bringsPicturesAcross()
{
    SharedPictureReader reader(segmentName());
    QCOMPARE(reader.read([](const PictureView&) {}), Result::None);
    QCOMPARE(reader.state(), State::NoPicture);
    {
        SharedPictureWriter writer(segmentName());
        QVERIFY(write(writer, 61, 7));
        QVERIFY(write(writer, 61, 7));
        PictureView seen;
        bool whole = false;
        const auto draw = [&](const PictureView& picture) {
            seen = picture;
            whole = isWhole(picture);
        };
        QCOMPARE(reader.read(draw), Result::Drawn);
        QVERIFY(whole);
        QCOMPARE(seen.frame, std::uint64_t{2});
        QCOMPARE(QSize(seen.width, seen.height), QSize(61, 7));
        QVERIFY(seen.timeStamp <= now() && seen.timeStamp > now() - 60s);
        QCOMPARE(reader.read(draw), Result::Unchanged);
        QCOMPARE(reader.read(draw, true), Result::Drawn);
        QCOMPARE(reader.state(), State::Live);

        QVERIFY(writer.begin(0, 5).pixels == nullptr);
        QVERIFY(writer.begin(kLargestSide + 1, 1).pixels == nullptr);
        QVERIFY(writer.begin(kLargestSide, kLargestSide).pixels == nullptr);
        writer.publish(now()); // of nothing
        QCOMPARE(reader.read(draw), Result::Unchanged);
    }
    QCOMPARE(reader.state(), State::Stale);
    QCOMPARE(reader.read([](const PictureView&) {}, true), Result::Drawn);
}

void tst_SharedPictures::isPrivate()
{
    const auto oldMask = ::umask(0);
    SharedPictureWriter writer(segmentName());
    QVERIFY(write(writer));
    ::umask(oldMask);
    struct stat status = {};
    QCOMPARE(::stat(("/dev/shm" + segmentName()).c_str(), &status), 0);
    QCOMPARE(status.st_mode & 0777, mode_t{0600});

    // What others may write to is not read.
    QCOMPARE(::chmod(("/dev/shm" + segmentName()).c_str(), 0666), 0);
    QVERIFY(!Segment::open(segmentName()).isValid());

    QVERIFY(!SegmentNames::isImageName("../x"));
    QVERIFY(!SegmentNames::isImageName(""));
    QVERIFY(!SegmentNames::isImageName(std::string(33, 'a')));
    QVERIFY(SegmentNames::isImageName("waveform-1"));
}

void tst_SharedPictures::followsAGrowingPicture()
{
    SharedPictureWriter writer(segmentName());
    SharedPictureReader reader(segmentName());
    QVERIFY(write(writer, 10, 10));
    QCOMPARE(reader.read([](const PictureView&) {}), Result::Drawn);
    for (const QSize& size : {QSize(500, 300), QSize(20, 20), QSize(1728, 953)}) {
        // While there is only the beginning of a new one, the last one stays.
        QVERIFY(writer.begin(size.width(), size.height()).pixels != nullptr);
        QCOMPARE(reader.read([](const PictureView& picture) { QVERIFY(isWhole(picture)); }, true),
                 Result::Drawn);
        QVERIFY(write(writer, size.width(), size.height()));
        QSize seen;
        QCOMPARE(reader.read([&](const PictureView& picture) {
            seen = {picture.width, picture.height};
        }),
                 Result::Drawn);
        QCOMPARE(seen, size);
        QCOMPARE(reader.state(), State::Live);
    }
}

void tst_SharedPictures::tellsATornPicture()
{
    SharedPictureWriter writer(segmentName());
    SharedPictureReader reader(segmentName());
    QVERIFY(write(writer));
    // Three newer pictures do not touch the one that is drawn, the beginning of a fourth does.
    const auto overtakenBy = [&](int pictures) {
        return reader.read([&](const PictureView&) {
            for (int i = 0; i < pictures; ++i)
                write(writer);
        });
    };
    QCOMPARE(overtakenBy(3), Result::Drawn);
    QCOMPARE(reader.read([&](const PictureView&) {
        for (int i = 0; i < 3; ++i)
            write(writer);
        writer.begin(64, 32);
    }),
             Result::Torn);
    QVERIFY(write(writer));
    QCOMPARE(reader.read([](const PictureView& picture) { QVERIFY(isWhole(picture)); }), Result::Drawn);
    QCOMPARE(overtakenBy(0), Result::Unchanged);
}

void tst_SharedPictures::allowsOneWriter()
{
    SharedPictureWriter first(segmentName());
    QVERIFY(write(first));
    {
        log().expectError(QStringLiteral("Picture feed: cannot make the segment"));
        SharedPictureWriter second(segmentName());
        QVERIFY(!write(second));
    }
    SharedPictureReader reader(segmentName());
    QVERIFY(write(first));
    QCOMPARE(reader.read([](const PictureView&) {}), Result::Drawn);
}

void tst_SharedPictures::refusesDamagedSegments_data()
{
    QTest::addColumn<Damage>("damage");
    QTest::addColumn<bool>("isLayout"); // which is looked at when the segment is opened
    const auto row = [](const char* name, bool isLayout, const Damage& damage) {
        QTest::newRow(name) << damage << isLayout;
    };
    row("magic", true, [](SegmentHeader& header) { header.layout.magic ^= 1; });
    row("version", true, [](SegmentHeader& header) { ++header.layout.version; });
    row("pixel format", true, [](SegmentHeader& header) { header.layout.pixelFormat = 99; });
    row("one slot", true, [](SegmentHeader& header) { header.layout.slotCount = 1; });
    row("too many slots", true, [](SegmentHeader& header) { header.layout.slotCount = 9; });
    row("slots beyond the end", true, [](SegmentHeader& header) { header.layout.slotCount = 8; });
    row("slot size overflows", true,
        [](SegmentHeader& header) { header.layout.slotBytes = ~std::uint64_t{3}; });
    row("no slot size", true, [](SegmentHeader& header) { header.layout.slotBytes = 0; });
    row("offset beyond the end", true,
        [](SegmentHeader& header) { header.layout.pixelsOffset = ~std::uint64_t{4095}; });
    row("offset in the header", true, [](SegmentHeader& header) { header.layout.pixelsOffset = 64; });
    row("width", false, [](SegmentHeader& header) { header.frameSlots[1].width = 0x40000001; });
    row("height", false, [](SegmentHeader& header) { header.frameSlots[1].height = 1000; });
    row("no height", false, [](SegmentHeader& header) { header.frameSlots[1].height = 0; });
    row("stride", false, [](SegmentHeader& header) { header.frameSlots[1].strideBytes = 4; });
    row("stride overflows", false,
        [](SegmentHeader& header) { header.frameSlots[1].strideBytes = 0xFFFFFFFC; });
    row("odd stride", false, [](SegmentHeader& header) { header.frameSlots[1].strideBytes = 257; });
    row("being written", false, [](SegmentHeader& header) { ++header.frameSlots[1].sequence; });
    row("another frame", false, [](SegmentHeader& header) { header.frameSlots[1].frame = 5; });
    row("newest frame", false, [](SegmentHeader& header) { header.newestFrame = ~std::uint64_t{0}; });
}

void tst_SharedPictures::refusesDamagedSegments()
{
    QFETCH(Damage, damage);
    QFETCH(bool, isLayout);
    SharedPictureWriter writer(segmentName());
    QVERIFY(write(writer)); // in slot 1
    SharedPictureReader earlier(segmentName());
    QCOMPARE(earlier.read([](const PictureView&) {}), Result::Drawn);

    const int descriptor = ::shm_open(segmentName().c_str(), O_RDWR, 0);
    void* const data = ::mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    QVERIFY(data != MAP_FAILED);
    damage(*static_cast<SegmentHeader*>(data));
    ::munmap(data, 4096);
    ::close(descriptor);

    bool isDrawn = false;
    const auto draw = [&](const PictureView&) { isDrawn = true; };
    SharedPictureReader reader(segmentName());
    QCOMPARE(reader.read(draw), isLayout ? Result::None : Result::Torn);
    QVERIFY(!isDrawn);
    // A reader that has opened it before keeps to what it found sound.
    QCOMPARE(earlier.read(draw, true), isLayout ? Result::Drawn : Result::Torn);
    QVERIFY(write(writer));
}

void tst_SharedPictures::refusesASegmentCutShort()
{
    SharedPictureWriter writer(segmentName());
    QVERIFY(write(writer));
    SharedPictureReader reader(segmentName());
    QCOMPARE(reader.read([](const PictureView&) {}), Result::Drawn);
    QCOMPARE(::truncate(("/dev/shm" + segmentName()).c_str(), 4096), 0);
    QCOMPARE(reader.read([](const PictureView&) {}, true), Result::None);
    SharedPictureReader late(segmentName());
    QCOMPARE(late.read([](const PictureView&) {}), Result::None);
    QCOMPARE(::truncate(("/dev/shm" + segmentName()).c_str(), 100), 0);
    QCOMPARE(late.read([](const PictureView&) {}), Result::None);
    // The writer, whose memory is gone, must not look at it any more.
    QCOMPARE(::truncate(("/dev/shm" + segmentName()).c_str(), 4096 + 4 * 8192), 0);
}

void tst_SharedPictures::survivesTheWritersDeath()
{
    SharedPictureReader reader(segmentName());
    std::uint64_t drawn = 0;
    for (int round = 0; round < 30; ++round) {
        SharedPictureWriter* writer = nullptr;
        Child child([&] {
            if (writer == nullptr)
                writer = new SharedPictureWriter(segmentName());
            // Sizes change, so that segments are renewed as well.
            write(*writer, 200 + static_cast<int>(writer->frame() / 10 % 8) * 50, 200);
            ::usleep(400); // a reader cannot keep up with one that never rests
        });
        QElapsedTimer time;
        time.start();
        bool isWholeAlways = true;
        const std::uint64_t before = drawn;
        while (drawn < before + 3 + static_cast<std::uint64_t>(round) && time.elapsed() < 10000) {
            bool isThisWhole = true;
            if (reader.read([&](const PictureView& picture) { isThisWhole = isWhole(picture); })
                == Result::Drawn) {
                ++drawn;
                isWholeAlways = isWholeAlways && isThisWhole;
            }
        }
        child.kill();
        QVERIFY(isWholeAlways);
        QVERIFY2(drawn > before, "nothing came of the writer");
        QTRY_COMPARE(reader.state(), State::Stale);
    }
    QVERIFY(reader.read([](const PictureView&) {}, true) != Result::None);
    // Another process, too, that has to do with segments keeps its own.
    SharedPictureWriter other(segmentName("other"));
    QVERIFY(write(other));
    SegmentNames::removeAbandoned();
    QVERIFY(!Segment::open(segmentName()).isValid());
    QVERIFY(write(other));
    SharedPictureReader ofOther(segmentName("other"));
    QCOMPARE(ofOther.read([](const PictureView&) {}), Result::Drawn);
}

void tst_SharedPictures::survivesTheReadersDeath()
{
    SharedPictureWriter writer(segmentName());
    for (int round = 0; round < 20; ++round) {
        SharedPictureReader* reader = nullptr;
        Child child([&] {
            if (reader == nullptr)
                reader = new SharedPictureReader(segmentName());
            reader->read([](const PictureView& picture) { (void)isWhole(picture); }, true);
        });
        for (int i = 0; i < 20 + round; ++i) {
            QVERIFY(write(writer, 300, 200));
            ::usleep(200);
        }
    }
    SharedPictureReader reader(segmentName());
    QCOMPARE(reader.read([](const PictureView& picture) { QVERIFY(isWhole(picture)); }), Result::Drawn);
}

/// At 50 frames a second, and with a reader that looks as often as a screen of 60 Hz.
void tst_SharedPictures::arrivesWithinTwoFrames()
{
    Child child([writer = std::make_shared<SharedPictureWriter>(segmentName())] {
        write(*writer, 1728, 953);
        ::usleep(20000);
    });
    SharedPictureReader reader(segmentName());
    std::vector<double> milliseconds;
    while (milliseconds.size() < 40) {
        QTest::qWait(16);
        std::chrono::nanoseconds age{};
        if (reader.read([&](const PictureView& picture) { age = now() - picture.timeStamp; })
            == Result::Drawn)
            milliseconds.push_back(static_cast<double>(age.count()) * 1e-6);
        else if (reader.state() == State::NoPicture)
            QTest::qWait(1);
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    qInfo("from published to drawn: median %.1f ms, longest %.1f ms; two frames are 40 ms",
          milliseconds[milliseconds.size() / 2], milliseconds.back());
}

void tst_SharedPictures::reducesByAreas()
{
    // One bright column in a wide dark picture keeps its share of the light.
    constexpr int kWidth = 1920;
    std::vector<std::uint32_t> pixels(kWidth * 4, 0);
    for (int y = 0; y < 4; ++y)
        pixels[static_cast<std::size_t>(y * kWidth + 1001)] = 0xFFFFFFFF;
    PictureView small;
    const auto memory = reduced({pixels.data(), kWidth, 4, kWidth, 7, 5ns}, 480, 2, small);
    QCOMPARE(memory.size(), std::size_t{960});
    QCOMPARE(small.pixels[250], 0x40404040U);
    QCOMPARE(small.pixels[249] | small.pixels[251], 0U);
    QCOMPARE(small.frame, std::uint64_t{7});
    // Areas that share a pixel divide it.
    const std::vector<std::uint32_t> three{0, 0x000000F0, 0};
    PictureView two;
    const auto halves = reduced({three.data(), 3, 1, 3, 1, {}}, 2, 9, two);
    QCOMPARE(QSize(two.width, two.height), QSize(2, 1));
    QCOMPARE(halves[0], 0x50U);
    QCOMPARE(halves[1], 0x50U);
}

WZ_TEST_CLASS(tst_SharedPictures)
#include "tst_SharedPictures.moc"
