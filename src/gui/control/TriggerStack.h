#pragma once

#include "gui/control/TriggerBanks.h"

#include <QHash>
#include <QPointer>
#include <QUuid>

/// The contexts that have triggers, the one that is shown last. An owner may have several; its identifier
/// tells them from those of an owner that comes to lie at the same address later.
class TriggerStack {
public:
    struct Node {
        QUuid id; ///< of the owner
        QPointer<QObject> owner;
        TriggerBanks::Banks banks;
        quint32 currentBank = 0;
    };

    bool isEmpty() const { return m_nodes.empty(); }
    bool canGoBack() const { return m_nodes.size() > 1; }
    Node& top() { return m_nodes.back(); }

    bool knows(const QObject* owner) const { return m_ids.contains(owner); }
    /// Null when the owner is not known.
    QUuid idOf(const QObject* owner) const { return m_ids.value(owner); }
    QUuid addOwner(const QObject* owner);
    /// With all its contexts. Whether the one on top has changed by that.
    bool removeOwner(const QObject* owner);
    /// Those that are children of @p ancestor, or theirs in turn.
    std::vector<QObject*> ownersBelow(const QObject* ancestor) const;

    void push(const Node& node) { m_nodes.push_back(node); }
    /// Takes the one on top off, and forgets its owner if it was the owner's only one.
    Node pop();
    /// The lowest one of the owner.
    Node* find(const QUuid& id);

private:
    std::vector<Node> m_nodes;
    /// Owners are keys only, never followed.
    QHash<const QObject*, QUuid> m_ids;
};
