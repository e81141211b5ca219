#include "gui/control/TriggerStack.h"

#include <algorithm>

QUuid TriggerStack::addOwner(const QObject* owner)
{
    const QUuid id = QUuid::createUuid();
    m_ids.insert(owner, id);
    return id;
}

bool TriggerStack::removeOwner(const QObject* owner)
{
    const QUuid id = m_ids.take(owner);
    const bool wasOnTop = !id.isNull() && !m_nodes.empty() && top().id == id;
    const auto isOfOwner = [&id](const Node& node) { return node.id == id; };
    m_nodes.erase(std::remove_if(m_nodes.begin(), m_nodes.end(), isOfOwner), m_nodes.end());
    return wasOnTop;
}

std::vector<QObject*> TriggerStack::ownersBelow(const QObject* ancestor) const
{
    std::vector<QObject*> owners;
    for (const Node& node : m_nodes) {
        const QObject* object = node.owner;
        while (object && object->parent() != ancestor)
            object = object->parent();
        if (object)
            owners.push_back(node.owner);
    }
    return owners;
}

TriggerStack::Node TriggerStack::pop()
{
    const Node node = top();
    m_nodes.pop_back();
    if (!find(node.id))
        m_ids.remove(node.owner);
    return node;
}

TriggerStack::Node* TriggerStack::find(const QUuid& id)
{
    const auto node = std::find_if(m_nodes.begin(), m_nodes.end(),
                                   [&id](const Node& candidate) { return candidate.id == id; });
    return node == m_nodes.end() ? nullptr : &*node;
}
