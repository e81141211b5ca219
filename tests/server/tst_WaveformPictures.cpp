#include "datacore/ElementPaths.h"
#include "feed/SegmentNames.h"
#include "feed/SharedPictureReader.h"
#include "server/core/Instrument.h"
#include "types/waveform/CodeScale.h"
#include "types/waveform/WaveformPictures.h"

#include "server/support/FrameNumber.h"
#include "server/support/MirrorClient.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QImage>

using namespace Velmora::Server;
using namespace Velmora::WaveformTypes;
namespace Paths = ElementPaths::Waveform;
using Velmora::Feed::PictureView;
using Velmora::Feed::SharedPictureReader;

Q_DECLARE_METATYPE(OnVideoLoss)

namespace {

constexpr QSize kContent{960, 510};
/// Luma of 100 % bars in 10 bits, ITU-R BT.709: white, yellow, cyan, green, magenta, red, blue, black.
constexpr std::array kLumaOfBars{940, 877, 754, 691, 313, 250, 127, 64};

} // namespace

/// Pictures of the waveform as a client asks for them and reads them.
class tst_WaveformPictures : public WzTest {
    Q_OBJECT

private slots:
    void init()
    {
        WzTest::init();
        m_instrument.emplace(SignalChoice{});
        QString error;
        QVERIFY2(m_instrument->listen(QHostAddress::LocalHost, error, 0, 0), qPrintable(error));
        m_client.emplace(m_instrument->server());
        QTRY_VERIFY(m_client->hasValue(config(Paths::kFilter)));
        write(config(ElementPaths::PatternGenerator::kPattern), "bars-100");
    }
    void cleanup()
    {
        m_client.reset();
        m_instrument.reset();
        WzTest::cleanup();
    }

    void barsStandAtTheirLevels()
    {
        want(kContent);
        auto reader = readerOf(kContent);
        const WaveformGeometry geometry(kContent, Presentation::Parade, 3);
        QTRY_COMPARE(lumaRows(*reader, geometry), rowsOfBars(geometry, 1.0));
    }

    void settingsAct()
    {
        want(kContent);
        auto reader = readerOf(kContent);
        write(config(Paths::kPresentationMode), Presentation::Overlay);
        write(config(Paths::kDisplayMode), DisplayMode::Custom);
        write(config(Paths::kBlenderGains), "0.5 1 1 1");
        write(config(Paths::kFullWidthMode), "true");
        const WaveformGeometry geometry(kContent, Presentation::Overlay, 1, true);
        QTRY_COMPARE(lumaRows(*reader, geometry), rowsOfBars(geometry, 0.5));
        // What cannot be is marked and changes nothing.
        write(config(Paths::kBlenderGains), "1 1");
        QTRY_VERIFY(!m_client->node(config(Paths::kBlenderGains))->isValid());
        write(config(Paths::kVerticalPosition), "-20");
        const WaveformGeometry moved(kContent, Presentation::Overlay, 1, true, {.verticalPosition = -20.0});
        QTRY_COMPARE(lumaRows(*reader, moved), rowsOfBars(moved, 0.5));
    }

    void aSingleLineIsThatOfTheCursor()
    {
        want(kContent);
        auto reader = readerOf(kContent);
        const WaveformGeometry geometry(kContent, Presentation::Parade, 3);
        write(config(ElementPaths::PatternGenerator::kPattern), "ramp");
        QTRY_VERIFY(lumaRows(*reader, geometry) != rowsOfBars(geometry, 1.0));
        write(config(ElementPaths::PatternGenerator::kPattern), "smpte-bars");
        write(config(Paths::kFilter), Filter::Raw);
        // Bars of 75 % take most of the lines; at the bottom is black.
        write(config(Paths::kSingleLineMode), "true");
        write(config(ElementPaths::PictureCursor::kPosition), "0 100");
        const auto lumaAtQuarter = [&] {
            const auto rows = lumaRows(*reader, geometry);
            return rows.isEmpty() ? -1 : rows[1];
        };
        const CodeScale scale(10, CodeScale::Range::Narrow, false);
        QTRY_COMPARE(lumaAtQuarter(), geometry.row(scale.percent(721))); // white of 75 %
        write(config(ElementPaths::PictureCursor::kPosition), "0 1070");
        QTRY_COMPARE(lumaAtQuarter(), geometry.row(scale.percent(64))); // black
    }

