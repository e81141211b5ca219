#include "gui/shell/TimeDateDialogConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/InstrumentClock.h"
#include "gui/shell/TimeDateDialog.h"

using ServerCommon::DatacoreTree;

void TimeDateDialogConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_utc, ElementPaths::SystemTimeStatus::kUtc, DatacoreTree::Status);
    linkTo(m_timeZone, ElementPaths::SystemTimeStatus::kTimeZone, DatacoreTree::Status);
    linkTo(m_synchronised, ElementPaths::SystemTimeStatus::kSynchronised, DatacoreTree::Status);
    linkTo(m_setUtc, ElementPaths::SystemTimeCommands::kSetUtc, DatacoreTree::Command);
}

void TimeDateDialogConnectionBuilder::connectInstrumentClockToDatacores(InstrumentClock* clock) const
{
    m_utc.toWindow(clock, &InstrumentClock::fromStatusCoreSystemTimeUtcUpdated);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}

void TimeDateDialogConnectionBuilder::connectTimeDateDialogToDatacores(TimeDateDialog* dialog) const
{
    m_timeZone.toWindow(dialog, &TimeDateDialog::fromStatusCoreSystemTimeTimeZoneUpdated);
    m_synchronised.toWindow(dialog, &TimeDateDialog::fromStatusCoreSystemTimeSynchronisedUpdated);
    m_setUtc.toWindow(dialog, &TimeDateDialog::fromCommandcore_setUtcUpdated);
    m_setUtc.fromWindow(dialog, &TimeDateDialog::toCommandcore_setUtc, &ClientDatacore::setDataString);
    dialog->setInactiveReasons([this] { return m_setUtc.reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
