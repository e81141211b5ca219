#pragma once

#include "datacore/RadixTreeNode.h"

#include "network/SerialisableDataPacket.h"

#include <QStringList>

class DatacoreBase;

/// Tells a client the shape of the server's five datacore trees: names only, no values. A packet may hold any
/// of them; ask before taking one.
class DatacorePathRadixTreePacket : public SerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName{"DatacorePathRadixTreePacket", 27};
    /// Spelt otherwise than in DatacorePacket; both are on the wire.
    static constexpr QLatin1String kClientIdKey{"ClientId", 8};
    static constexpr QLatin1String kStatusKey{"StatusTreeObject", 16};
    static constexpr QLatin1String kNonPersistentConfigKey{"NonPersistentConfigTreeObject", 29};
    static constexpr QLatin1String kConfigKey{"ConfigTreeObject", 16};
    static constexpr QLatin1String kCommandKey{"CommandTreeObject", 17};
    static constexpr QLatin1String kPersistentConfigKey{"PersistentConfigTreeObject", 26};

    /// The roots of the trees that a packet is made of; null leaves a tree out.
    struct Roots {
        const DatacoreBase* command = nullptr;
        const DatacoreBase* config = nullptr;
        const DatacoreBase* nonPersistentConfig = nullptr;
        const DatacoreBase* persistentConfig = nullptr;
        const DatacoreBase* status = nullptr;
    };

    DatacorePathRadixTreePacket();
    explicit DatacorePathRadixTreePacket(QString typeName);

    /// What the setters would make, written without building a QJsonObject.
    static DatacorePathRadixTreePacket fromRoots(const QString& clientId, const Roots& roots);

    void setDestinationClientId(const QString& clientId) { setValue(kClientIdKey, clientId); }
    QString getDestinationClientId() const { return stringMember(kClientIdKey); }
    bool containsClientId() const { return containsMember(kClientIdKey); }

    void setStatusTree(const DatacoreBase& root) { setTree(kStatusKey, root); }
    void setNonPersistentConfigTree(const DatacoreBase& root) { setTree(kNonPersistentConfigKey, root); }
    void setConfigTree(const DatacoreBase& root) { setTree(kConfigKey, root); }
    void setCommandTree(const DatacoreBase& root) { setTree(kCommandKey, root); }
    void setPersistentConfigTree(const DatacoreBase& root) { setTree(kPersistentConfigKey, root); }

    bool containsStatusTree() const { return containsMember(kStatusKey); }
    bool containsNonPersistentConfigTree() const { return containsMember(kNonPersistentConfigKey); }
    bool containsConfigTree() const { return containsMember(kConfigKey); }
    bool containsCommandTree() const { return containsMember(kCommandKey); }
    bool containsPersistentConfigTree() const { return containsMember(kPersistentConfigKey); }

    /// A tree that is refused for its size, with an error line, or is not there, reads as one nameless node.
    RadixTreeNode getRootNodeForStatusTree() const { return tree(kStatusKey); }
    RadixTreeNode getRootNodeForNonPersistentConfigTree() const { return tree(kNonPersistentConfigKey); }
    RadixTreeNode getRootNodeForConfigTree() const { return tree(kConfigKey); }
    RadixTreeNode getRootNodeForCommandTree() const { return tree(kCommandKey); }
    RadixTreeNode getRootNodeForPersistentConfigTree() const { return tree(kPersistentConfigKey); }

    /// The paths of all nodes of all trees, in the order in which a mirror takes the trees. A tree that is
    /// refused, or whose root has no name, is left out.
    QStringList getAllPaths() const;

    QJsonObject getDatacoreAsObjectContainingAllOfItsChildren(const DatacoreBase& datacore) const;
    RadixTreeNode getRadixTreeFromJson(const QJsonObject& json) const;

private:
    explicit DatacorePathRadixTreePacket(const SerialisableDataPacket& packet);

    void setTree(QLatin1String key, const DatacoreBase& root);
    RadixTreeNode tree(QLatin1String key) const;
    QStringList paths(QLatin1String key) const;
};