    /// Each picture is of the frame whose time it carries, and none is shown twice.
    void picturesAreThoseOfTheirFrames()
    {
        write(config(ElementPaths::PatternGenerator::kPattern), "moving-box");
        write(config(Paths::kDisplayMode), DisplayMode::Custom);
        write(config(Paths::kSingleLineMode), "true");
        write(config(ElementPaths::PictureCursor::kPosition), "0 1079");
        write(config(Paths::kFilter), Filter::Raw);
        want(kContent);
        auto reader = readerOf(kContent);
        const WaveformGeometry geometry(kContent, Presentation::Parade, 1);
        struct Shown {
            std::uint32_t number = 0;
            std::chrono::nanoseconds timeStamp{0};
        };
        std::vector<Shown> shown;
        const auto look = [&] {
            std::optional<Shown> seen;
            const auto result = reader->read([&](const PictureView& view) {
                const auto number = frameNumberOf(view, geometry);
                seen = number ? std::optional(Shown{*number, view.timeStamp}) : std::nullopt;
            });
            if (result == SharedPictureReader::Result::Drawn && seen)
                shown.push_back(*seen);
            return shown.size() >= 10;
        };
        QTRY_VERIFY(look());
        constexpr std::chrono::nanoseconds kFrame = std::chrono::milliseconds(20);
        for (std::size_t i = 1; i < shown.size(); ++i) {
            QVERIFY(shown[i].number > shown[i - 1].number);
            // A machine that is held up for long shifts the time of all that follow.
            const auto time = shown[i].timeStamp - shown[i - 1].timeStamp;
            QVERIFY(time >= kFrame * (shown[i].number - shown[i - 1].number));
        }
    }

    void aLostSignalFadesOrStays_data()
    {
        QTest::addColumn<OnVideoLoss>("action");
        QTest::addColumn<bool>("stays");
        QTest::newRow("clear") << OnVideoLoss::Clear << false;
        QTest::newRow("hold") << OnVideoLoss::Hold << true;
    }
    void aLostSignalFadesOrStays()
    {
        QFETCH(OnVideoLoss, action);
        QFETCH(bool, stays);
        write(config(Paths::kOnVideoLoss), action);
        want(kContent);
        auto reader = readerOf(kContent);
        QTRY_VERIFY(litRows(*reader) > 0);
        const QString format = status(ElementPaths::SdiInputStatus::kPictureFormat);
        write(config(ElementPaths::SignalSource::kName), "no-signal");
        QTRY_COMPARE(m_client->node(format)->getData(), QStringLiteral("No Signal"));
        if (!stays) {
            QTRY_COMPARE(litRows(*reader), 0);
            return;
        }
        // Long enough for several pictures of nothing.
        QTest::qWait(200);
        QVERIFY(litRows(*reader) > 0);
    }

    void eachSizeHasItsPictureWhileItIsWanted()
    {
        constexpr QSize small{480, 240};
        constexpr QSize tiny{8, 8};
        for (const QSize& size : {QSize(0, 0), QSize(-5, 100), QSize(100000, 2), tiny, small, kContent})
            want(size);
        auto smallReader = readerOf(small);
        auto reader = readerOf(kContent);
        QTRY_VERIFY(litRows(*smallReader) > 0);
        QTRY_VERIFY(litRows(*reader) > 0);
        QCOMPARE(m_image.size(), WaveformGeometry(kContent, Presentation::Parade, 3).imageRect().size());
        // One of them is looked at further on.
        QElapsedTimer since;
        since.start();
        while (since.elapsed() < 2 * Pictures::kLease.count() && isThere(small)) {
            want(kContent);
            QTest::qWait(100);
        }
        QVERIFY(!isThere(small));
        QVERIFY(isThere(kContent));
    }

private:
    using Reader = std::unique_ptr<SharedPictureReader>;

