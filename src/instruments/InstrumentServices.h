#pragma once

#include "types/Device.h"

class ClientDatacoreRegistry;
class ClientFigures;
class DatacoreGuiConnectionsManager;
class DatacoreModelConnectionsManager;
class EventLogModel;
class WzClientSequencePackagedLogPacketHandler;

/// What the application lends to instruments when it makes them.
struct InstrumentServices {
    ClientDatacoreRegistry& registry;
    DatacoreGuiConnectionsManager& guiConnections;
    DatacoreModelConnectionsManager& modelConnections;
    WzClientSequencePackagedLogPacketHandler& eventLog;
    Velmora::Wz::Device device;
    EventLogModel& events;
    ClientFigures& figures;
};
