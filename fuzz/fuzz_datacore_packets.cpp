// A session of packets, one after the other behind a zero byte, given to a mirror: the packets say of their
// text what Qt says, every node is found at its path alone, and echoes settle writes as in a plain model.

#include "Check.h"
#include "datacore/ClientDatacore.h"
#include "datacore/DatacorePathRadixTreePacket.h"
#include "datacore/WzClientDatacoreManager.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QPointer>

#include <algorithm>
#include <cstdint>

namespace {

SerialisableDataPacket received(const QByteArray& text)
{
    RawDataPacket::Header header;
    header.packetIdentifier = RawDataPacket::PID_SERIALISABLE_DATA;
    header.payloadSize = static_cast<quint32>(text.size() + 4);
    return SerialisableDataPacket(QByteArray(RawDataPacket::kHeaderSize + 4, '\0') + text, header);
}

void saysWhatQtSays(const DatacorePacket& packet, const QJsonObject& json)
{
    FUZZ_CHECK(packet.getClientID() == json.value(QLatin1String("ClientID")).toString());
    FUZZ_CHECK(packet.getPacketID() == json.value(QLatin1String("PacketID")).toInt());
    FUZZ_CHECK(packet.containsPacketID() == json.contains(QLatin1String("PacketID")));
    FUZZ_CHECK(packet.getDatacorePath() == json.value(QLatin1String("Path")).toString());
    FUZZ_CHECK(packet.getDatacoreJsonObject() == json.value(QLatin1String("Datacore")).toObject());
}

void appendPaths(QStringList& paths, const QString& path, const RadixTreeNode& node)
{
    paths.append(path);
    for (const RadixTreeNode& child : node.children)
        appendPaths(paths, path + QLatin1Char('/') + child.name, child);
}

void readsTreesAlike(const SerialisableDataPacket& packet, const QJsonObject& json)
{
    bool ok = false;
    const auto trees =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<DatacorePathRadixTreePacket>(packet,
                                                                                                       ok);
    if (!ok)
        return;
    const QJsonObject tree = json.value(DatacorePathRadixTreePacket::kConfigKey).toObject();
    FUZZ_CHECK(trees.getRootNodeForConfigTree() == trees.getRadixTreeFromJson(tree));
    QStringList paths;
    if (const RadixTreeNode root = trees.getRootNodeForConfigTree(); !root.name.isEmpty())
        appendPaths(paths, root.name, root);
    FUZZ_CHECK(trees.getAllPaths().mid(0, paths.size()) == paths);
    FUZZ_CHECK(trees.containsConfigTree() == json.contains(DatacorePathRadixTreePacket::kConfigKey));
}

/// Writes to a node and gives it the packet as an echo; what remains outstanding is as the model says.
void settlesAsTheModel(DatacorePacket packet, int writes)
{
    const std::unique_ptr<ClientDatacore> node(
        ClientDatacore::makeClientDatacoreRoot(packet.getDatacorePath()));
    for (int i = 0; i < writes; ++i)
        node->setDataInt(i);
    const int lost = packet.getPacketID();
    const bool isEcho = packet.containsPacketID();
    const bool isKnown = isEcho && lost >= 0 && lost < writes;
    int reported = 0;
    QObject::connect(node.get(), &ClientDatacore::lostPackets, node.get(),
                     [&](int count) { reported = count; });
    node->populateDataFromDatacorePacket(packet, true);
    FUZZ_CHECK(reported == (isKnown && lost > 0 ? lost + 1 : 0));
    FUZZ_CHECK(node->isInSyncWithServer() == (writes == 0 || (isKnown && lost == writes - 1)));
    if (isEcho && !node->isInSyncWithServer())
        FUZZ_CHECK(node->getData() == QString::number(writes - 1));
}

} // namespace

/// Qt 5.15 loses the first of two values of the same key when it is an object or an array.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);

    NetworkConnection connection(nullptr, false);
    SerialisableDataPacketDistributor distributor;
    WzClientDatacoreManager manager(connection, distributor);
    ClientDatacoreRegistry& registry = manager.getClientDatacoreRegistry();

    const QByteArray session(reinterpret_cast<const char*>(data), static_cast<int>(size));
    for (const QByteArray& text : session.split('\0')) {
        const SerialisableDataPacket packet = received(text);
        const QJsonObject json = QJsonDocument::fromJson(text).object();
        readsTreesAlike(packet, json);
        distributor.acceptPacket(packet);
        if (const auto value = DatacorePacket::fromPacket(packet)) {
            saysWhatQtSays(*value, json);
            settlesAsTheModel(*value, static_cast<int>(size % 4));
            if (ClientDatacore* const node = registry.lookupDatacoreFromPath(value->getDatacorePath())) {
                FUZZ_CHECK(node->getDatacorePathOnServer() == value->getDatacorePath());
                FUZZ_CHECK(node->getChangedStatus() == DatacoreBase::Unchanged);
                FUZZ_CHECK(node->isInSyncWithServer());
            }
        }
        if (text.isEmpty())
            registry.clearRegistry();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
