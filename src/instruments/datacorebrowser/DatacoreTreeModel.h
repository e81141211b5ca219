#pragma once

#include "instruments/datacorebrowser/DatacoreRowState.h"
#include "instruments/datacorebrowser/PendingWrites.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QStringList>

#include <memory>
#include <vector>

class ClientDatacore;
class ClientDatacoreRegistry;

/// The mirrored trees as a tree of rows, searchable, with values that can be written.
///
/// A change of a node costs a mark. Whoever shows the rows asks for the changes of those that can be seen, a
/// few times a second, and only for these the model tells of a change: any other row is read when it comes
/// into sight.
class DatacoreTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Column {
        Name,
        Value,
        Validity,
        Class,
        ColumnCount,
    };
    using Worst = DatacoreRowState::Worst;
    enum class Confirmation {
        Confirmed,
        Awaited,
        Overdue,
    };
    /// How a row looks, beside its texts.
    struct Look {
        Worst worst = Worst::NoValue;
        Confirmation confirmation = Confirmation::Confirmed;
        bool isActive = true;
        bool isWritable = false;
        bool isInner = false; ///< it is there for those below it
    };

    /// After this long without echo a write is overdue.
    static constexpr int kConfirmationMs = 5000;

    explicit DatacoreTreeModel(ClientDatacoreRegistry& registry, QObject* parent = nullptr);
    ~DatacoreTreeModel() override;

    /// Whether somebody looks. While nobody does, the nodes are left alone.
    void setWatching(bool watching);
    /// Keeps all as it is, also without the nodes.
    void setHeld(bool held);
    /// Shows only rows that have all the words in path, values or class, and what leads to them. Values count
    /// as they are now.
    void setFilter(const QString& words);
    QString filter() const { return m_filter.join(QLatin1Char(' ')); }

    int nodeCount() const;
    /// Rows that the filter was looking for; all without a filter.
    int matchCount() const { return m_matchCount; }

    QModelIndex indexOfPath(const QString& path) const;
    QString pathOf(const QModelIndex& index) const;
    Look lookOf(const QModelIndex& index) const;
    /// Whether the value is "true" or "false".
    bool isBool(const QModelIndex& index) const;

    /// Tells of the changes of those rows by dataChanged(). True when it has to be called again, since a
    /// write waits for its echo.
    bool showChanges(const std::vector<QModelIndex>& rows);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Writes the value. One that is a list is edited as a JSON array of strings. False when it cannot be.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    /// The first change since the last showChanges().
    void changesWaiting();

private:
    struct Node;

    Node& nodeOf(int id);
    const Node& nodeOf(int id) const;

    void onRegistryCleared();
    void onRegistryPopulated();
    void build();
    void drop();
    void addNode(const QString& path, ClientDatacore* core);
    void follow();
    void noteUpdate(int id, bool valid, bool active);
    void mark(Node& node, unsigned marks);
    void applyFilter();
    bool showMatches(int id);
    bool matches(const Node& node) const;

    DatacoreRowState stateOf(int id) const;
    QString valueText(int id) const;
    QString toolTip(int id) const;
    bool checkWrites();
    void emitChanged(int id, Column column);
    static int idOf(const QModelIndex& index) { return static_cast<int>(index.internalId()); }

    ClientDatacoreRegistry& m_registry;
    std::vector<Node> m_nodes; ///< the first is the invisible root
    QHash<QString, int> m_ids; ///< by path
    std::vector<DatacoreRowState> m_held;
    PendingWrites m_writes{kConfirmationMs};
    QStringList m_filter;
    int m_matchCount = 0;
    bool m_watching = false;
    bool m_isHeld = false;
    bool m_outdated = true; ///< the registry was populated unseen
    bool m_changesWait = false;
    std::unique_ptr<QObject> m_follower; ///< all connections to nodes end with it
};
