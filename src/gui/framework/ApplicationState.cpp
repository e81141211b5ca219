#include "gui/framework/ApplicationState.h"

void ApplicationState::setLayoutLocked(bool locked)
{
    if (locked == m_layoutLocked)
        return;
    m_layoutLocked = locked;
    emit layoutLockChanged(locked);
}

void ApplicationState::setDoNotDisturb(bool doNotDisturb)
{
    if (doNotDisturb == m_doNotDisturb)
        return;
    m_doNotDisturb = doNotDisturb;
    emit doNotDisturbChanged(doNotDisturb);
}
