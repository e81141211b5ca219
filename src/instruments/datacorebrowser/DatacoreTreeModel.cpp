#include "instruments/datacorebrowser/DatacoreTreeModel.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "datacore/DatacoreTree.h"
#include "gui/style/ToolTipText.h"
#include "instruments/datacorebrowser/DatacoreRowTexts.h"

#include <algorithm>
#include <optional>

using ServerCommon::DatacoreTree;

namespace {

constexpr int kRoot = 0;
/// Deeper rows would not be readable, and are walked through by recursion.
constexpr int kMostDepth = 100;
/// More of a value does not fit into any row.
constexpr int kShownCharacters = 300;
constexpr int kToolTipCharacters = 1000;

enum Mark : unsigned {
    ValueMark = 1,
    StatusMark = 2,
};

std::optional<DatacoreTree> treeOf(const QString& rootName)
{
    for (const DatacoreTree tree :
         {DatacoreTree::Configuration, DatacoreTree::Status, DatacoreTree::NonPersistentConfiguration,
          DatacoreTree::Command, DatacoreTree::PersistentConfiguration}) {
        if (ServerCommon::rootName(tree) == rootName)
            return tree;
    }
    return std::nullopt;
}

} // namespace

struct DatacoreTreeModel::Node {
    QString path;
    QString name;
    ClientDatacore* core = nullptr;
    std::optional<DatacoreTree> tree;
    int parent = kRoot;
    int depth = 0;
    int row = 0; ///< among the rows shown
    std::vector<int> children;
    std::vector<int> shown;
    unsigned marks = 0;
    bool wasValid = true;
    bool wasActive = true;
    bool hadValue = false;
};

DatacoreTreeModel::DatacoreTreeModel(ClientDatacoreRegistry& registry, QObject* parent)
    : QAbstractItemModel(parent)
    , m_registry(registry)
    , m_nodes(1)
{
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenCleared, this,
            &DatacoreTreeModel::onRegistryCleared);
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenPopulated, this,
            &DatacoreTreeModel::onRegistryPopulated);
}

DatacoreTreeModel::~DatacoreTreeModel() = default;

// --- The nodes

DatacoreTreeModel::Node& DatacoreTreeModel::nodeOf(int id)
{
    return m_nodes[static_cast<std::size_t>(id)];
}

const DatacoreTreeModel::Node& DatacoreTreeModel::nodeOf(int id) const
{
    return m_nodes[static_cast<std::size_t>(id)];
}

int DatacoreTreeModel::nodeCount() const
{
    return static_cast<int>(m_nodes.size()) - 1;
}

void DatacoreTreeModel::onRegistryCleared()
{
    m_follower.reset();
    m_writes.clear();
    m_outdated = true;
    if (m_isHeld) {
        for (Node& node : m_nodes)
            node.core = nullptr;
        return;
    }
    beginResetModel();
    drop();
    endResetModel();
}

void DatacoreTreeModel::onRegistryPopulated()
{
    m_outdated = true;
    if (m_watching && !m_isHeld)
        build();
}

void DatacoreTreeModel::drop()
{
    m_nodes.assign(1, Node());
    m_ids.clear();
    m_matchCount = 0;
}

void DatacoreTreeModel::build()
{
    beginResetModel();
    m_follower.reset();
    drop();
    const QStringList paths = m_registry.getPaths();
    m_nodes.reserve(static_cast<std::size_t>(paths.size()) + 1);
    m_ids.reserve(paths.size());
    for (const QString& path : paths)
        addNode(path, m_registry.lookupDatacoreFromPath(path));
    // The trees in the order in which the instrument has them; the unknown ones behind.
    auto& roots = m_nodes[kRoot].children;
    const auto order = [this](int id) {
        const auto tree = nodeOf(id).tree;
        return tree ? static_cast<int>(*tree) : std::numeric_limits<int>::max();
    };
    std::stable_sort(roots.begin(), roots.end(), [&](int a, int b) { return order(a) < order(b); });
    applyFilter();
    m_outdated = false;
    endResetModel();
    follow();
}

/// The node goes below the nearest one that its path goes through, wherever a name has a "/" of its own.
void DatacoreTreeModel::addNode(const QString& path, ClientDatacore* core)
{
    int parent = kRoot;
    int slash = path.lastIndexOf(QLatin1Char('/'));
    for (; slash > 0; slash = path.lastIndexOf(QLatin1Char('/'), slash - 1)) {
        parent = m_ids.value(path.left(slash), kRoot);
        if (parent != kRoot && nodeOf(parent).depth < kMostDepth)
            break;
    }
    if (slash <= 0)
        parent = kRoot;
    const int id = static_cast<int>(m_nodes.size());
    Node& node = m_nodes.emplace_back();
    Node& above = nodeOf(parent);
    node.path = path;
    node.name = parent == kRoot ? path : path.mid(slash + 1);
    node.core = core;
    node.parent = parent;
    node.depth = above.depth + 1;
    node.tree = parent == kRoot ? treeOf(node.name) : above.tree;
    above.children.push_back(id);
    m_ids.insert(path, id);
}

