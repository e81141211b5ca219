#include "instruments/datacorebrowser/DatacoreRowState.h"

#include "datacore/ClientDatacore.h"

#include <QCoreApplication>

namespace {

DatacoreRowState::Worst worstOf(const std::list<DatacoreValidStatusMessage>& reasons)
{
    using Worst = DatacoreRowState::Worst;
    Worst worst = reasons.empty() ? Worst::Valid : Worst::Information;
    for (const DatacoreValidStatusMessage& reason : reasons) {
        if (reason.getType() == MessageBase::MessageType::Error)
            return Worst::Error;
        if (reason.getType() == MessageBase::MessageType::Warning)
            worst = Worst::Warning;
    }
    return worst;
}

} // namespace

DatacoreRowState DatacoreRowState::of(const ClientDatacore& core)
{
    DatacoreRowState state;
    state.values = core.getDataList();
    state.className = core.getClassName();
    state.isActive = core.isActive();
    if (core.hasValueOfServer())
        state.worst = worstOf(core.getReasonsForBeingInvalid());
    for (const DatacoreActiveStatusMessage& reason : core.getReasonsForBeingInactive())
        state.reasons
            << QCoreApplication::translate("DatacoreRowState", "Inactive: %1").arg(reason.getText());
    const QString invalid = ClientDatacore::makeToolTip(core.getReasonTexts(), nullptr, nullptr);
    if (!invalid.isEmpty())
        state.reasons << invalid;
    return state;
}
