#include "Contestant.h"

#include "datacore/ClientDatacore.h"
#include "datacore/WzClientDatacoreManager.h"
#include "datacore/nodes/DatacoreNumber.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "server/core/DatacoreService.h"
#include "server/core/InstrumentServer.h"

#include <QHostAddress>

#include <vector>

namespace Mirror {

namespace {

using Tree = ServerCommon::DatacoreTree;

class DatacoreServer : public Server {
public:
    DatacoreServer()
        : m_service(m_server, m_trees)
    {
        const int rootSize = ServerCommon::rootName(Tree::Configuration)->size() + 1;
        for (int i = 0; i < kValueCount; ++i) {
            const QString path = pathOf(i).mid(rootSize);
            auto& node = m_trees.add<DatacoreNumber<unsigned int>>(Tree::Configuration, path, 0U);
            node.setData(initialText(i));
            m_nodes.push_back(&node);
        }
        m_service.start();
        (void)m_server.listen(QHostAddress(QHostAddress::LocalHost), 0);
    }

    quint16 port() const override { return m_server.port(); }
    void changeAll() override
    {
        ++m_round;
        for (int i = 0; i < kValueCount; ++i)
            m_nodes[static_cast<size_t>(i)]->setData(initialText(i + m_round));
        m_service.publishChanges();
    }

private:
    Velmora::Server::InstrumentServer m_server;
    Velmora::Server::InstrumentTrees m_trees;
    Velmora::Server::DatacoreService m_service;
    std::vector<DatacoreBase*> m_nodes;
    int m_round = 0;
};

class DatacoreClient : public Client {
public:
    explicit DatacoreClient(quint16 port)
        : m_connection(nullptr, false)
        , m_manager(m_connection, m_distributor)
    {
        QObject::connect(&registry(), &ClientDatacoreRegistry::registryHasBeenPopulated, &registry(),
                         [this] { watchNodes(); });
        m_connection.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    }

    void write(int index, const QString& text) override
    {
        m_writing = true;
        node(index)->setDataString(text);
        m_writing = false;
    }
    QString text(int index) const override
    {
        const ClientDatacore* const found = node(index);
        return found ? found->getData() : QString();
    }

private:
    ClientDatacoreRegistry& registry() { return m_manager.getClientDatacoreRegistry(); }
    ClientDatacore* node(int index) const
    {
        auto& self = const_cast<DatacoreClient&>(*this);
        return self.registry().lookupDatacoreFromPath(pathOf(index));
    }

    void watchNodes()
    {
        for (int i = 0; i < kValueCount; ++i) {
            ClientDatacore* const watched = node(i);
            // A local change is signalled as well, before it is sent.
            QObject::connect(watched, &ClientDatacore::datacoreUpdated, watched,
                             [this] { received += m_writing ? 0 : 1; });
        }
    }

    SerialisableDataPacketDistributor m_distributor;
    NetworkConnection m_connection;
    WzClientDatacoreManager m_manager;
    bool m_writing = false;
};

} // namespace

const Contestant kDatacores{
    "datacores",
    []() -> std::unique_ptr<Server> { return std::make_unique<DatacoreServer>(); },
    [](quint16 port) -> std::unique_ptr<Client> { return std::make_unique<DatacoreClient>(port); },
};

} // namespace Mirror
