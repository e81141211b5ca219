#include "datacore/DatacorePacket.h"

#include "datacore/DatacoreBase.h"

#include "network/JsonObjectWriter.h"

DatacorePacket::DatacorePacket()
    : DatacorePacket(QString(kClassName))
{
}

DatacorePacket::DatacorePacket(QString typeName)
    : SerialisableDataPacket(typeName)
{
}

DatacorePacket::DatacorePacket(QJsonObject datacore, QString path)
    : DatacorePacket()
{
    setDatacorePath(path);
    setDatacoreJsonObject(datacore);
}

DatacorePacket::DatacorePacket(QString clientId, int packetId, QJsonObject datacore, QString path)
    : DatacorePacket(datacore, path)
{
    setClientID(clientId);
    setPacketID(packetId);
}

DatacorePacket::DatacorePacket(const SerialisableDataPacket& packet)
    : SerialisableDataPacket(packet)
{
}

DatacorePacket DatacorePacket::fromNode(const DatacoreBase& node, const QString& path, bool skipStatus,
                                        const std::optional<Writer>& writer)
{
    JsonObjectWriter json;
    json.string(asciiView(kClassKey), kClassName);
    if (writer)
        json.string(asciiView(kClientIdKey), writer->clientId);
    json.beginObject(asciiView(kDatacoreKey));
    node.writeOwnData(json, skipStatus);
    json.endObject();
    if (writer)
        json.integer(asciiView(kPacketIdKey), writer->packetId);
    json.string(asciiView(kPathKey), path);
    return DatacorePacket(fromCompactJson(json.take(), kClassName));
}

std::optional<DatacorePacket> DatacorePacket::fromPacket(const SerialisableDataPacket& packet)
{
    if (packet.getPacketClassName() != kClassName)
        return std::nullopt;
    return DatacorePacket(packet);
}

QJsonObject DatacorePacket::getDatacoreJsonObject() const
{
    return object().value(kDatacoreKey).toObject();
}

bool DatacorePacket::populate(DatacoreBase& node, bool skipStatus,
                              std::list<DatacoreJsonMessage>& messages) const
{
    const JsonView members = view();
    return members.isAbsent()
        ? node.populateDataFromJson(QString(), getDatacoreJsonObject(), skipStatus, messages)
        : node.populateDataFromView(members.member(asciiView(kDatacoreKey)), skipStatus, messages);
}
