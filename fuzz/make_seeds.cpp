// Writes the seed corpora: make_seeds FOLDER makes FOLDER/TARGET/* for every target.

#include "datacore/DatacoreBase.h"
#include "datacore/DatacorePacket.h"
#include "datacore/DatacorePathRadixTreePacket.h"
#include "feed/FeedMessages.h"
#include "feed/SegmentHeader.h"
#include "network/JsonObjectWriter.h"
#include "network/SerialisableDataPacket.h"
#include "network/events/NMOSEventPacket.h"
#include "network/events/PtpEventPacket.h"
#include "network/events/RestApiRequestEventPacket.h"
#include "network/events/SdiInputRateChangeEventPacket.h"
#include "network/events/SdiJitterAlignmentRangeConformanceEventPacket.h"
#include "network/events/SdiJitterTimingRangeConformanceEventPacket.h"
#include "network/events/SequencePackagedLogPacket.h"
#include "network/events/SfpEventPacket.h"
#include "network/packets/AesPresenceDataPacket.h"
#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/PpmMetersData.h"
#include "network/packets/RegisterRawDataPacket.h"
#include "support/Frames.h"
#include "types/sdi/SupportedVideoStandards.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

void write(const QString& folder, const char* target, const QByteArray& bytes)
{
    static int number = 0;
    const QDir directory(folder + QLatin1Char('/') + QLatin1String(target));
    QFile file(directory.filePath(QString::number(++number)));
    if (!directory.mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly) || file.write(bytes) < 0) {
        std::fprintf(stderr, "make_seeds: cannot write %s\n", qPrintable(file.fileName()));
        std::exit(1);
    }
}

/// A few identifiers of each family, and a word of each byte-1 value.
void writePayloadIdentifiers(const QString& folder)
{
    const Velmora::Sdi::SupportedVideoStandards supported;
    const auto& standards = supported.getSupportedAnalyserStandards();
    constexpr size_t kSeeds = 40;
    for (size_t i = 0; i < kSeeds; ++i) {
        QByteArray bytes(4, '\0');
        const auto words = standards.at(i * standards.size() / kSeeds)->getPayloadIdentifierWords();
        qToBigEndian<quint32>(words.front(), bytes.data());
        write(folder, "fuzz_payload_identifier", bytes);
    }
}

/// Channel status blocks, professional and consumer, each behind the flags byte that the target expects last.
void writeChannelStatus(const QString& folder)
{
    for (const char* start : {"9f8504", "85080000", "0400", "010000"}) {
        QByteArray block = QByteArray::fromHex(start);
        block.append(25 - block.size(), '\0');
        block[24] = 1;
        write(folder, "fuzz_channel_status", block);
    }
}

/// A stream of pictures and a request behind the byte that chooses the pieces; a segment's header with one
/// slot.
void writeFeedSeeds(const QString& folder)
{
    using namespace Velmora::Feed;
    const std::vector<std::uint32_t> pixels(60, 0x80402010);
    const QByteArray stream = FeedReply::serialise({pixels.data(), 8, 6, 10, 7, {}}, false)
        + FeedReply::serialise({}, true) + FeedReply::serialise({pixels.data(), 1, 1, 1, 8, {}}, false);
    write(folder, "fuzz_feed_replies", "\x05" + stream);
    write(folder, "fuzz_feed_replies", "\x01" + FeedRequest{"waveform-1", {480, 270}, true}.serialise());

    struct {
        SegmentLayout layout;
        SlotValues slot;
        std::uint64_t segmentBytes = 4096 + 4 * 8192;
    } segment;
    segment.layout = {SegmentLayout::kMagic,
                      SegmentLayout::kVersion,
                      4,
                      SegmentLayout::kArgb32Premultiplied,
                      0,
                      8192,
                      4096};
    segment.slot = {2, 30, 32, 256, 9, 0};
    write(folder, "fuzz_feed_segment", QByteArray(reinterpret_cast<const char*>(&segment), sizeof(segment)));
}

