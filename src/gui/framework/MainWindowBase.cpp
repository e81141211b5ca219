#include "gui/framework/MainWindowBase.h"

MainWindowBase::MainWindowBase(ApplicationState& state, const ConnectionStatus& connection,
                               WzCustomStyle& style)
    : m_state(state)
    , m_connection(connection)
    , m_style(style)
{
}
