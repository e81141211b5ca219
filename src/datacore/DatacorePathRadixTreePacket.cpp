#include "datacore/DatacorePathRadixTreePacket.h"

#include "datacore/DatacoreBase.h"
#include "datacore/QtJsonView.h"
#include "datacore/RadixTreeReader.h"

#include <QJsonArray>

DatacorePathRadixTreePacket::DatacorePathRadixTreePacket()
    : DatacorePathRadixTreePacket(kClassName)
{
}

DatacorePathRadixTreePacket::DatacorePathRadixTreePacket(QString typeName)
    : SerialisableDataPacket(typeName)
{
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