void DatacoreTreeModel::setWatching(bool watching)
{
    if (watching == m_watching)
        return;
    m_watching = watching;
    if (!watching)
        m_follower.reset();
    else if (m_outdated && !m_isHeld)
        build();
    else
        follow();
}

void DatacoreTreeModel::setHeld(bool held)
{
    if (held == m_isHeld)
        return;
    if (held) {
        m_held.reserve(m_nodes.size());
        for (int id = 0; id <= nodeCount(); ++id)
            m_held.push_back(stateOf(id));
        m_isHeld = true;
        m_follower.reset();
        return;
    }
    m_isHeld = false;
    m_held.clear();
    if (m_outdated)
        build();
    else
        follow();
}

/// Nodes are followed only while somebody looks and what is seen may change.
void DatacoreTreeModel::follow()
{
    if (!m_watching || m_isHeld)
        return;
    m_follower = std::make_unique<QObject>();
    for (int id = 1; id <= nodeCount(); ++id) {
        Node& node = nodeOf(id);
        if (!node.core)
            continue;
        node.wasValid = node.core->isValid();
        node.wasActive = node.core->isActive();
        node.hadValue = node.core->hasValueOfServer();
        connect(node.core, &ClientDatacore::datacoreUpdated, m_follower.get(),
                [this, id](const QStringList&, const QStringList& reasons, bool active) {
                    noteUpdate(id, reasons.isEmpty(), active);
                });
    }
}

void DatacoreTreeModel::noteUpdate(int id, bool valid, bool active)
{
    Node& node = nodeOf(id);
    // One reason may have taken the place of another, or the class may have come with the first value.
    const bool status = !valid || !node.wasValid || active != node.wasActive || !node.hadValue;
    node.wasValid = valid;
    node.wasActive = active;
    node.hadValue = true;
    mark(node, status ? ValueMark | StatusMark : ValueMark);
}

void DatacoreTreeModel::mark(Node& node, unsigned marks)
{
    node.marks |= marks;
    if (!std::exchange(m_changesWait, true))
        emit changesWaiting();
}

bool DatacoreTreeModel::showChanges(const std::vector<QModelIndex>& rows)
{
    m_changesWait = false;
    const bool writesWait = checkWrites();
    for (const QModelIndex& row : rows) {
        const int id = idOf(row);
        const unsigned marks = std::exchange(nodeOf(id).marks, 0U);
        if (marks & ValueMark)
            emitChanged(id, Value);
        if (marks & StatusMark) {
            for (const Column column : {Name, Validity, Class})
                emitChanged(id, column);
        }
    }
    return writesWait;
}

void DatacoreTreeModel::emitChanged(int id, Column column)
{
    const QModelIndex changed = createIndex(nodeOf(id).row, column, static_cast<quintptr>(id));
    emit dataChanged(changed, changed);
}

/// Settles the writes whose echo came and marks those that wait too long. True while one waits.
bool DatacoreTreeModel::checkWrites()
{
    const auto isSettled = [this](int id) {
        const ClientDatacore* const core = nodeOf(id).core;
        return !core || core->isInSyncWithServer();
    };
    for (const int id : m_writes.check(isSettled))
        nodeOf(id).marks |= ValueMark;
    return !m_writes.isEmpty();
}

// --- The filter

void DatacoreTreeModel::setFilter(const QString& words)
{
    beginResetModel();
    m_filter = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    applyFilter();
    endResetModel();
}

void DatacoreTreeModel::applyFilter()
{
    m_matchCount = 0;
    showMatches(kRoot);
}

/// Finds the rows at and below the node. True when there are any.
bool DatacoreTreeModel::showMatches(int id)
{
    const bool isMatch = id != kRoot && matches(nodeOf(id));
    m_matchCount += isMatch;
    Node& node = nodeOf(id);
    node.shown.clear();
    for (const int child : node.children) {
        if (!showMatches(child))
            continue;
        nodeOf(child).row = static_cast<int>(node.shown.size());
        node.shown.push_back(child);
    }
    return isMatch || !node.shown.empty();
}

bool DatacoreTreeModel::matches(const Node& node) const
{
    const DatacoreRowState state =
        m_filter.isEmpty() ? DatacoreRowState() : stateOf(static_cast<int>(&node - m_nodes.data()));
    return std::all_of(m_filter.begin(), m_filter.end(), [&](const QString& word) {
        const auto has = [&word](const QString& text) { return text.contains(word, Qt::CaseInsensitive); };
        return has(node.path) || has(state.className)
            || std::any_of(state.values.begin(), state.values.end(), has);
    });
}

// --- What rows tell

DatacoreRowState DatacoreTreeModel::stateOf(int id) const
{
    if (m_isHeld)
        return m_held[static_cast<std::size_t>(id)];
    const ClientDatacore* const core = nodeOf(id).core;
    return core ? DatacoreRowState::of(*core) : DatacoreRowState();
}

