#include "server/core/InstrumentCommands.h"

#include "datacore/ElementPaths.h"
#include "datacore/TreePath.h"
#include "datacore/nodes/DatacoreNumber.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/core/ClientSession.h"
#include "server/core/DatacoreService.h"
#include "server/core/EventService.h"
#include "server/core/SignalInput.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;
using ServerCommon::treePath;

} // namespace

InstrumentCommands::InstrumentCommands(InstrumentTrees& trees, DatacoreService& datacores,
                                       EventService& events)
    : m_trees(trees)
    , m_datacores(datacores)
    , m_events(events)
{
    auto& node = trees.add<DatacoreNumber<int>>(Tree::Command, ElementPaths::CommandExecutor::kExecute, 0);
    datacores.onWritten(node, [this, &node] { execute(node); });
    addLogs();
    addInputs();
    add(NumberedCommand::ResetEventLog, [this] { m_events.reset(); });
}

void InstrumentCommands::add(NumberedCommand command, std::function<void()> action)
{
    m_actions[numberOf(command)] = [action = std::move(action)] {
        action();
        return true;
    };
}

void InstrumentCommands::addLog(NumberedCommand command, EventKind kind)
{
    m_actions[numberOf(command)] = [this, kind] { return sendLog(kind); };
}

void InstrumentCommands::addLogs()
{
    addLog(NumberedCommand::RequestSdiInputRateLogs, EventKind::SdiRate);
    addLog(NumberedCommand::RequestSdiInputStandardLogs, EventKind::VideoStandard);
    addLog(NumberedCommand::RequestJitterTimingLogs, EventKind::TimingJitter);
    addLog(NumberedCommand::RequestJitterAlignmentLogs, EventKind::AlignmentJitter);
    addLog(NumberedCommand::RequestReferenceLockLogs, EventKind::Reference);
    addLog(NumberedCommand::RequestIpTxLogs, EventKind::IpTransmit);
    addLog(NumberedCommand::RequestIpRxLogs, EventKind::IpReceive);
    addLog(NumberedCommand::RequestIpInterfacesLogs, EventKind::IpInterfaces);
    addLog(NumberedCommand::RequestSfpLogs, EventKind::Sfp);
    addLog(NumberedCommand::RequestPtpLogs, EventKind::Ptp);
    addLog(NumberedCommand::RequestAudioInputPresenceLogs, EventKind::AudioPresence);
    addLog(NumberedCommand::RequestScte104Logs, EventKind::Scte104);
}

void InstrumentCommands::addInputs()
{
    const auto analyse = [this](const char* mode) {
        return [this, mode = QString::fromLatin1(mode)] {
            DatacoreBase* const node =
                m_trees.find(treePath(Tree::Configuration, ElementPaths::Analyser::kMode));
            return m_datacores.set(*node, {mode});
        };
    };
    m_actions[numberOf(NumberedCommand::AnalyseSdi)] = analyse("SDI");
    m_actions[numberOf(NumberedCommand::AnalyseIp2110)] = analyse("IP 2110");
    constexpr int kFirst = numberOf(NumberedCommand::SelectSource1);
    constexpr int kLast = numberOf(NumberedCommand::SelectSource11);
    for (int number = kFirst; number <= kLast; ++number)
        m_actions[number] = [this, number] { return selectSource(number - kFirst); };
}

/// To the one who asks: the others have not.
bool InstrumentCommands::sendLog(EventKind kind)
{
    ClientSession* const session = m_datacores.writer();
    if (session)
        m_events.sendKept(*session, kind);
    return session != nullptr;
}

bool InstrumentCommands::selectSource(int position)
{
    DatacoreBase* const node = m_trees.find(treePath(Tree::Configuration, ElementPaths::SignalSource::kName));
    const QString name = SignalInput::sourceNames().value(position);
    return !name.isEmpty() && m_datacores.set(*node, {name});
}

void InstrumentCommands::execute(DatacoreBase& node)
{
    const int number = node.getData().toInt();
    const auto action = m_actions.find(number);
    if (action != m_actions.end() && action->second())
        return;
    log()->warn("Command {} cannot be carried out here", number);
    node.setValid({DatacoreValidStatusMessage(DatacoreValidStatusMessage::ValueNotSupported)});
}

} // namespace Velmora::Server