    /// @p items with a space between them.
    void write(const QString& path, const char* items) { writeText(path, QString::fromLatin1(items)); }
    template<typename Enumeration>
    requires std::is_enum_v<Enumeration>
    void write(const QString& path, Enumeration value)
    {
        writeText(path, QString::number(static_cast<unsigned>(value)));
    }
    void writeText(const QString& path, const QString& items)
    {
        m_client->node(path)->setDataStringList(items.split(QLatin1Char(' ')));
    }
    void want(QSize content)
    {
        writeText(fullPath(ServerCommon::DatacoreTree::Command, ElementPaths::WaveformCommands::kWantPicture),
                  QStringLiteral("%1 %2").arg(content.width()).arg(content.height()));
    }
    std::string segmentOf(QSize content)
    {
        return Velmora::Feed::SegmentNames::nameOf(m_instrument->server().port(),
                                                   Pictures::imageName(content));
    }
    Reader readerOf(QSize content) { return std::make_unique<SharedPictureReader>(segmentOf(content)); }
    bool isThere(QSize content)
    {
        return readerOf(content)->read([](const PictureView&) {}) == SharedPictureReader::Result::Drawn;
    }

    /// The newest picture, null when there is none; the one before when it cannot be had in one piece.
    const QImage& newest(SharedPictureReader& reader)
    {
        QImage image;
        const auto result = reader.read(
            [&](const PictureView& view) {
                image = QImage(reinterpret_cast<const uchar*>(view.pixels), view.width, view.height,
                               static_cast<int>(view.stride * 4), QImage::Format_ARGB32_Premultiplied)
                            .copy();
            },
            true);
        if (result != SharedPictureReader::Result::Torn)
            m_image = image;
        return m_image;
    }
    int litRows(SharedPictureReader& reader)
    {
        const QImage& image = newest(reader);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            count += std::any_of(row, row + image.width(), [](QRgb pixel) { return pixel != 0; });
        }
        return count;
    }
    /// The middle of the trace of each bar's luma.
    QList<int> lumaRows(SharedPictureReader& reader, const WaveformGeometry& geometry)
    {
        const QImage& image = newest(reader);
        QList<int> rows;
        if (image.size() != geometry.imageRect().size())
            return rows;
        const QRect cell = geometry.cells().front();
        for (std::size_t bar = 0; bar < kLumaOfBars.size(); ++bar) {
            const int x = cell.x() + geometry.column((static_cast<double>(bar) + 0.5) / kLumaOfBars.size());
            int best = cell.top();
            for (int y = cell.top(); y <= cell.bottom(); ++y)
                if (qAlpha(image.pixel(x, y)) > qAlpha(image.pixel(x, best)))
                    best = y;
            int last = best;
            while (last < cell.bottom() && image.pixel(x, last + 1) == image.pixel(x, best))
                ++last;
            rows << (best + last) / 2 - cell.top();
        }
        return rows;
    }
    static QList<int> rowsOfBars(const WaveformGeometry& geometry, double gain)
    {
        const CodeScale scale(10, CodeScale::Range::Narrow, false);
        QList<int> rows;
        for (const int code : kLumaOfBars)
            rows << geometry.row(gain * scale.percent(code));
        return rows;
    }

    std::optional<Instrument> m_instrument;
    std::optional<MirrorClient> m_client;
    QImage m_image;
};

WZ_TEST_CLASS(tst_WaveformPictures)
#include "tst_WaveformPictures.moc"