QModelIndex DatacoreTreeModel::indexOfPath(const QString& path) const
{
    const int id = m_ids.value(path, kRoot);
    if (id == kRoot)
        return {};
    const Node& node = nodeOf(id);
    const auto& siblings = nodeOf(node.parent).shown;
    const auto row = static_cast<std::size_t>(node.row);
    // The row of a node that the filter hides is an old one.
    const bool isShown = row < siblings.size() && siblings[row] == id;
    return isShown ? createIndex(node.row, Name, static_cast<quintptr>(id)) : QModelIndex();
}

QString DatacoreTreeModel::pathOf(const QModelIndex& index) const
{
    return index.isValid() ? nodeOf(idOf(index)).path : QString();
}

DatacoreTreeModel::Look DatacoreTreeModel::lookOf(const QModelIndex& index) const
{
    const int id = idOf(index);
    const Node& node = nodeOf(id);
    const DatacoreRowState state = stateOf(id);
    Look look;
    look.worst = state.worst;
    look.isActive = state.isActive;
    look.isWritable = node.core && !m_isHeld && node.tree && node.tree != DatacoreTree::Status
        && state.worst != Worst::NoValue && node.children.empty() && node.parent != kRoot;
    look.isInner = !node.children.empty() || node.parent == kRoot;
    if (m_writes.contains(id))
        look.confirmation = m_writes.isOverdue(id) ? Confirmation::Overdue : Confirmation::Awaited;
    return look;
}

bool DatacoreTreeModel::isBool(const QModelIndex& index) const
{
    const QStringList values = stateOf(idOf(index)).values;
    return values.size() == 1
        && (values.first() == QLatin1String("true") || values.first() == QLatin1String("false"));
}

QString DatacoreTreeModel::valueText(int id) const
{
    const Node& node = nodeOf(id);
    const DatacoreRowState state = stateOf(id);
    const QString value = DatacoreRowTexts::joined(state.values, kShownCharacters);
    if (node.parent == kRoot && node.tree)
        return DatacoreRowTexts::ofTree(*node.tree);
    if (!value.isEmpty() || node.children.empty())
        return state.values.size() < 2 ? value : tr("%1  (%2 items)").arg(value).arg(state.values.size());
    return node.children.size() == 1 ? tr("1 node") : tr("%1 nodes").arg(node.children.size());
}

QString DatacoreTreeModel::toolTip(int id) const
{
    const Node& node = nodeOf(id);
    const DatacoreRowState state = stateOf(id);
    QStringList lines{node.path};
    const QString value = DatacoreRowTexts::joined(state.values, kToolTipCharacters);
    if (!value.isEmpty())
        lines << value;
    if (state.worst == Worst::NoValue)
        lines << tr("No value yet");
    lines << state.reasons;
    if (m_writes.contains(id))
        lines << (m_writes.isOverdue(id) ? tr("Sent, but the instrument has not confirmed it for 5 s")
                                         : tr("Sent, waiting for the instrument"));
    return ToolTipText::of(lines.join(QLatin1Char('\n')));
}

// --- The model

QModelIndex DatacoreTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const Node& above = nodeOf(idOf(parent));
    return createIndex(row, column, static_cast<quintptr>(above.shown[static_cast<std::size_t>(row)]));
}

QModelIndex DatacoreTreeModel::parent(const QModelIndex& child) const
{
    if (!child.isValid())
        return {};
    const int above = nodeOf(idOf(child)).parent;
    if (above == kRoot)
        return {};
    return createIndex(nodeOf(above).row, Name, static_cast<quintptr>(above));
}

int DatacoreTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > Name)
        return 0;
    return static_cast<int>(nodeOf(idOf(parent)).shown.size());
}

int DatacoreTreeModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

QVariant DatacoreTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int id = idOf(index);
    if (role == Qt::ToolTipRole)
        return toolTip(id);
    if (role == Qt::EditRole && index.column() == Value)
        return DatacoreRowTexts::forEditing(stateOf(id).values);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Name:
        return nodeOf(id).name;
    case Value:
        return valueText(id);
    case Class:
        return stateOf(id).className;
    default:
        return {};
    }
}

QVariant DatacoreTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Name");
    case Value:
        return tr("Value");
    case Validity:
        return tr("Validity");
    case Class:
        return tr("Class");
    default:
        return {};
    }
}

Qt::ItemFlags DatacoreTreeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const Look look = lookOf(index);
    if (index.column() == Value && look.isWritable && look.isActive)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool DatacoreTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const int id = idOf(index);
    ClientDatacore* const core = nodeOf(id).core;
    const auto items = DatacoreRowTexts::fromEditing(value.toString(), core->getDataList().size() > 1);
    if (!items)
        return false;
    m_writes.begin(id);
    // The node may be gone when this returns.
    core->setDataStringList(*items);
    return true;
}
