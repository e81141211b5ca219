#include "feed/PictureFeedServer.h"
#include "feed/SegmentNames.h"
#include "feed/SharedPictureWriter.h"
#include "feed/TcpPictureReader.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

#include <algorithm>
#include <functional>
#include <memory>

#include <unistd.h>

using namespace Velmora::Feed;
using namespace std::chrono_literals;

using Result = PictureReader::Result;
using State = PictureReader::State;
using Damage = std::function<void(QByteArray&)>;

Q_DECLARE_METATYPE(Damage)

namespace {

constexpr QSize kSize{160, 90};

int instrumentPort()
{
    return static_cast<int>(::getpid()) + 200000;
}

void write(SharedPictureWriter& writer, QSize size = kSize)
{
    const PictureBuffer buffer = writer.begin(size.width(), size.height());
    for (int y = 0; y < buffer.height; ++y)
        for (int x = 0; x < buffer.width; ++x)
            buffer.pixels[y * buffer.stride + x] = static_cast<std::uint32_t>(writer.frame() + 1) << 8;
    writer.publish(5ns);
}

/// A reply whose rows lie apart, as they do in shared memory.
QByteArray replyOf(QSize size, std::uint64_t frame)
{
    const std::ptrdiff_t stride = size.width() + 7;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(stride * size.height()), 0x01020304);
    return FeedReply::serialise({pixels.data(), size.width(), size.height(), stride, frame, 9ns}, false);
}

} // namespace

class tst_TcpPictures : public WzTest {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void bringsTheNewestPicture();
    void adaptsToTheWindow();
    void tellsThatTheWriterIsGone();
    void keepsNothingForASlowReader();
    void survivesItsServer();
    void cutsOffWhatIsNoReader();
    void cutsTheStreamAnywhere();
    void refusesDamagedReplies_data();
    void refusesDamagedReplies();
    void survivesAServerThatSendsRubbish();

private:
    std::unique_ptr<TcpPictureReader> makeReader(QSize size = kSize);

    std::unique_ptr<PictureFeedServer> m_server;
    std::unique_ptr<SharedPictureWriter> m_writer;
};

void tst_TcpPictures::init()
{
    WzTest::init();
    m_server = std::make_unique<PictureFeedServer>(instrumentPort());
    QVERIFY(m_server->listen(QHostAddress::LocalHost, 0));
    m_writer = std::make_unique<SharedPictureWriter>(SegmentNames::nameOf(instrumentPort(), "w"));
}

void tst_TcpPictures::cleanup()
{
    m_writer.reset();
    m_server.reset();
    WzTest::cleanup();
}

std::unique_ptr<TcpPictureReader> tst_TcpPictures::makeReader(QSize size)
{
    return std::make_unique<TcpPictureReader>(QHostAddress::LocalHost, m_server->port(), "w", size);
}

void tst_TcpPictures::bringsTheNewestPicture()
{
    const auto reader = makeReader();
    QCOMPARE(reader->state(), State::NoPicture);
    for (int i = 0; i < 50; ++i) {
        write(*m_writer);
        if (i % 7 == 0)
            QTest::qWait(1);
    }
    std::uint64_t frame = 0;
    const auto draw = [&](const PictureView& picture) {
        QCOMPARE(QSize(picture.width, picture.height), kSize);
        QCOMPARE(picture.pixels[picture.stride * 89 + 159], static_cast<std::uint32_t>(picture.frame) << 8);
        QCOMPARE(picture.timeStamp, std::chrono::nanoseconds(5));
        frame = picture.frame;
    };
    QTRY_VERIFY((reader->read(draw), frame == 50));
    QCOMPARE(reader->read(draw), Result::Unchanged);
    QCOMPARE(reader->state(), State::Live);
}

void tst_TcpPictures::adaptsToTheWindow()
{
    const auto reader = makeReader(QSize(80, 200));
    write(*m_writer);
    QSize size;
    const auto draw = [&](const PictureView& picture) { size = {picture.width, picture.height}; };
    QTRY_VERIFY((reader->read(draw), size == QSize(80, 90)));
    // Without a newer picture, too.
    reader->setSize(QSize(1000, 1000));
    QTRY_VERIFY((reader->read(draw), size == kSize));
}

void tst_TcpPictures::tellsThatTheWriterIsGone()
{
    const auto reader = makeReader();
    write(*m_writer);
    QTRY_COMPARE(reader->state(), State::Live);
    m_writer.reset();
    QTRY_COMPARE(reader->state(), State::Stale);
    QCOMPARE(reader->read([](const PictureView&) {}), Result::Drawn);
    // Another writer begins its count anew.
    m_writer = std::make_unique<SharedPictureWriter>(SegmentNames::nameOf(instrumentPort(), "w"));
    write(*m_writer);
    QTRY_COMPARE(reader->state(), State::Live);
    QCOMPARE(reader->read([](const PictureView& picture) { QCOMPARE(picture.frame, std::uint64_t{1}); }),
             Result::Drawn);
}

void tst_TcpPictures::keepsNothingForASlowReader()
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_server->port());
    QVERIFY(socket.waitForConnected());
    const auto ask = [&] {
        socket.write(FeedRequest{"w", kSize, false}.serialise());
        socket.flush();
    };
    write(*m_writer);
    ask();
    QTRY_VERIFY(socket.bytesAvailable() > 0);
    const auto afterOne = socket.bytesAvailable();
    for (int i = 0; i < 100; ++i) {
        write(*m_writer);
        QTest::qWait(1);
    }
    QCOMPARE(socket.bytesAvailable(), afterOne);
    ask();
    FeedReplyParser parser;
    std::uint64_t newest = 0;
    QTRY_VERIFY([&] {
        if (!parser.append(socket.readAll()))
            return false;
        while (const auto reply = parser.next())
            newest = reply->frame;
        return newest == 101;
    }());
}

