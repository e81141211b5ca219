#include "instruments/inputstatistics/InputStatisticsConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "instruments/inputstatistics/InputStatistics.h"

using ServerCommon::DatacoreTree;

void InputStatisticsConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_pictureFormat, ElementPaths::SdiInputStatus::kPictureFormat, DatacoreTree::Status);
}

void InputStatisticsConnectionBuilder::connectInputStatisticsToDatacores(InputStatistics* window) const
{
    m_pictureFormat.toWindow(window, &InputStatistics::fromStatusCorePictureFormatUpdated);
    window->setInactiveReasons([this] { return m_pictureFormat.reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
