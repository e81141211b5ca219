#include "gui/shell/DriverCalibrationConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/DriverCalibrationState.h"

using ServerCommon::DatacoreTree;

void DriverCalibrationConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    for (std::size_t i = 0; i < m_gains.size(); ++i)
        linkTo(m_gains[i], ElementPaths::SdiDriver::kGain[i], DatacoreTree::PersistentConfiguration);
    linkTo(m_kind, ElementPaths::SdiDriverStatus::kKind, DatacoreTree::Status);
}

void DriverCalibrationConnectionBuilder::connectDriverCalibrationToDatacores(
    DriverCalibrationState* state) const
{
    for (std::size_t i = 0; i < m_gains.size(); ++i)
        m_gains[i].toWindow(state, [state, i](const QStringList& values, const QStringList&, bool active) {
            state->setGain(i, active ? values.value(0) : QString());
        });
    m_kind.toWindow(state, [state](const QStringList& values, const QStringList&, bool active) {
        state->setKind(active ? values.value(0) : QString());
    });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
