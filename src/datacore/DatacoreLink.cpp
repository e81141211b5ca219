#include "datacore/DatacoreLink.h"

QStringList DatacoreLink::reasonsForBeingInactive() const
{
    QStringList reasons;
    if (m_datacore) {
        for (const DatacoreActiveStatusMessage& reason : m_datacore->getReasonsForBeingInactive())
            reasons << reason.getText();
    }
    return reasons;
}