void tst_TcpPictures::survivesItsServer()
{
    const auto reader = makeReader();
    write(*m_writer);
    QTRY_COMPARE(reader->state(), State::Live);
    const quint16 port = m_server->port();
    m_server.reset();
    QTRY_COMPARE(reader->state(), State::Stale);
    m_server = std::make_unique<PictureFeedServer>(instrumentPort());
    QVERIFY(m_server->listen(QHostAddress::LocalHost, port));
    QTRY_COMPARE_WITH_TIMEOUT(reader->state(), State::Live, 10000);
}

void tst_TcpPictures::cutsOffWhatIsNoReader()
{
    const QByteArray good = FeedRequest{"w", kSize, false}.serialise();
    const auto changed = [&](int byte, char value) {
        QByteArray bytes = good;
        bytes[byte] = value;
        return bytes;
    };
    for (const QByteArray& bytes :
         {QByteArray("GET / HTTP/1.1\r\nHost: localhost\r\nAccept: text/html\r\n\r\n"), changed(5, 2),
          changed(11, 33), changed(14, '/'), changed(11, 0)}) {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_server->port());
        QVERIFY(socket.waitForConnected());
        socket.write(bytes);
        QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
    }
}

void tst_TcpPictures::cutsTheStreamAnywhere()
{
    const QByteArray stream = replyOf({5, 3}, 1) + FeedReply::serialise({}, true) + replyOf({1, 1}, 2);
    for (int piece = 1; piece <= stream.size(); ++piece) {
        FeedReplyParser parser;
        std::vector<FeedReply> replies;
        for (int offset = 0; offset < stream.size(); offset += piece) {
            QVERIFY(parser.append(stream.mid(offset, piece)));
            while (auto reply = parser.next())
                replies.push_back(std::move(*reply));
        }
        QCOMPARE(replies.size(), std::size_t{3});
        QCOMPARE(replies[0].pixels, std::vector<std::uint32_t>(15, 0x01020304));
        QVERIFY(replies[1].isStale && replies[1].pixels.empty());
        QCOMPARE(replies[2].frame, std::uint64_t{2});
    }
}

/// Puts a number over the bytes at @p offset.
template<typename Number>
void overwrite(QByteArray& bytes, int offset, Number number)
{
    const Number bigEndian = qToBigEndian(number);
    bytes.replace(offset, int{sizeof bigEndian}, reinterpret_cast<const char*>(&bigEndian),
                  int{sizeof bigEndian});
}

void tst_TcpPictures::refusesDamagedReplies_data()
{
    constexpr int kPayload = FeedReply::kHeaderBytes;
    QTest::addColumn<Damage>("damage");
    const auto row = [](const char* name, const Damage& damage) { QTest::newRow(name) << damage; };
    row("magic", [](QByteArray& reply) { reply[0] = 'X'; });
    row("version", [](QByteArray& reply) { reply[5] = 9; });
    row("no width", [](QByteArray& reply) { overwrite<quint16>(reply, 8, 0); });
    row("too wide", [](QByteArray& reply) { overwrite<quint16>(reply, 8, 65535); });
    row("too large", [](QByteArray& reply) { overwrite<quint32>(reply, 8, 0x1FFF1FFF); });
    row("one row more", [](QByteArray& reply) { reply[11] = static_cast<char>(reply[11] + 1); });
    row("one row less", [](QByteArray& reply) { reply[11] = static_cast<char>(reply[11] - 1); });
    row("payload larger than could be", [](QByteArray& reply) { overwrite<quint32>(reply, 28, ~0U); });
    row("payload cut", [](QByteArray& reply) { reply[31] = static_cast<char>(reply[31] - 1); });
    row("payload damaged", [](QByteArray& reply) { reply[kPayload] = 0; });
}

void tst_TcpPictures::refusesDamagedReplies()
{
    QFETCH(Damage, damage);
    QByteArray reply = replyOf({40, 30}, 1);
    damage(reply);
    FeedReplyParser parser;
    QVERIFY(parser.append(reply + QByteArray(1000, '\0')));
    QVERIFY(!parser.next());
    QVERIFY(parser.isDamaged());
    QVERIFY(!parser.append(replyOf({40, 30}, 1)));
    parser.clear();
    QVERIFY(parser.append(replyOf({40, 30}, 1)));
    QVERIFY(parser.next().has_value());
}

void tst_TcpPictures::survivesAServerThatSendsRubbish()
{
    QTcpServer rubbish;
    QVERIFY(rubbish.listen(QHostAddress::LocalHost));
    int connections = 0;
    connect(&rubbish, &QTcpServer::newConnection, this, [&] {
        ++connections;
        rubbish.nextPendingConnection()->write(QByteArray(5000, 'x'));
    });
    TcpPictureReader reader(QHostAddress::LocalHost, rubbish.serverPort(), "w", kSize);
    QTRY_COMPARE_WITH_TIMEOUT(connections, 2, 10000);
    QCOMPARE(reader.state(), State::NoPicture);
}

WZ_TEST_CLASS(tst_TcpPictures)
#include "tst_TcpPictures.moc"
