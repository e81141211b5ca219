#include "gui/framework/WzMdiAreaConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/framework/WzMdiArea.h"

using ServerCommon::DatacoreTree;

void WzMdiAreaConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_screenSwipingSupported, ElementPaths::SystemStatus::kScreenSwipingSupported,
           DatacoreTree::Status);
    linkTo(m_executeCommand, ElementPaths::CommandExecutor::kExecute, DatacoreTree::Command);
}

void WzMdiAreaConnectionBuilder::connectMdiAreaToDatacores(WzMdiArea* area) const
{
    m_screenSwipingSupported.toWindow(area, &WzMdiArea::onScreenSwipingSupportedUpdated);
    m_executeCommand.fromWindow(area, &WzMdiArea::executeCommand, &ClientDatacore::setDataInt);
}
