#include "datacore/DatacorePathRadixTreePacket.h"

#include "datacore/DatacoreBase.h"
#include "datacore/QtJsonView.h"
#include "datacore/RadixTreeReader.h"

#include "network/JsonObjectWriter.h"

#include <QJsonArray>

namespace {

void writeMembers(JsonObjectWriter& json, const DatacoreBase& datacore)
{
    json.string("Core", datacore.getInstanceName());
    json.beginArray("Kids");
    for (const auto& [name, child] : datacore.getChildren()) {
        json.beginItem();
        writeMembers(json, *child);
        json.endObject();
    }
    json.endArray();
}

void writeTree(JsonObjectWriter& json, QLatin1String key, const DatacoreBase* root)
{
    if (!root)
        return;
    json.beginObject(asciiView(key));
    writeMembers(json, *root);
    json.endObject();
}

} // namespace

DatacorePathRadixTreePacket::DatacorePathRadixTreePacket()
    : DatacorePathRadixTreePacket(kClassName)
{
}

DatacorePathRadixTreePacket::DatacorePathRadixTreePacket(QString typeName)
    : SerialisableDataPacket(typeName)
{
}

DatacorePathRadixTreePacket::DatacorePathRadixTreePacket(const SerialisableDataPacket& packet)
    : SerialisableDataPacket(packet)
{
}

DatacorePathRadixTreePacket DatacorePathRadixTreePacket::fromRoots(const QString& clientId,
                                                                   const Roots& roots)
{
    JsonObjectWriter json;
    json.string(asciiView(kClassKey), kClassName);
    json.string(asciiView(kClientIdKey), clientId);
    writeTree(json, kCommandKey, roots.command);
    writeTree(json, kConfigKey, roots.config);
    writeTree(json, kNonPersistentConfigKey, roots.nonPersistentConfig);
    writeTree(json, kPersistentConfigKey, roots.persistentConfig);
    writeTree(json, kStatusKey, roots.status);
    return DatacorePathRadixTreePacket(fromCompactJson(json.take(), kClassName));
}

QJsonObject
DatacorePathRadixTreePacket::getDatacoreAsObjectContainingAllOfItsChildren(const DatacoreBase& datacore) const
{
    QJsonArray children;
    for (const auto& [name, child] : datacore.getChildren())
        children.append(getDatacoreAsObjectContainingAllOfItsChildren(*child));
    return {{QStringLiteral("Core"), datacore.getInstanceName()}, {QStringLiteral("Kids"), children}};
}

RadixTreeNode DatacorePathRadixTreePacket::getRadixTreeFromJson(const QJsonObject& json) const
{
    return RadixTreeReader().read(QtJsonView(json)).value_or(RadixTreeNode());
}

QStringList DatacorePathRadixTreePacket::getAllPaths() const
{
    QStringList all;
    for (const QLatin1String key :
         {kConfigKey, kStatusKey, kNonPersistentConfigKey, kCommandKey, kPersistentConfigKey}) {
        const QStringList found = containsMember(key) ? paths(key) : QStringList();
        if (!found.isEmpty() && !found.first().isEmpty())
            all += found;
    }
    return all;
}

void DatacorePathRadixTreePacket::setTree(QLatin1String key, const DatacoreBase& root)
{
    setValue(key, getDatacoreAsObjectContainingAllOfItsChildren(root));
}

RadixTreeNode DatacorePathRadixTreePacket::tree(QLatin1String key) const
{
    const JsonView members = view();
    if (members.isAbsent())
        return getRadixTreeFromJson(object().value(key).toObject());
    const JsonView found = members.member(asciiView(key));
    return RadixTreeReader().read(found).value_or(RadixTreeNode());
}

QStringList DatacorePathRadixTreePacket::paths(QLatin1String key) const
{
    const JsonView members = view();
    return members.isAbsent() ? RadixTreeReader().readPaths(QtJsonView(object().value(key).toObject()))
                              : RadixTreeReader().readPaths(members.member(asciiView(key)));
}
