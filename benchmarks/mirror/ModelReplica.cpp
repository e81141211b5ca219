// Ten thousand named values by what Qt Remote Objects offers for many of them: the replica of a model, a row
// for each value, fetched whole at the start. Behind it stand objects with a signal each, as in a mirrored
// tree. (A replica for each value would have to be acquired, answered and initialised ten thousand times.)

#include "Contestant.h"
#include "MirroredValue.h"

#include <QAbstractItemModelReplica>
#include <QAbstractListModel>
#include <QRemoteObjectHost>
#include <QRemoteObjectNode>

#include <vector>

namespace Mirror {

namespace {

enum Role : int { PathRole = Qt::UserRole, ClassRole, DataRole, InvalidRole, InactiveRole };

const QVector<int> kRoles{PathRole, ClassRole, DataRole, InvalidRole, InactiveRole};
const QString kName = QStringLiteral("values");

class Model : public QAbstractListModel {
public:
    Model()
    {
        for (int i = 0; i < kValueCount; ++i)
            m_data.push_back({initialText(i)});
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : kValueCount; }
    QHash<int, QByteArray> roleNames() const override
    {
        return {{PathRole, "path"},
                {ClassRole, "className"},
                {DataRole, "data"},
                {InvalidRole, "reasonsForBeingInvalid"},
                {InactiveRole, "reasonsForBeingInactive"}};
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        switch (role) {
        case PathRole:
            return pathOf(index.row());
        case ClassRole:
            return QStringLiteral("DatacoreNumber");
        case DataRole:
            return m_data[static_cast<size_t>(index.row())];
        default:
            return QStringList();
        }
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != DataRole)
            return false;
        m_data[static_cast<size_t>(index.row())] = value.toStringList();
        emit dataChanged(index, index, {DataRole});
        return true;
    }

private:
    std::vector<QStringList> m_data;
};

class ModelServer : public Server {
public:
    ModelServer()
        : m_host(QUrl(QStringLiteral("tcp://127.0.0.1:0")))
    {
        m_host.enableRemoting(&m_model, kName, kRoles);
    }

    quint16 port() const override { return static_cast<quint16>(m_host.hostUrl().port()); }
    void changeAll() override
    {
        ++m_round;
        for (int i = 0; i < kValueCount; ++i)
            m_model.setData(m_model.index(i), QStringList(initialText(i + m_round)), DataRole);
    }

private:
    Model m_model;
    QRemoteObjectHost m_host;
    int m_round = 0;
};

class ModelClient : public Client {
public:
    explicit ModelClient(quint16 port)
    {
        m_node.connectToNode(QUrl(QStringLiteral("tcp://127.0.0.1:%1").arg(port)));
        m_replica.reset(m_node.acquireModel(kName, QtRemoteObjects::PrefetchData, kRoles));
        m_replica->setRootCacheSize(kValueCount);
        QObject::connect(m_replica.get(), &QAbstractItemModelReplica::initialized, m_replica.get(),
                         [this] { populate(); });
        QObject::connect(m_replica.get(), &QAbstractItemModel::dataChanged, m_replica.get(),
                         [this](const QModelIndex& first, const QModelIndex& last) {
                             for (int row = first.row(); row <= last.row(); ++row)
                                 apply(row);
                         });
    }
    ~ModelClient() override { qDeleteAll(m_values); }
    Q_DISABLE_COPY_MOVE(ModelClient)

    void write(int index, const QString& text) override
    {
        m_replica->setData(m_replica->index(index, 0), QStringList(text), DataRole);
    }
    QString text(int index) const override
    {
        return m_values.empty() ? QString() : m_values[static_cast<size_t>(index)]->data.value(0);
    }

private:
    void populate()
    {
        for (int row = 0; row < m_replica->rowCount(); ++row) {
            auto* const mirrored = new MirroredValue;
            QObject::connect(mirrored, &MirroredValue::updated, mirrored, [this] { ++received; });
            m_values.push_back(mirrored);
            apply(row);
        }
    }
    void apply(int row)
    {
        if (static_cast<size_t>(row) >= m_values.size())
            return;
        MirroredValue* const mirrored = m_values[static_cast<size_t>(row)];
        const QModelIndex index = m_replica->index(row, 0);
        mirrored->data = m_replica->data(index, DataRole).toStringList();
        mirrored->reasonsForBeingInvalid = m_replica->data(index, InvalidRole).toStringList();
        mirrored->reasonsForBeingInactive = m_replica->data(index, InactiveRole).toStringList();
        emit mirrored->updated(mirrored->data, mirrored->reasonsForBeingInvalid,
                               mirrored->reasonsForBeingInactive.isEmpty());
    }

    QRemoteObjectNode m_node;
    std::unique_ptr<QAbstractItemModelReplica> m_replica;
    std::vector<MirroredValue*> m_values;
};

} // namespace

const Contestant kModelReplica{
    "model replica",
    []() -> std::unique_ptr<Server> { return std::make_unique<ModelServer>(); },
    [](quint16 port) -> std::unique_ptr<Client> { return std::make_unique<ModelClient>(port); },
};

} // namespace Mirror
