#include "gui/shell/ScreenCommands.h"

#include <algorithm>

const ScreenCommand* ScreenCommands::find(const QString& id) const
{
    const auto found = std::find_if(m_all.begin(), m_all.end(),
                                    [&id](const ScreenCommand& command) { return command.id == id; });
    return found == m_all.end() ? nullptr : &*found;
}
