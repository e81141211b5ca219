#include "feed/SegmentNames.h"
#include "feed/SharedPictureWriter.h"
#include "gui/picture/ScaledPicture.h"
#include "gui/support/WindowFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QPainter>
#include <QSignalSpy>

#include <algorithm>
#include <array>

#include <unistd.h>

using namespace Velmora::Feed;
using State = FeedPicture::State;

namespace {

constexpr QSize kSize(8, 4);
constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kBlue = 0xFF0000FF;

/// An instrument that no other process of this machine has.
PictureHost thisMachine()
{
    return {QHostAddress(QHostAddress::LocalHost), static_cast<int>(::getpid()) + 200000, 0};
}

void write(SharedPictureWriter& writer, QSize size, std::uint32_t colour)
{
    const PictureBuffer buffer = writer.begin(size.width(), size.height());
    for (int y = 0; y < buffer.height; ++y)
        std::fill_n(buffer.pixels + y * buffer.stride, buffer.width, colour);
    writer.publish({});
}

QRgb painted(FeedPicture& picture)
{
    QImage screen(16, 16, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&screen);
    picture.paint(painter, {4, 4}, [&screen, &painter] { painter.fillRect(screen.rect(), Qt::black); });
    painter.end();
    return screen.pixel(5, 5);
}

struct Fixture {
    Fixture()
    {
        picture.setHost(thisMachine());
        picture.setImage("test", kSize);
        picture.setSize(kSize);
    }

    std::unique_ptr<SharedPictureWriter> writer =
        std::make_unique<SharedPictureWriter>(SegmentNames::nameOf(thisMachine().instrumentPort, "test"));
    FeedPicture picture;
};

} // namespace

class tst_FeedPicture : public WzTest {
    Q_OBJECT
private slots:
    void asksWhileItIsWatchedOnly()
    {
        Fixture f;
        QSignalSpy wanted(&f.picture, &FeedPicture::wanted);
        write(*f.writer, kSize, kRed);
        QTest::qWait(50);
        QCOMPARE(wanted.count(), 0);
        QCOMPARE(f.picture.state(), State::None);
        f.picture.setWatched(true);
        QCOMPARE(wanted.count(), 1);
        QVERIFY(wanted.wait(1500));
        f.picture.setWatched(false);
        QVERIFY(!wanted.wait(1200));
        QCOMPARE(f.picture.state(), State::None);
        QCOMPARE(painted(f.picture), QColor(Qt::black).rgb());
    }

    void drawsWhatIsThereAndTellsOfNewPicturesOnly()
    {
        Fixture f;
        f.picture.setWatched(true);
        QSignalSpy arrived(&f.picture, &FeedPicture::arrived);
        QVERIFY(!arrived.wait(50));
        write(*f.writer, kSize, kRed);
        QTRY_COMPARE(arrived.count(), 1);
        QCOMPARE(f.picture.state(), State::Live);
        QCOMPARE(painted(f.picture), QRgb(kRed));
        QCOMPARE(painted(f.picture), QRgb(kRed));
        QVERIFY(!arrived.wait(100));

        const QImage held = f.picture.copy();
        write(*f.writer, kSize, kBlue);
        QTRY_COMPARE(arrived.count(), 2);
        QCOMPARE(painted(f.picture), QRgb(kBlue));
        QCOMPARE(held.pixel(0, 0), QRgb(kRed));
    }

    void keepsTheLastPictureOfAWriterThatIsGone()
    {
        Fixture f;
        f.picture.setWatched(true);
        write(*f.writer, kSize, kRed);
        QTRY_COMPARE(f.picture.state(), State::Live);
        f.writer.reset();
        QTRY_COMPARE(f.picture.state(), State::Stale);
        QCOMPARE(painted(f.picture), QRgb(kRed));

        f.writer =
            std::make_unique<SharedPictureWriter>(SegmentNames::nameOf(thisMachine().instrumentPort, "test"));
        write(*f.writer, kSize, kBlue);
        QTRY_COMPARE(f.picture.state(), State::Live);
        QCOMPARE(painted(f.picture), QRgb(kBlue));
    }

    void doesNotShowWhatDoesNotFit()
    {
        Fixture f;
        f.picture.setWatched(true);
        write(*f.writer, {4, 4}, kRed);
        QTRY_COMPARE(f.picture.state(), State::OtherSize);
        QCOMPARE(painted(f.picture), QColor(Qt::black).rgb());
        QVERIFY(f.picture.copy().isNull());
        write(*f.writer, kSize, kRed);
        QTRY_COMPARE(f.picture.state(), State::Live);
        f.picture.setSize({4, 4});
        QCOMPARE(f.picture.state(), State::OtherSize);
        QCOMPARE(painted(f.picture), QColor(Qt::black).rgb());
    }

    /// A second window shows what the first one reads, at its own size.
    void copiesFollowTheirOriginal()
    {
        Fixture f;
        WindowFixture screen;
        screen.addKind(QStringLiteral("Picture"));
        std::array<ScaledPicture*, 3> pictures{};
        for (int i = 0; i < 3; ++i) {
            const WzSubWindow* const window = screen.open(QStringLiteral("Picture"));
            auto* const picture = new ScaledPicture(i == 2 ? 1 : 0, window->content());
            picture->resize(i == 1 ? 2 * kSize : kSize);
            picture->show();
            pictures[static_cast<std::size_t>(i)] = picture;
        }
        auto& [original, copy, other] = pictures;
        original->picture().setHost(thisMachine());
        original->picture().setImage("test", kSize);
        original->picture().setWatched(true);
        const auto colourOf = [](ScaledPicture* picture) { return picture->grab().toImage().pixel(3, 1); };
        screen.manager.createPictureCopyConnection(original, 0, true);
        write(*f.writer, kSize, kRed);
        QTRY_COMPARE(colourOf(copy), QRgb(kRed));
        QCOMPARE(colourOf(original), QRgb(kRed));
        QCOMPARE(colourOf(other), QColor(Qt::black).rgb());
        write(*f.writer, kSize, kBlue);
        QTRY_COMPARE(colourOf(copy), QRgb(kBlue));
        screen.manager.createPictureCopyConnection(original, 0, false);
        QCOMPARE(colourOf(copy), QColor(Qt::black).rgb());
        write(*f.writer, kSize, kRed);
        QTRY_COMPARE(colourOf(original), QRgb(kRed));
        QCOMPARE(colourOf(copy), QColor(Qt::black).rgb());
    }

    void takesPicturesOfThisMachineFromItsMemory_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("isHere");
        QTest::newRow("loopback") << QStringLiteral("127.0.0.1") << true;
        QTest::newRow("another loopback address") << QStringLiteral("127.0.0.2") << true;
        QTest::newRow("loopback, IPv6") << QStringLiteral("::1") << true;
        QTest::newRow("another machine") << QStringLiteral("192.0.2.1") << false;
        QTest::newRow("no address") << QStringLiteral("nowhere") << false;
    }
    void takesPicturesOfThisMachineFromItsMemory()
    {
        QFETCH(QString, address);
        QTEST(PictureHost::at(address).isThisMachine(), "isHere");
    }
};

WZ_TEST_CLASS(tst_FeedPicture)
#include "tst_FeedPicture.moc"
