#pragma once

#include "commands/NumberedCommand.h"
#include "network/events/EventKind.h"

#include <functional>
#include <map>

class DatacoreBase;

namespace Velmora::Server {

class DatacoreService;
class EventService;
class InstrumentTrees;

/// The numbered commands that the instrument carries out. One that it cannot is answered by a node that is
/// invalid.
class InstrumentCommands {
public:
    InstrumentCommands(InstrumentTrees& trees, DatacoreService& datacores, EventService& events);

    /// For what other parts of the instrument do.
    void add(NumberedCommand command, std::function<void()> action);

private:
    using Action = std::function<bool()>;

    void addLogs();
    void addInputs();
    void addLog(NumberedCommand command, EventKind kind);
    bool sendLog(EventKind kind);
    bool selectSource(int position);
    void execute(DatacoreBase& node);

    InstrumentTrees& m_trees;
    DatacoreService& m_datacores;
    EventService& m_events;
    std::map<int, Action> m_actions;
};

} // namespace Velmora::Server
