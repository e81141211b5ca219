#pragma once

#include "commands/ElementWrite.h"
#include "commands/NumberedCommand.h"

#include <QObject>

#include <array>
#include <functional>
#include <type_traits>

class ClientDatacoreRegistry;

/// Carries out numbered commands, for console, keys, menu and function bar alike. What the client does is
/// registered here by its owners; what the instrument does is written to its command tree.
///
/// Owners live as long as the executor.
class CommandExecutor : public QObject {
    Q_OBJECT
public:
    using Command = NumberedCommand;
    using Action = std::function<CommandOutcome()>;
    /// Empty when the command can be given now.
    using WhyNot = std::function<QString()>;
    using Done = ElementWrite::Done;

    explicit CommandExecutor(ClientDatacoreRegistry& registry, QObject* parent = nullptr);

    /// An action that returns nothing has nothing to say about what came of it.
    template<typename Callable>
    void setAction(Command command, Callable action, WhyNot whyNot = {})
    {
        if constexpr (std::is_same_v<std::invoke_result_t<Callable>, CommandOutcome>)
            keep(command, std::move(action), std::move(whyNot));
        else
            keep(
                command,
                [action = std::move(action)] {
                    action();
                    return CommandOutcome();
                },
                std::move(whyNot));
    }

    /// Why the client cannot carry it out now; empty when it can, and for what the instrument decides.
    QString whyNot(Command command) const;
    /// Tells @p done, once, what came of it: at once where the client acts, else when the instrument has
    /// answered.
    void execute(Command command, Done done = {});

private:
    struct Handler {
        Action action;
        WhyNot whyNot;
    };
    void keep(Command command, Action action, WhyNot whyNot);
    const Handler& handler(Command command) const;

    ClientDatacoreRegistry& m_registry;
    std::array<Handler, kNumberedCommandCount> m_handlers;
};
