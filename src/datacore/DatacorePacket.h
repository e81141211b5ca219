#pragma once

#include "datacore/DatacoreJsonMessage.h"

#include "network/SerialisableDataPacket.h"

#include <list>
#include <optional>

class DatacoreBase;

/// Carries the JSON of one datacore node at one path, in either direction.
class DatacorePacket : public SerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName{"DatacorePacket", 14};
    /// Spelt otherwise than in DatacorePathRadixTreePacket; both are on the wire.
    static constexpr QLatin1String kClientIdKey{"ClientID", 8};
    static constexpr QLatin1String kPacketIdKey{"PacketID", 8};
    static constexpr QLatin1String kPathKey{"Path", 4};
    static constexpr QLatin1String kDatacoreKey{"Datacore", 8};

    /// Which write of which client a packet is, or answers.
    struct Writer {
        QString clientId;
        int packetId = 0;
    };

    DatacorePacket();
    explicit DatacorePacket(QString typeName);
    DatacorePacket(QJsonObject datacore, QString path);
    DatacorePacket(QString clientId, int packetId, QJsonObject datacore, QString path);

    /// The node's own data without its children, written without building a QJsonObject.
    static DatacorePacket fromNode(const DatacoreBase& node, const QString& path, bool skipStatus,
                                   const std::optional<Writer>& writer = std::nullopt);
    /// The packet as a DatacorePacket; nothing when it is of another class.
    static std::optional<DatacorePacket> fromPacket(const SerialisableDataPacket& packet);

    void setClientID(const QString& clientId) { setValue(kClientIdKey, clientId); }
    void setPacketID(int packetId) { setValue(kPacketIdKey, packetId); }
    void setDatacorePath(const QString& path) { setValue(kPathKey, path); }
    void setDatacoreJsonObject(const QJsonObject& datacore) { setValue(kDatacoreKey, datacore); }

    bool containsClientID() const { return containsMember(kClientIdKey); }
    bool containsPacketID() const { return containsMember(kPacketIdKey); }
    bool containsDatacorePath() const { return containsMember(kPathKey); }
    bool containsDatacoreObject() const { return containsMember(kDatacoreKey); }

    QString getClientID() const { return stringMember(kClientIdKey); }
    int getPacketID() const { return intMember(kPacketIdKey); }
    QString getDatacorePath() const { return stringMember(kPathKey); }
    QJsonObject getDatacoreJsonObject() const;

    /// Applies the node's JSON to @p node, straight from the received text where that will do.
    bool populate(DatacoreBase& node, bool skipStatus, std::list<DatacoreJsonMessage>& messages) const;

private:
    explicit DatacorePacket(const SerialisableDataPacket& packet);
};
