#pragma once

#include "datacore/DatacoreLink.h"
#include "datacore/DatacoreTree.h"

#include <QObject>

#include <deque>
#include <vector>

class ClientDatacore;
class ClientDatacoreRegistry;

/// Connects one type of window with the nodes that it needs, so that windows know nothing of datacores.
///
/// A builder has a DatacoreLink for each element, looks it up in accessClientDatacoresFromRegistryByPath(),
///
///     linkTo(m_systemMode, "systemStatus/currentSystemMode", DatacoreTree::Status);
///
/// and connects it in its connect...ToDatacores(), one line each way:
///
///     m_systemMode.toWindow(toolBar, &ToolBar::fromStatusCoreSystemModeUpdated);
///     m_systemMode.fromWindow(toolBar, &ToolBar::toConfigCoreSystemModeChosen, &ClientDatacore::setDataInt);
///
/// An element that the server lacks is logged once per population and then skipped.
class DatacoreConnectionBuilderBase : public QObject {
    Q_OBJECT
public:
    explicit DatacoreConnectionBuilderBase(ClientDatacoreRegistry& registry, QObject* parent = nullptr);

    /// The node at @p path, which leaves out the name of the tree's root; null, and a log line, when there is
    /// none.
    virtual ClientDatacore* getDatacoreFromOrphanedPathAndRegisterUsage(const QString& path,
                                                                        ServerCommon::DatacoreTree tree);
    /// Lets every node that was looked up refresh the windows connected to it.
    virtual void requestUtilisedDatacoresPopulateConnectedGuiItems() const;
    /// Looks up the nodes that this builder connects.
    virtual void accessClientDatacoresFromRegistryByPath() = 0;

    /// Connects when both objects are there, and tells whether they are.
    template<typename Sender, typename Signal, typename Receiver, typename Slot>
    static bool connectIfNotNull(Sender* sender, Signal signal, Receiver* receiver, Slot slot)
    {
        return sender && receiver && QObject::connect(sender, signal, receiver, slot);
    }

public slots:
    void onRegistryPopulated();
    void onRegistryCleared();

signals:
    /// The nodes are looked up: windows can be connected.
    void connectionToDatacoresGained();
    void connectionToDatacoresLost();

protected:
    /// Links to the node at @p path until the registry is cleared.
    void linkTo(DatacoreLink& link, const QString& path, ServerCommon::DatacoreTree tree);
    void linkTo(DatacoreLink& link, const char* path, ServerCommon::DatacoreTree tree);

private:
    ClientDatacoreRegistry& m_registry;
    std::deque<ClientDatacore*> m_utilisedDatacores;
    std::vector<DatacoreLink*> m_links;
};
