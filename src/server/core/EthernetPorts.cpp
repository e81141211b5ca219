#include "server/core/EthernetPorts.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/EthernetAddressValue.h"
#include "network/events/IpInterfacesEventPacket.h"
#include "server/core/DatacoreService.h"
#include "server/core/EventService.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

/// What ports have that nobody has set: networks of their own, without gateway and name servers.
EthernetAddressValue firstAddress(std::size_t port)
{
    EthernetAddressValue value;
    value.address = *IpAddressV4Value::fromText(QStringLiteral("192.168.%1.10").arg(port + 1));
    value.maskLength = 24;
    return value;
}

} // namespace

EthernetPorts::EthernetPorts(InstrumentTrees& trees, DatacoreService& datacores, EventService& events)
    : m_events(events)
{
    for (std::size_t port = 0; port < ElementPaths::VelmEth::kAddresses.size(); ++port)
        addPort(port, trees, datacores);
}

void EthernetPorts::addPort(std::size_t port, InstrumentTrees& trees, DatacoreService& datacores)
{
    auto& addresses = trees.add<DatacoreEthernetAddress>(
        Tree::PersistentConfiguration, ElementPaths::VelmEth::kAddresses.at(port), firstAddress(port));
    auto& present = trees.add<DatacoreEthernetAddress>(
        Tree::Status, ElementPaths::VelmEthStatus::kAddresses.at(port), firstAddress(port));
    datacores.onWritten(addresses, [this, port, &addresses, &present] {
        const QStringList items = addresses.getDataList();
        if (items == present.getDataList())
            return;
        present.setDataList(items);
        m_events.raise(IpInterfacesEventPacket(QStringLiteral("velmeth%1 is set to %2/%3")
                                                   .arg(QString::number(port), items.at(0), items.at(1))));
    });
}

} // namespace Velmora::Server
