// Ten thousand named values by Qt Remote Objects as fast as it will go: one replica carries all, a typed list
// of everything when it is initialised, and for each change a signal with the value. Nothing of the framework
// tells values apart then; that is a protocol of one's own on top, in which the first values come in one
// piece. Behind it stand the same objects as behind a mirrored tree, found by their paths.

#include "Contestant.h"
#include "MirroredValue.h"

#include "rep_NamedValues_merged.h"

#include <QHash>
#include <QRemoteObjectHost>
#include <QRemoteObjectNode>

namespace Mirror {

namespace {

/// The list is no type that the compiler of the description makes known.
void registerTypes()
{
    qRegisterMetaType<QList<NamedValue>>();
    qRegisterMetaTypeStreamOperators<QList<NamedValue>>();
}

class Source : public NamedValuesSource {
public:
    Source()
    {
        for (int i = 0; i < kValueCount; ++i) {
            m_indices.insert(pathOf(i), i);
            m_values.append(
                NamedValue(pathOf(i), QStringLiteral("DatacoreNumber"), {initialText(i)}, {}, {}));
        }
    }

    QList<NamedValue> snapshot() const override { return m_values; }
    void write(QString path, QStringList data) override
    {
        const auto found = m_indices.constFind(path);
        if (found != m_indices.constEnd())
            set(*found, data);
    }
    void set(int index, const QStringList& data)
    {
        m_values[index].setData(data);
        emit changed(m_values.at(index));
    }

private:
    QList<NamedValue> m_values;
    QHash<QString, int> m_indices;
};

class SnapshotServer : public Server {
public:
    SnapshotServer()
        : m_host(QUrl(QStringLiteral("tcp://127.0.0.1:0")))
    {
        registerTypes();
        m_host.enableRemoting(&m_source);
    }

    quint16 port() const override { return static_cast<quint16>(m_host.hostUrl().port()); }
    void changeAll() override
    {
        ++m_round;
        for (int i = 0; i < kValueCount; ++i)
            m_source.set(i, {initialText(i + m_round)});
    }

private:
    Source m_source;
    QRemoteObjectHost m_host;
    int m_round = 0;
};

class SnapshotClient : public Client {
public:
    explicit SnapshotClient(quint16 port)
    {
        registerTypes();
        m_node.connectToNode(QUrl(QStringLiteral("tcp://127.0.0.1:%1").arg(port)));
        m_replica.reset(m_node.acquire<NamedValuesReplica>());
        QObject::connect(m_replica.get(), &NamedValuesReplica::initialized, m_replica.get(),
                         [this] { populate(); });
        QObject::connect(m_replica.get(), &NamedValuesReplica::changed, m_replica.get(),
                         [this](const NamedValue& value) { apply(value); });
    }
    ~SnapshotClient() override { qDeleteAll(m_values); }
    Q_DISABLE_COPY_MOVE(SnapshotClient)

    void write(int index, const QString& text) override { m_replica->write(pathOf(index), {text}); }
    QString text(int index) const override
    {
        const MirroredValue* const found = m_values.value(pathOf(index));
        return found ? found->data.value(0) : QString();
    }

private:
    void populate()
    {
        const QList<NamedValue> all = m_replica->snapshot();
        m_values.reserve(all.size());
        for (const NamedValue& value : all) {
            auto* const mirrored = new MirroredValue;
            QObject::connect(mirrored, &MirroredValue::updated, mirrored, [this] { ++received; });
            m_values.insert(value.path(), mirrored);
            apply(value);
        }
    }
    void apply(const NamedValue& value)
    {
        MirroredValue* const mirrored = m_values.value(value.path());
        if (!mirrored)
            return;
        mirrored->data = value.data();
        mirrored->reasonsForBeingInvalid = value.reasonsForBeingInvalid();
        mirrored->reasonsForBeingInactive = value.reasonsForBeingInactive();
        emit mirrored->updated(mirrored->data, mirrored->reasonsForBeingInvalid,
                               mirrored->reasonsForBeingInactive.isEmpty());
    }

    QRemoteObjectNode m_node;
    std::unique_ptr<NamedValuesReplica> m_replica;
    QHash<QString, MirroredValue*> m_values;
};

} // namespace

const Contestant kSnapshotReplica{
    "snapshot replica",
    []() -> std::unique_ptr<Server> { return std::make_unique<SnapshotServer>(); },
    [](quint16 port) -> std::unique_ptr<Client> { return std::make_unique<SnapshotClient>(port); },
};

} // namespace Mirror
