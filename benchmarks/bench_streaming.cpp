#include "Ratios.h"

#include "network/NetworkConnection.h"
#include "network/RawDataPacketReceiverInterface.h"
#include "network/RawDataPacketRegistry.h"
#include "network/packets/TeletextRawDataPacket.h"
#include "server/core/RawDataStreamer.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QHostAddress>
#include <QUdpSocket>

namespace {

constexpr quint32 kLoopback = 0x7F000001;
constexpr quint16 kFirstPort = 29500;
constexpr int kPayloadSize = 1280;
/// Together below what a connection takes in at once, so that nothing may be lost.
constexpr int kFramesPerRound = 10;

quint16 nextPort()
{
    static quint16 port = kFirstPort;
    return port++;
}

class CountingReceiver : public RawDataPacketReceiverInterface<TeletextRawDataPacket> {
public:
    CountingReceiver()
    {
        RawDataPacketRegistry::getInstance().registerRawDataPacketReceiver(receivedPacketIdentifier(), this);
    }
    ~CountingReceiver() override
    {
        RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(receivedPacketIdentifier(),
                                                                             this);
    }
    Q_DISABLE_COPY_MOVE(CountingReceiver)

    void receivePacket(std::shared_ptr<const TeletextRawDataPacket> packet) override
    {
        count += packet->getPayloadFromPacket().size() == kPayloadSize;
    }
    int count = 0;
};

/// Waits for the frames of a round; what does not come in time is lost, and ends the benchmark.
template<typename Count>
bool waitFor(Count&& count, int expected, benchmark::State& state)
{
    for (int turns = 0; count() < expected; ++turns) {
        QCoreApplication::processEvents();
        if (turns > 100000) {
            state.SkipWithError("frames were lost");
            return false;
        }
    }
    return true;
}

void streamFrames(benchmark::State& state)
{
    const quint16 port = nextPort();
    NetworkConnection connection(nullptr, false);
    connection.listenForRawDataPackets(QHostAddress(QHostAddress::LocalHost), port);
    CountingReceiver receiver;
    Velmora::Server::RawDataStreamer streamer;
    const TeletextRawDataPacket packet(QByteArray(kPayloadSize, 't'));
    streamer.addRequest(packet.getPacketIdentifier(), {kLoopback, port});
    for (auto _ : state) {
        receiver.count = 0;
        for (int i = 0; i < kFramesPerRound; ++i)
            streamer.send(packet);
        if (!waitFor([&] { return receiver.count; }, kFramesPerRound, state))
            return;
    }
    state.SetItemsProcessed(state.iterations() * kFramesPerRound);
}
BENCHMARK(streamFrames);

void bareSockets(benchmark::State& state)
{
    const quint16 port = nextPort();
    QUdpSocket receiver;
    receiver.bind(QHostAddress(QHostAddress::LocalHost), port);
    int count = 0;
    QByteArray buffer(16384, Qt::Uninitialized);
    QObject::connect(&receiver, &QUdpSocket::readyRead, [&] {
        while (receiver.hasPendingDatagrams())
            count += receiver.readDatagram(buffer.data(), buffer.size()) > 0;
    });
    QUdpSocket sender;
    const QByteArray frame(kPayloadSize + 20, 't');
    for (auto _ : state) {
        count = 0;
        for (int i = 0; i < kFramesPerRound; ++i)
            sender.writeDatagram(frame, QHostAddress(QHostAddress::LocalHost), port);
        if (!waitFor([&] { return count; }, kFramesPerRound, state))
            return;
    }
    state.SetItemsProcessed(state.iterations() * kFramesPerRound);
}
BENCHMARK(bareSockets);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    return runBenchmarks(
        argc, argv, {{"1.3 kB frames by UDP, against bare sockets", "streamFrames", "bareSockets", 0.8}});
}
