#include "MediaWriter.h"

#include "media/MediaPlayer.h"
#include "server/sources/AudioSourceCatalogue.h"
#include "server/sources/PatternCatalogue.h"
#include "server/sources/PatternGenerator.h"
#include "server/sources/VideoFormats.h"
#include "server/sources/patterns/FrameCounterStrip.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstring>

using namespace Velmora::Server;
using namespace Velmora::Sdi::PayloadId;
using Velmora::Media::openMediaFile;

Q_DECLARE_METATYPE(VideoFormat)
Q_DECLARE_METATYPE(MediaWriter)

namespace {

PatternGenerator generator(const char* pattern, const VideoFormat& format)
{
    return {PatternCatalogue::make(pattern), format};
}

/// Small enough to code many of them.
VideoFormat smallFormat(SampleStructure sampling = SampleStructure::YCbCr422,
                        BitDepth depth = BitDepth::Bits10)
{
    return {.width = 1280, .height = 720, .rateNumerator = 50, .sampling = sampling, .depth = depth};
}

/// The largest difference between samples of two pictures; -1 when their planes differ in size.
int largestDifference(const VideoFrame& a, const VideoFrame& b, std::size_t planes = 4)
{
    int largest = 0;
    for (std::size_t plane = 0; plane < planes; ++plane) {
        const VideoPlane& x = a.planes[plane];
        const VideoPlane& y = b.planes[plane];
        if (x.width != y.width || x.height != y.height)
            return -1;
        for (int line = 0; line < x.height; ++line) {
            for (int i = 0; i < x.width; ++i)
                largest = std::max(largest, std::abs(x.line(line)[i] - y.line(line)[i]));
        }
    }
    return largest;
}

} // namespace

