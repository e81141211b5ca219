#include "Ratios.h"

#include "network/FrameStream.h"
#include "network/JsonObjectWriter.h"
#include "network/NetworkConnection.h"
#include "network/RawDataPacketFactory.h"
#include "network/RawDataPacketRegistry.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "support/Frames.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QHostAddress>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>

#include <cstring>
#include <memory>
#include <random>

namespace {

constexpr int kFramesPerRound = 100;
constexpr qint64 kFrameSizeLimit = 64 * 1024 * 1024;

/// A packet of about 300 bytes as the datacores send them.
QByteArray datacoreText()
{
    return JsonObjectWriter()
        .string("Class", QStringLiteral("DatacorePacket"))
        .string("ClientID", QStringLiteral("213070643329440"))
        .raw("Datacore",
             QByteArrayLiteral("{\"graticuleBrightness\":{\"class\":\"DatacoreNumber\",\"data\":\"75\","
                               "\"reasonsForBeingInactive\":[],\"reasonsForBeingInvalid\":[]}}"))
        .integer("PacketID", 12)
        .string("Path", QStringLiteral("configCoreRouter/analyser/waveform/display/graticuleBrightness"))
        .take();
}

class ClassNameReader : public SerialisableDataPacketAcceptorInterface {
public:
    bool canAcceptPacket(const QString&) const override { return true; }
    void acceptPacket(const SerialisableDataPacket& packet) override
    {
        benchmark::DoNotOptimize(packet.getPacketClassName());
        if (onPacket)
            onPacket();
    }
    std::function<void()> onPacket;
};

qint64 feed(FrameStream& stream, const QByteArray& bytes)
{
    return stream.append(bytes.size(), [&](char* data, qint64 size) {
        std::memcpy(data, bytes.constData(), static_cast<size_t>(size));
        return size;
    });
}

void deliverSerialisable(benchmark::State& state)
{
    SerialisableDataPacketDistributor distributor;
    ClassNameReader reader;
    distributor.registerPacketAcceptor(&reader, QStringLiteral("DatacorePacket"));
    const auto& registry = RawDataPacketRegistry::getInstance();
    const QByteArray bytes = Frames::json(datacoreText()).repeated(kFramesPerRound);
    FrameStream stream("benchmark", kFrameSizeLimit, bytes.size());
    for (auto _ : state) {
        feed(stream, bytes);
        stream.consumeFrames([&](FrameScanner& scanner) {
            registry.deliver(scanner.header().packetIdentifier,
                             RawDataPacketFactory::createPacket(scanner.frame(), scanner.header()));
            return true;
        });
    }
    state.SetItemsProcessed(state.iterations() * kFramesPerRound);
}
BENCHMARK(deliverSerialisable);

void parseWithQt(benchmark::State& state)
{
    const QByteArray text = datacoreText();
    for (auto _ : state) {
        for (int i = 0; i < kFramesPerRound; ++i)
            benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
    }
    state.SetItemsProcessed(state.iterations() * kFramesPerRound);
}
BENCHMARK(parseWithQt);

void writeSerialisable(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(datacoreText());
}
BENCHMARK(writeSerialisable);

void writeWithQt(benchmark::State& state)
{
    const QJsonObject object = QJsonDocument::fromJson(datacoreText()).object();
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
BENCHMARK(writeWithQt);

QByteArray rawFrames()
{
    return Frames::raw(RawDataPacket::PID_TELETEXT, QByteArray(1280, 'x')).repeated(kFramesPerRound);
}

void skipRawFrames(benchmark::State& state)
{
    const QByteArray bytes = rawFrames();
    FrameStream stream("benchmark", kFrameSizeLimit, bytes.size());
    const auto& registry = RawDataPacketRegistry::getInstance();
    int wanted = 0;
    for (auto _ : state) {
        feed(stream, bytes);
        stream.consumeFrames([&](FrameScanner& scanner) {
            wanted += registry.hasReceivers(scanner.header().packetIdentifier);
            return true;
        });
    }
    benchmark::DoNotOptimize(wanted);
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(skipRawFrames);

void copyRawFrames(benchmark::State& state)
{
    const QByteArray bytes = rawFrames();
    QByteArray target(bytes.size(), Qt::Uninitialized);
    for (auto _ : state) {
        std::memcpy(target.data(), bytes.constData(), static_cast<size_t>(bytes.size()));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(copyRawFrames);

QByteArray garbage()
{
    QByteArray bytes(1 << 20, Qt::Uninitialized);
    std::mt19937 random(1);
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

void scanGarbage(benchmark::State& state)
{
    const QByteArray bytes = garbage();
    FrameScanner scanner("benchmark", kFrameSizeLimit);
    for (auto _ : state) {
        scanner.begin(bytes.constData(), bytes.size());
        benchmark::DoNotOptimize(scanner.next());
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(scanGarbage);

void searchGarbage(benchmark::State& state)
{
    const QByteArray bytes = garbage();
    const QByteArray magic = Frames::header(0x1010, 0).left(8);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            memmem(bytes.constData(), static_cast<size_t>(bytes.size()), magic.constData(), 8));
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(searchGarbage);

/// A listening server and the socket of the client that has connected to it.
std::unique_ptr<QTcpSocket> accept(QTcpServer& server)
{
    server.waitForNewConnection(5000);
    return std::unique_ptr<QTcpSocket>(server.nextPendingConnection());
}

/// One frame to the other end and one back, through two connections in one event loop.
void roundTrip(benchmark::State& state)
{
    SerialisableDataPacketDistributor distributor;
    ClassNameReader reader;
    distributor.registerPacketAcceptor(&reader, QStringLiteral("DatacorePacket"));
    const auto packet = SerialisableDataPacket::fromCompactJson(datacoreText());

    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    NetworkConnection client(nullptr, false);
    client.connectToHost(QHostAddress(QHostAddress::LocalHost), server.serverPort());
    NetworkConnection serving(nullptr, true);
    serving.connectToHost(accept(server));
    QObject::connect(&serving, &NetworkConnection::serialisablePacketReceived, [&](const auto& received) {
        benchmark::DoNotOptimize(received->getPacketClassName());
        serving.acceptPacket(packet);
    });
    bool answered = false;
    reader.onPacket = [&] { answered = true; };
    for (auto _ : state) {
        answered = false;
        client.acceptPacket(packet);
        while (!answered)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}
BENCHMARK(roundTrip);

void bareRoundTrip(benchmark::State& state)
{
    const QByteArray frame = Frames::json(datacoreText());
    const auto send = [&](QTcpSocket& socket) {
        socket.write(frame.constData(), 16);
        socket.write(frame.constData() + 16, frame.size() - 20);
        socket.write(frame.constData() + frame.size() - 4, 4);
        socket.flush();
    };
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    QTcpSocket client;
    client.connectToHost(QHostAddress::LocalHost, server.serverPort());
    client.waitForConnected(5000);
    const auto serving = accept(server);
    QObject::connect(serving.get(), &QTcpSocket::readyRead, [&] {
        if (serving->bytesAvailable() < frame.size())
            return;
        benchmark::DoNotOptimize(serving->readAll());
        send(*serving);
    });
    bool answered = false;
    QObject::connect(&client, &QTcpSocket::readyRead, [&] {
        if (client.bytesAvailable() < frame.size())
            return;
        benchmark::DoNotOptimize(client.readAll());
        answered = true;
    });
    for (auto _ : state) {
        answered = false;
        send(client);
        while (!answered)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}
BENCHMARK(bareRoundTrip);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    return runBenchmarks(
        argc, argv,
        {{"300-byte frames to an acceptor, against Qt's parser alone", "deliverSerialisable", "parseWithQt",
          3.0},
         {"writing a packet's text, against Qt's writer", "writeSerialisable", "writeWithQt", 3.0},
         {"1.3 kB frames that nobody wants, against memcpy", "skipRawFrames", "copyRawFrames", 0.5},
         {"garbage, against memmem", "scanGarbage", "searchGarbage", 0.5},
         {"round trip of a frame, against bare sockets", "roundTrip", "bareRoundTrip", 1 / 1.3}});
}
