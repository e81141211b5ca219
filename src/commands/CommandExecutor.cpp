#include "commands/CommandExecutor.h"

#include "commands/CommandTable.h"
#include "datacore/ElementPaths.h"
#include "datacore/TreePath.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

CommandExecutor::CommandExecutor(ClientDatacoreRegistry& registry, QObject* parent)
    : QObject(parent)
    , m_registry(registry)
{
}

void CommandExecutor::keep(Command command, Action action, WhyNot whyNot)
{
    m_handlers.at(static_cast<std::size_t>(command)) = {std::move(action), std::move(whyNot)};
}

const CommandExecutor::Handler& CommandExecutor::handler(Command command) const
{
    return m_handlers.at(static_cast<std::size_t>(command));
}

QString CommandExecutor::whyNot(Command command) const
{
    const CommandTable::Place place = CommandTable::entry(command).place;
    if (place == CommandTable::Place::Nobody)
        return tr("This number is reserved");
    if (place == CommandTable::Place::Instrument)
        return {};
    const Handler& known = handler(command);
    if (!known.action)
        return tr("This client cannot do it");
    return known.whyNot ? known.whyNot() : QString();
}

void CommandExecutor::execute(Command command, Done done)
{
    const auto tell = [command, done = std::move(done)](const CommandOutcome& outcome) {
        if (!outcome.isDone)
            Velmora::log()->info("Command {} was not carried out: {}", numberOf(command), outcome.text);
        if (done)
            done(outcome);
    };
    if (CommandTable::entry(command).place == CommandTable::Place::Instrument) {
        const QString path = ServerCommon::treePath(ServerCommon::DatacoreTree::Command,
                                                    ElementPaths::CommandExecutor::kExecute);
        ElementWrite::begin(m_registry, path, {QString::number(numberOf(command))}, this, tell);
    } else if (const QString reason = whyNot(command); !reason.isEmpty()) {
        tell(CommandOutcome::refused(reason));
    } else {
        // A copy: an action may give itself another one.
        const Action action = handler(command).action;
        tell(action());
    }
}