/// Media files that are coded here from generated pictures and sound.
class tst_MediaPlayer : public WzTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_folder.isValid()); }
    void init()
    {
        WzTest::init();
        m_control = std::make_shared<PlaybackControl>();
        m_error.clear();
    }

    void codedPicturesEqualTheirGenerator_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<MediaWriter>("writer");
        QTest::addColumn<VideoFormat>("format");
        QTest::addColumn<int>("tolerance");
        const auto row = [](const char* name, const MediaWriter& writer, const VideoFormat& format,
                            int tolerance = 0) {
            QTest::newRow(name) << QString::fromLatin1(name) << writer << format << tolerance;
        };
        VideoFormat format = smallFormat();
        row("v210.mov", {"v210", "yuv422p10le"}, format);
        row("ffv1.mkv", {"ffv1", "yuv422p10le"}, format);
        row("packed.nut", {"rawvideo", "uyvy422"}, smallFormat(SampleStructure::YCbCr422, BitDepth::Bits8));
        row("444.mkv", {"ffv1", "yuv444p12le"}, smallFormat(SampleStructure::YCbCr444, BitDepth::Bits12));
        row("alpha.mkv", {"ffv1", "yuva444p10le"}, smallFormat(SampleStructure::YCbCrA4444));
        row("rgb.mkv", {"ffv1", "gbrp10le", "bt709 bt709 gbr pc"},
            smallFormat(SampleStructure::Rgb444, BitDepth::Bits10FullRange));
        row("full.mkv", {"ffv1", "yuv422p12le", "bt709 bt709 bt709 pc"},
            smallFormat(SampleStructure::YCbCr422, BitDepth::Bits12FullRange));
        row("mpeg2.ts", {"mpeg2video", "yuv422p"}, smallFormat(SampleStructure::YCbCr422, BitDepth::Bits8),
            12);
        format.depth = BitDepth::Bits10;
        format.colourimetry = Colourimetry::Rec2020;
        format.transfer = TransferCurve::Hlg;
        row("hlg.mov", {"v210", "yuv422p10le", "bt2020 arib-std-b67 bt2020nc tv"}, format);
        format.transfer = TransferCurve::Pq;
        row("pq.mkv", {"ffv1", "yuv422p10le", "bt2020 smpte2084 bt2020nc tv"}, format);
        const QByteArray pqTags = "bt2020 smpte2084 bt2020nc tv";
        for (const char* name : {"pq.mp4", "pq.ts"}) // with pictures out of order
            row(name, {"libx264", "yuv422p10le", pqTags, "qp=0:preset=fast"}, format);
        format = {.width = 1920, .height = 1080, .rateNumerator = 25, .interlaced = true};
        row("interlaced.mov", {"v210", "yuv422p10le"}, format);
        format.depth = BitDepth::Bits8;
        row("interlaced.mxf", {"mpeg2video", "yuv422p"}, format, 12);
        format = {.width = 720, .height = 576, .rateNumerator = 25, .interlaced = true};
        format.colourimetry = Colourimetry::Rec601;
        row("625.mov", {"v210", "yuv422p10le", "bt470bg bt709 bt470bg tv"}, format);
        format = smallFormat();
        format.width = 333;
        format.height = 241;
        format.rateNumerator = 60000;
        format.rateDenominator = 1001;
        format.colourimetry = Colourimetry::Rec601; // small pictures without a tag
        row("odd size.mkv", {"ffv1", "yuv422p10le", "unknown unknown unknown unknown"}, format);
    }
    void codedPicturesEqualTheirGenerator()
    {
        QFETCH(QString, name);
        QFETCH(MediaWriter, writer);
        QFETCH(VideoFormat, format);
        QFETCH(int, tolerance);
        const QString path = m_folder.filePath(name);
        auto coded = generator("smpte-bars", format);
        writer.write(path, &coded, nullptr);

        const auto file = open(path);
        QVERIFY2(file, qPrintable(m_error));
        QVERIFY(!file->signal.audio);
        auto expected = generator("smpte-bars", format);
        QCOMPARE(VideoFormats::toText(file->signal.video->format()), VideoFormats::toText(format));
        for (int i = 0; i < writer.frames; ++i) {
            const VideoFrame& wanted = *expected.next();
            const VideoFrame* const frame = file->signal.video->next();
            QVERIFY(frame);
            QCOMPARE(frame->format, format);
            QCOMPARE(frame->number, wanted.number);
            QVERIFY(std::abs((frame->timeStamp - wanted.timeStamp).count()) < 1'100'000); // MKV counts in ms
            const int difference = largestDifference(*frame, wanted);
            QVERIFY2(difference >= 0 && difference <= tolerance, qPrintable(QString::number(difference)));
        }
        QVERIFY(!file->signal.video->next());
        // Some containers tell when the last frame begins, not when it ends.
        const auto duration = VideoFormats::timeOfFrame(format, std::uint64_t(writer.frames));
        QVERIFY(file->duration <= duration + std::chrono::milliseconds(1));
        QVERIFY(file->duration >= duration * 3 / 4);
    }

    /// Luminance is exact, and so is colour where its lines do not differ.
    void coloursOf420AreLinesApart()
    {
        for (const bool interlaced : {false, true}) {
            VideoFormat format{.width = 1920, .height = 1080, .rateNumerator = 25, .interlaced = interlaced};
            const QString path = m_folder.filePath(QStringLiteral("420.mkv"));
            auto coded = generator("moving-box", format);
            MediaWriter{"ffv1", "yuv420p10le"}.write(path, &coded, nullptr);
            auto expected = generator("moving-box", format);
            const auto file = open(path);
            QVERIFY(file);
            const VideoFrame* const frame = file->signal.video->next();
            QCOMPARE(largestDifference(*frame, *expected.next()), 0);
        }
        auto coded = generator("bars-100", smallFormat(SampleStructure::YCbCr422, BitDepth::Bits8));
        MediaWriter{"mpeg2video", "yuv420p"}.write(m_folder.filePath(QStringLiteral("420.mpg")), &coded,
                                                   nullptr);
        const auto file = open(m_folder.filePath(QStringLiteral("420.mpg")));
        QVERIFY(file);
        QVERIFY(largestDifference(*file->signal.video->next(), *coded.next()) < 30);
    }

    /// 8 bits of full range become 10, with which no two codes are the same.
    void fullRangeOfEightBitsIsWidened()
    {
        auto format = smallFormat(SampleStructure::YCbCr444, BitDepth::Bits8);
        auto coded = generator("full-range-sweep", format);
        const QString path = m_folder.filePath(QStringLiteral("widened.mkv"));
        MediaWriter{"ffv1", "yuv444p", "bt709 bt709 bt709 pc"}.write(path, &coded, nullptr);
        const auto file = open(path);
        QVERIFY(file);
        QCOMPARE(file->signal.video->format().depth, BitDepth::Bits10FullRange);
        const VideoFrame& original = *coded.next();
        const VideoFrame& frame = *file->signal.video->next();
        for (std::size_t plane = 0; plane < 3; ++plane) {
            const auto* const from = original.planes[plane].line(int(plane) * 240 + 10);
            const auto* const to = frame.planes[plane].line(int(plane) * 240 + 10);
            for (int x = 1; x < 1280; ++x)
                QCOMPARE(to[x] > to[x - 1], from[x] > from[x - 1]);
        }
        QCOMPARE(int(*frame.planes[1].line(10)), 512);
    }

    void codedSoundEqualsItsGenerator_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<MediaWriter>("writer");
        QTest::addColumn<double>("tolerance");
        const auto row = [](const char* name, MediaWriter writer, const char* codec, int streams,
                            int channels, double tolerance) {
            writer.audioCodec = codec;
            writer.audioStreams = streams;
            writer.audioChannels = channels;
            QTest::newRow(name) << QString::fromLatin1(name) << writer << tolerance;
        };
        const MediaWriter pictures{"v210", "yuv422p10le"};
        row("16 mono.mov", pictures, "pcm_s24le", 16, 1, 2e-7);
        row("8 stereo.mov", pictures, "pcm_s24le", 8, 2, 2e-7);
        row("surround.mkv", {"ffv1", "yuv422p10le"}, "pcm_s16le", 2, 8, 4e-5);
        row("too many.mov", pictures, "pcm_s24le", 3, 8, 2e-7);
        row("alone.wav", {}, "pcm_s24le", 1, 2, 2e-7);
    }
    void codedSoundEqualsItsGenerator()
    {
        QFETCH(QString, name);
        QFETCH(MediaWriter, writer);
        QFETCH(double, tolerance);
        const QString path = m_folder.filePath(name);
        auto pictures = generator("black", smallFormat());
        const auto sound = AudioSourceCatalogue::make("pink-noise", 1);
        const auto sixteen = writer.audioStreams * writer.audioChannels;
        if (sixteen > 16) // the source has no more than that either
            writer.audioStreams = 2;
        writer.write(path, writer.codec.isEmpty() ? nullptr : &pictures, sound.get(), 0.5);

        const auto file = open(path);
        QVERIFY2(file, qPrintable(m_error));
        QCOMPARE(bool(file->signal.video), !writer.codec.isEmpty());
        const auto expected = AudioSourceCatalogue::make("pink-noise", 1);
        const auto channels = std::size_t(std::min(sixteen, 16));
        for (int read = 0; read < 25; ++read) {
            AudioBuffer wanted(960);
            AudioBuffer samples(960);
            QCOMPARE(expected->read(wanted.planes()).frames, std::size_t(960));
            const AudioBlock block = file->signal.audio->read(samples.planes());
            for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
                QCOMPARE(block.channels[channel] != nullptr, channel < channels);
                for (std::size_t i = 0; i < 960 && channel < channels; ++i)
                    QVERIFY(std::abs(block.channels[channel][i] - wanted.plane(channel)[i])
                            < float(tolerance));
            }
        }
        // Behind the end there is nothing until somebody goes back.
        AudioBuffer samples(960);
        QVERIFY(!file->signal.audio->read(samples.planes()).channels[0]);
        QCOMPARE(file->signal.audio->position(), std::uint64_t(26 * 960));
        m_control->seek(std::chrono::milliseconds(100));
        const AudioBlock again = file->signal.audio->read(samples.planes());
        QVERIFY(again.channels[0]);
        const auto from = AudioSourceCatalogue::make("pink-noise", 1);
        AudioBuffer until(4800 + 960);
        QCOMPARE(from->read(until.planes()).frames, std::size_t(5760));
        // Matroska rounds the place to milliseconds.
        if (!name.endsWith(QLatin1String(".mkv")))
            QVERIFY(std::abs(again.channels[0][7] - until.plane(0)[4807]) < float(tolerance));
    }

    /// 44.1 kHz come out as the same tone at 48 kHz.
    void otherSampleRatesAreConverted()
    {
        MediaWriter writer{.codec = {}, .pixels = {}, .audioCodec = "pcm_s16le", .audioRate = 44100};
        const QString path = m_folder.filePath(QStringLiteral("44100.wav"));
        writer.write(path, nullptr, AudioSourceCatalogue::make("tone", 1).get(), 1.0);
        const auto file = open(path);
        QVERIFY(file);
        AudioBuffer samples(48000);
        const AudioBlock block = file->signal.audio->read(samples.planes());
        int rises = 0;
        for (std::size_t i = 1; i < block.frames; ++i)
            rises += block.channels[0][i - 1] < 0 && block.channels[0][i] >= 0;
        QVERIFY2(std::abs(rises - 919) <= 1, qPrintable(QString::number(rises))); // 1 kHz x 44.1 / 48
    }

    void playsAsItIsTold()
    {
        const QString path = m_folder.filePath(QStringLiteral("numbers.ts"));
        auto coded = generator("moving-box", smallFormat(SampleStructure::YCbCr422, BitDepth::Bits8));
        MediaWriter writer{"mpeg2video", "yuv422p"};
        writer.frames = 50;
        writer.write(path, &coded, nullptr);
        const auto file = open(path);
        QVERIFY(file);
        VideoSource& video = *file->signal.video;
        std::uint64_t count = 0;
        std::chrono::nanoseconds last(-1);
        // The number that is burnt into the next picture; -1 when there is none.
        const auto next = [&] {
            const VideoFrame* const frame = video.next();
            if (!frame)
                return -1;
            if (frame->number != count++ || frame->timeStamp <= last)
                return -2;
            last = frame->timeStamp;
            return int(FrameCounterStrip::read(*frame).value_or(999));
        };
        for (int i = 0; i < 20; ++i)
            QCOMPARE(next(), i);
        m_control->setPaused(true);
        QCOMPARE(next(), 19);
        QCOMPARE(next(), 19);
        m_control->seek(std::chrono::milliseconds(700)); // shows also while it is paused
        QCOMPARE(next(), 35);
        QCOMPARE(next(), 35);
        m_control->setPaused(false);
        QCOMPARE(next(), 36);
        m_control->seek(std::chrono::milliseconds(0));
        QCOMPARE(next(), 0);
        m_control->seek(std::chrono::hours(5));
        QCOMPARE(next(), -1);
        QCOMPARE(next(), -1);
        m_control->seek(std::chrono::milliseconds(980));
        QCOMPARE(next(), 49);
        QCOMPARE(next(), -1);
        m_control->setLooping(true);
        for (int i = 0; i < 120; ++i)
            QCOMPARE(next(), i % 50);

        // Time goes on while nobody reads, unless it is paused.
        m_control->start();
        QTest::qWait(100);
        m_control->setPaused(true);
        video.resume();
        const int number = next();
        QVERIFY2(number >= 5 && number < 50, qPrintable(QString::number(number)));
        QTest::qWait(100);
        video.resume();
        QCOMPARE(next(), number);
    }

    /// Pictures and sound of unequal length begin again together.
    void loopsStayTogether()
    {
        const QString path = m_folder.filePath(QStringLiteral("loop.mov"));
        auto pictures = generator("black", smallFormat());
        MediaWriter writer{.codec = "v210", .pixels = "yuv422p10le", .frames = 10, .audioCodec = "pcm_s24le"};
        writer.write(path, &pictures, AudioSourceCatalogue::make("tone", 1).get(), 7.0 / 48);
        m_control->setLooping(true);
        const auto file = open(path);
        QVERIFY(file);
        AudioBuffer samples(9600 * 3);
        const AudioBlock block = file->signal.audio->read(samples.planes());
        for (std::size_t i = 0; i < 9600; ++i) { // of the sound there are 7000
            for (std::size_t loop = 1; loop < 3; ++loop)
                QCOMPARE(block.channels[1][i + loop * 9600], block.channels[1][i]);
            QVERIFY(i < 7000 || std::abs(block.channels[1][i]) < 1e-6F);
        }
    }

    void stampsTellWhenFramesAreDue()
    {
        const QString path = m_folder.filePath(QStringLiteral("variable.mkv"));
        auto coded = generator("black", smallFormat());
        MediaWriter writer{"ffv1", "yuv422p10le"};
        writer.stamps = {0, 1, 5, 6, 10};
        writer.write(path, &coded, nullptr);
        const auto file = open(path);
        QVERIFY(file);
        for (const int stamp : writer.stamps)
            QCOMPARE(file->signal.video->next()->timeStamp, std::chrono::milliseconds(20 * stamp));
    }

    /// Elementary streams have no stamps, and their size may change from one picture to the next.
    void picturesWithoutStampsMayChange()
    {
        QByteArray stream;
        VideoFormat format = smallFormat(SampleStructure::YCbCr422, BitDepth::Bits8);
        for (const int width : {1280, 720}) {
            format.width = width;
            auto coded = generator("black", format);
            const QString part = m_folder.filePath(QStringLiteral("part.m2v"));
            MediaWriter{"mpeg2video", "yuv422p"}.write(part, &coded, nullptr);
            stream += contentOf(part);
        }
        const QString path = m_folder.filePath(QStringLiteral("changing.m2v"));
        store(path, stream);
        const auto file = open(path);
        QVERIFY2(file, qPrintable(m_error));
        // The decoder may lose what it holds back when the size changes.
        QList<int> widths;
        std::chrono::nanoseconds due(0);
        while (const VideoFrame* const frame = file->signal.video->next()) {
            QVERIFY(frame->timeStamp == due || widths.last() > frame->planes[0].width);
            due = frame->timeStamp + std::chrono::milliseconds(20);
            QVERIFY(widths.isEmpty() || frame->planes[0].width <= widths.last());
            widths << frame->planes[0].width;
        }
        QVERIFY(widths.count(1280) >= 4);
        QCOMPARE(widths.count(720), 5);
        QVERIFY(log().contains(QStringLiteral("The pictures of the file have become 720x720p50")));
    }

    void badFilesAreToldInOneLine_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const QByteArray& content, const char* error) {
            QTest::newRow(name) << QString::fromLatin1(name) << content << QString::fromLatin1(error);
        };
        const QByteArray movie = makeMovie();
        QByteArray huge = movie;
        const int sizes = huge.indexOf("v210") + 28; // width and height in the sample description
        huge.replace(sizes, 4, "\xff\xff\xff\xff", 4);
        row("absent.mov", {}, "there is no such file");
        row("text.mov", "These are no pictures.", "it is no media file that can be read");
        row("empty.mov", "", "it is no media file that can be read");
        row("index lost.mov", movie.left(movie.size() / 2), "it is no media file that can be read");
        row("huge.mov", huge, "it has neither pictures nor sound that can be decoded");
        row("list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:10\n#EXTINF:10,\nhttp://127.0.0.1:9/a.ts\n",
            "it is no media file that can be read");
        row(".", {}, "it is no file");
    }
    void badFilesAreToldInOneLine()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, error);
        const QString path = m_folder.filePath(name);
        if (!content.isNull())
            store(path, content);
        QVERIFY(!open(path));
        QVERIFY2(m_error.startsWith(error) && !m_error.contains(QLatin1Char('\n')), qPrintable(m_error));
    }

    /// What is left of them is played, and then they end.
    void damagedFilesEnd_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        auto coded = generator("zone-plate", smallFormat(SampleStructure::YCbCr422, BitDepth::Bits8));
        MediaWriter writer{"mpeg2video", "yuv422p"};
        writer.frames = 25;
        const QString path = m_folder.filePath(QStringLiteral("whole.ts"));
        writer.write(path, &coded, nullptr);
        const QByteArray whole = contentOf(path);
        QByteArray holes = whole;
        for (int i = 5000; i < holes.size(); i += 997)
            holes[i] = '\x55';
        QByteArray lost = whole;
        lost.remove(whole.size() / 3, 12345);
        QTest::newRow("truncated.ts") << QStringLiteral("truncated.ts") << whole.left(whole.size() / 2);
        QTest::newRow("holes.ts") << QStringLiteral("holes.ts") << holes;
        QTest::newRow("lost.ts") << QStringLiteral("lost.ts") << lost;
    }
    void damagedFilesEnd()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        store(m_folder.filePath(name), content);
        for (const bool looping : {false, true}) {
            m_control->setLooping(looping);
            const auto file = open(m_folder.filePath(name));
            QVERIFY2(file, qPrintable(m_error));
            int frames = 0;
            while (frames < 60 && file->signal.video->next())
                ++frames;
            QVERIFY2(looping ? frames == 60 : frames > 3 && frames <= 25,
                     qPrintable(QString::number(frames)));
        }
    }

private:
    std::optional<MediaFile> open(const QString& path) { return openMediaFile(path, m_control, m_error); }

    QByteArray makeMovie()
    {
        auto coded = generator("black", smallFormat());
        const QString path = m_folder.filePath(QStringLiteral("movie.mov"));
        MediaWriter{"v210", "yuv422p10le"}.write(path, &coded, nullptr);
        return contentOf(path);
    }
    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void store(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

    QTemporaryDir m_folder;
    std::shared_ptr<PlaybackControl> m_control = std::make_shared<PlaybackControl>();
    QString m_error;
};

WZ_TEST_CLASS(tst_MediaPlayer)
#include "tst_MediaPlayer.moc"
