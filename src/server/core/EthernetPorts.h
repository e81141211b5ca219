#pragma once

#include <QStringList>

#include <cstddef>

namespace Velmora::Server {

class DatacoreService;
class EventService;
class InstrumentTrees;

/// The elements of the two Ethernet ports. They keep and publish addresses; the network of the machine that
/// this instrument runs on stays as it is.
class EthernetPorts {
public:
    EthernetPorts(InstrumentTrees& trees, DatacoreService& datacores, EventService& events);

private:
    void addPort(std::size_t port, InstrumentTrees& trees, DatacoreService& datacores);

    EventService& m_events;
};

} // namespace Velmora::Server
