#include "server/core/ChoiceNode.h"

namespace Velmora::Server {

ChoiceNode::ChoiceNode(const QString& instanceName, DatacoreBase* parent, const QString& initial,
                       const QStringList& choices)
    : DatacoreBase(instanceName, parent, initial)
    , m_choices(choices)
{
}

void ChoiceNode::regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const
{
    const QStringList& items = getDataList();
    if (items.isEmpty())
        messages.emplace_back(DatacoreValidStatusMessage::TooFewItems);
    else if (items.size() > 1)
        messages.emplace_back(DatacoreValidStatusMessage::TooManyItems);
    else if (!m_choices.contains(items.first()))
        messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
}

} // namespace Velmora::Server