/// The nodes that fuzz_datacore_node reads, and sessions of the tree that they are, of a value and of echoes.
void writeDatacoreSeeds(const QString& folder)
{
    DatacoreBase root(QStringLiteral("C"), QStringLiteral("n"), nullptr, QStringLiteral("2"));
    DatacoreBase child(QStringLiteral("c"), &root,
                       std::deque<QString>{QStringLiteral("1"), QStringLiteral("3")});
    child.setValid({DatacoreValidStatusMessage(6), DatacoreValidStatusMessage(7)});
    root.setActive({DatacoreActiveStatusMessage(2)});
    QJsonObject json;
    std::list<DatacoreJsonMessage> messages;
    for (const bool skipStatus : {false, true}) {
        for (const bool includeChildren : {false, true}) {
            root.appendDataToJson(QString(), json, skipStatus, includeChildren, messages);
            write(folder, "fuzz_datacore_node", SerialisableDataPacket::fromJson(json).serialise());
        }
    }

    // Items of typed nodes, which a mutation hardly finds by itself.
    const char* const kItems[] = {"false|85CA8001",
                                  "1920|1080|YCbCr-4:2:2|10|NARROW|BT709|false|false|SDR|50|1|true|true",
                                  "1920|1080|RGB|16f|FULL|BT2100|true|true|PQ|30000|1001",
                                  "7|1|3600.5|0.04",
                                  "239.1.2.3|10.0.0.1|5004|true",
                                  "00:1a:2b:3c:4d:5e|true",
                                  "0|Main|7|0|27|true",
                                  "true|-7.5|109.2|#00ff00"};
    for (const char* items : kItems) {
        DatacoreBase typed(QStringLiteral("C"), QStringLiteral("n"), nullptr);
        typed.setDataList(QString::fromLatin1(items).split(QLatin1Char('|')));
        QJsonObject object;
        typed.appendDataToJson(QString(), object, true, false, messages);
        write(folder, "fuzz_datacore_node", SerialisableDataPacket::fromJson(object).serialise());
    }

    DatacorePathRadixTreePacket trees;
    trees.setConfigTree(root);
    trees.setCommandTree(child);
    const QByteArray value = DatacorePacket(json, QStringLiteral("n")).serialise();
    const auto echo = [&](int packetId) {
        return DatacorePacket::fromNode(child, QStringLiteral("n/c"), true,
                                        DatacorePacket::Writer{QStringLiteral("1"), packetId})
            .serialise();
    };
    const QByteArray separator(1, '\0');
    write(folder, "fuzz_datacore_packets", trees.serialise() + separator + value + separator + echo(0));
    write(folder, "fuzz_datacore_packets",
          trees.serialise() + separator + separator + trees.serialise() + separator + echo(1) + separator
              + echo(3));
}

/// Events of each way of making a text.
void writeEvents(const QString& folder)
{
    const QDateTime time(QDate(2024, 2, 29), QTime(23, 59, 59, 999));
    const auto writeEvent = [&](const LogSerialisableDataPacket& event) {
        write(folder, "fuzz_event_packets", SequencePackagedLogPacket(event, time).serialise());
    };
    const auto text = QStringLiteral("%1");
    using Rate = SdiInputRateChangeEventPacket;
    writeEvent(SfpEventPacket(text));
    writeEvent(Rate(Rate::Input::St2022_6, Rate::Rate::NoSignal));
    writeEvent(RestApiRequestEventPacket(QStringLiteral("GET"), text, QStringLiteral("127.0.0.1")));
    writeEvent(SdiJitterAlignmentRangeConformanceEventPacket(true, text));
    writeEvent(SdiJitterTimingRangeConformanceEventPacket(false, text));
    writeEvent(NMOSEventPacket(NMOSEventPacket::Event::Activated, text, text, text));
    writeEvent(PtpEventPacket(PtpEventPacket::Event::OffsetOverLimit, 127, text, text));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);

    writeDatacoreSeeds(folder);
    writeEvents(folder);

    const AudioMetersDataPacket::MeterValues values{{0, 0, 0, 0, -20.0F}, {1, 0, 0, 0, -18.5F}};
    const std::vector<std::shared_ptr<const RawDataPacket>> raw{
        std::make_shared<PpmMetersData>(values, 1, 0, 7),
        std::make_shared<RegisterRawDataPacket>(0x1013, 0x7F000001, 29442),
        std::make_shared<DeregisterRawDataPacket>(0x1013, 0x7F000001, 29442),
        std::make_shared<AesPresenceDataPacket>("presence")};

    QByteArray stream;
    for (const auto& packet : raw) {
        const auto kind = packet->getPacketIdentifier() - RawDataPacket::kFirstPacketIdentifier - 1;
        write(folder, "fuzz_raw_packets", char(kind) + packet->getSerialisedPayloadForTransmit());
        stream += Frames::of(*packet);
    }
    write(folder, "fuzz_frame_scanner", "\xFF\xFF\xFF\xFF" + stream);
    write(folder, "fuzz_frame_scanner", "\x07\x01\x20\x03" + stream.mid(5) + stream);
    write(folder, "fuzz_frame_scanner", "\x0F\x10\x11\x12" + Frames::raw(0x1011, stream, "XXXX"));

    SerialisableDataPacket nested(QStringLiteral("Outer"));
    nested.insertOtherPacketIntoThis(QStringLiteral("One"), SerialisableDataPacket(QStringLiteral("Inner")));
    nested.insertOtherPacketsIntoThis(QStringLiteral("Two"), {nested, nested});
    write(folder, "fuzz_serialisable_packet", nested.serialise());
    write(folder, "fuzz_serialisable_packet",
          JsonObjectWriter()
              .string("Class", QStringLiteral("DatacorePacket"))
              .string("ClientID", QStringLiteral("213070643329440"))
              .raw("Datacore", R"({"x":{"class":"","data":["1","2"],"reasonsForBeingInvalid":[]}})")
              .integer("PacketID", 12)
              .string("Path", QStringLiteral("configCoreRouter/a/\u00e4\n"))
              .take());

    writePayloadIdentifiers(folder);
    writeChannelStatus(folder);
    writeFeedSeeds(folder);
    return 0;
}
