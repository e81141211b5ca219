#include "datacore/DatacoreBase.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/JsonObjectWriter.h"
#include "network/JsonView.h"

#include <QSet>

#include <algorithm>
#include <utility>

using Velmora::LogThrottle;

namespace {

constexpr QLatin1Char kDelimiter('/');

/// A child of such a name would take the place of an element in the node's JSON object.
bool isElementKey(const QString& name)
{
    return name == DatacoreClassnameElement::kKey || name == DatacoreDataElement::kKey
        || name == DatacoreActiveStatusElement::kKey || name == DatacoreValidStatusElement::kKey;
}

} // namespace

/// What a JSON object alters in one node, checked and ready to be applied.
struct DatacoreBase::Update {
    DatacoreBase* node = nullptr;
    DatacoreClassnameElement::Change className;
    DatacoreDataElement::Change data;
    DatacoreActiveStatusElement::Change reasonsForBeingInactive;
    DatacoreValidStatusElement::Change reasonsForBeingInvalid;
};

DatacoreBase::DatacoreBase(const QString& className, const QString& instanceName, DatacoreBase* parent,
                           const QStringList& initialData)
    : m_data(this)
    , m_validStatus(this)
    , m_activeStatus(this)
    , m_className(className, this)
    , m_instanceName(instanceName)
{
    registerDatacoreMessages();
    m_data.initialise(initialData);
    if (parent)
        parent->registerChildDatacore(instanceName, this);
}

DatacoreBase::DatacoreBase(QString className, QString instanceName, DatacoreBase* parent, QString initialData)
    : DatacoreBase(className, instanceName, parent, QStringList(initialData))
{
}

DatacoreBase::DatacoreBase(QString instanceName, DatacoreBase* parent, QString initialData)
    : DatacoreBase(QString(), instanceName, parent, QStringList(initialData))
{
}

DatacoreBase::DatacoreBase(const QString& className, const QString& instanceName, DatacoreBase* parent,
                           const std::deque<QString>& initialData)
    : DatacoreBase(className, instanceName, parent, QStringList(initialData.begin(), initialData.end()))
{
}

DatacoreBase::DatacoreBase(const QString& instanceName, DatacoreBase* parent,
                           const std::deque<QString>& initialData)
    : DatacoreBase(QString(), instanceName, parent, initialData)
{
}

DatacoreBase::DatacoreBase(QString className, QString instanceName, DatacoreBase* parent)
    : DatacoreBase(className, instanceName, parent, QStringList())
{
}

DatacoreBase::DatacoreBase(QString instanceName, DatacoreBase* parent)
    : DatacoreBase(QString(), instanceName, parent, QStringList())
{
}

DatacoreBase::~DatacoreBase()
{
    leaveTree();
}

QString DatacoreBase::getData() const
{
    return m_data.items().value(0);
}

void DatacoreBase::setData(QString data)
{
    m_data.setItems(QStringList(data));
}

void DatacoreBase::setDataArray(std::deque<QString>&& data)
{
    m_data.setData(std::move(data));
}

void DatacoreBase::setDataList(const QStringList& data)
{
    m_data.setItems(data);
}

QString DatacoreBase::getPath() const
{
    int size = -1;
    for (const DatacoreBase* node = this; node; node = node->m_parent)
        size += node->m_instanceName.size() + 1;
    QString path(size, kDelimiter);
    // From the end to the front, so that it takes one string however deep the node is.
    for (const DatacoreBase* node = this; node; node = node->m_parent) {
        const int length = node->m_instanceName.size();
        std::copy_n(node->m_instanceName.constData(), length, path.data() + size - length);
        size -= length + 1;
    }
    return path;
}

DatacoreBase* DatacoreBase::findDescendant(const QString& path)
{
    if (path.isEmpty())
        return this;
    QString head;
    QString rest;
    if (!splitPathAroundFirstDelimiter(path, head, rest))
        return nullptr;
    const auto child = m_children.find(head);
    return child == m_children.end() ? nullptr : child->second->findDescendant(rest);
}

bool DatacoreBase::splitPathAroundFirstDelimiter(QString path, QString& head, QString& rest) const
{
    const int delimiter = path.indexOf(kDelimiter);
    if (delimiter == 0)
        return false;
    head = path.left(delimiter);
    rest = delimiter < 0 ? QString() : path.mid(delimiter + 1);
    return true;
}

bool DatacoreBase::areChildrenValid() const
{
    return std::all_of(m_children.begin(), m_children.end(), [](const auto& entry) {
        return entry.second->isValid() && entry.second->areChildrenValid();
    });
}

void DatacoreBase::regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const
{
    m_hasNoRules = true;
    messages.clear();
}

void DatacoreBase::regenerateInactivationStatusMessages(
    std::list<DatacoreActiveStatusMessage>& messages) const
{
    messages.clear();
}

void DatacoreBase::revalidateAll()
{
    std::list<DatacoreValidStatusMessage> messages;
    m_hasNoRules = false;
    regenerateInvalidationStatusMessages(messages);
    if (!m_hasNoRules)
        setValid(messages);
    for (const auto& [name, child] : m_children)
        child->revalidateAll();
}

void DatacoreBase::applyDefaultStateToSystem()
{
    revalidateAll();
    resetAllChangedStatus();
    processAllValidData();
}

void DatacoreBase::processAllValidData()
{
    if (isValid())
        processData();
    for (const auto& [name, child] : m_children)
        child->processAllValidData();
}

bool DatacoreBase::appendDataToJson(QString path, QJsonObject& json, bool skipStatus, bool includeChildren,
                                    std::list<DatacoreJsonMessage>& messages) const
{
    if (path.isEmpty()) {
        QJsonObject own;
        if (!appendOwnData(own, skipStatus, includeChildren, messages))
            return false;
        json.insert(m_instanceName, own);
        return true;
    }
    QString head;
    QString rest;
    if (!splitPathAroundFirstDelimiter(path, head, rest))
        return false;
    const auto child = m_children.find(head);
    return child != m_children.end()
        && child->second->appendDataToJson(rest, json, skipStatus, includeChildren, messages);
}

bool DatacoreBase::appendOwnData(QJsonObject& json, bool skipStatus, bool includeChildren,
                                 std::list<DatacoreJsonMessage>& messages) const
{
    const DatacoreJsonInterface* const elements[] = {&m_className, &m_data, &m_activeStatus, &m_validStatus};
    const auto append = [&](const DatacoreJsonInterface* part) {
        return part->appendDataToJson(QString(), json, skipStatus, includeChildren, messages);
    };
    if (!std::all_of(std::begin(elements), std::end(elements), append))
        return false;
    return !includeChildren || std::all_of(m_children.begin(), m_children.end(), [&](const auto& entry) {
        return append(entry.second);
    });
}

void DatacoreBase::writeOwnData(JsonObjectWriter& writer, bool skipStatus) const
{
    writer.beginObjectNamed(m_instanceName);
    m_className.write(writer);
    m_data.write(writer);
    if (!skipStatus) {
        m_activeStatus.write(writer);
        m_validStatus.write(writer);
    }
    writer.endObject();
}

bool DatacoreBase::populateDataFromJson(QString path, const QJsonObject& json, bool skipStatus,
                                        std::list<DatacoreJsonMessage>& messages)
{
    if (path.isEmpty())
        return populateFrom(QtJsonView(json), skipStatus, messages);
    QString head;
    QString rest;
    if (!splitPathAroundFirstDelimiter(path, head, rest)) {
        messages.emplace_back(DatacoreJsonMessage::BadlyFormedPath);
        return false;
    }
    const auto child = m_children.find(head);
    if (child == m_children.end()) {
        messages.emplace_back(DatacoreJsonMessage::DatacorePathUnresolved);
        return false;
    }
    return child->second->populateDataFromJson(rest, json, skipStatus, messages);
}

bool DatacoreBase::populateDataFromView(const JsonView& json, bool skipStatus,
                                        std::list<DatacoreJsonMessage>& messages)
{
    return populateFrom(json, skipStatus, messages);
}

template<typename View>
bool DatacoreBase::populateFrom(const View& json, bool skipStatus, std::list<DatacoreJsonMessage>& messages)
{
    // A node without children, which all mirrored ones are, needs no list of updates.
    if (m_children.empty()) {
        Update update;
        if (!readOwnData(json.memberNamed(m_instanceName), skipStatus, update, messages))
            return false;
        apply(std::move(update));
        notifyElementChangedFromJson();
        return true;
    }
    std::vector<Update> updates;
    if (!readWithChildren(json, skipStatus, updates, messages))
        return false;
    for (Update& update : updates)
        update.node->apply(std::move(update));
    for (const Update& update : updates)
        update.node->notifyElementChangedFromJson();
    return true;
}

template<typename View>
bool DatacoreBase::readOwnData(const View& json, bool skipStatus, Update& update,
                               std::list<DatacoreJsonMessage>& messages)
{
    if (!json.isObject()) {
        messages.emplace_back(DatacoreJsonMessage::InstanceNameMismatch);
        return false;
    }
    update.node = this;
    return m_className.readMember(json, skipStatus, update.className, messages)
        && m_data.readMember(json, skipStatus, update.data, messages)
        && m_activeStatus.readMember(json, skipStatus, update.reasonsForBeingInactive, messages)
        && m_validStatus.readMember(json, skipStatus, update.reasonsForBeingInvalid, messages);
}

template<typename View>
bool DatacoreBase::readWithChildren(const View& json, bool skipStatus, std::vector<Update>& updates,
                                    std::list<DatacoreJsonMessage>& messages)
{
    const View own = json.memberNamed(m_instanceName);
    if (!readOwnData(own, skipStatus, updates.emplace_back(), messages))
        return false;
    return std::all_of(m_children.begin(), m_children.end(), [&](const auto& entry) {
        return own.memberNamed(entry.first).isAbsent()
            || entry.second->readWithChildren(own, skipStatus, updates, messages);
    });
}

void DatacoreBase::apply(Update&& update)
{
    m_className.apply(std::move(update.className));
    m_data.apply(std::move(update.data));
    m_activeStatus.apply(std::move(update.reasonsForBeingInactive));
    m_validStatus.apply(std::move(update.reasonsForBeingInvalid));
}

void DatacoreBase::notifyElementChangedFromJson()
{
    if (m_changedStatus == Unchanged)
        m_changedStatus = ChangedFromJson;
    notifyChanged();
}

void DatacoreBase::notifyElementChangedFromDirect()
{
    m_changedStatus = ChangedDirectly;
    notifyChanged();
}

void DatacoreBase::notifyChanged()
{
    DatacoreBase& top = root();
    top.collect(this);
    top.changedPrivateSignal();
}

void DatacoreBase::notifyChanged(std::list<DatacoreBase*>& changedCores)
{
    DatacoreBase& top = root();
    for (DatacoreBase* const changed : std::as_const(changedCores)) {
        // A node of another tree could not be taken out of this list when it goes.
        if (&changed->root() == &top)
            top.collect(changed);
    }
    top.changedPrivateSignal();
}

void DatacoreBase::resetAllChangedStatus()
{
    resetChangedStatus();
    for (const auto& [name, child] : m_children)
        child->resetAllChangedStatus();
}

std::list<DatacoreBase*> DatacoreBase::emptyCollectedChangedCores()
{
    for (DatacoreBase* const core : std::as_const(m_collectedChangedCores))
        core->m_isCollected = false;
    return std::exchange(m_collectedChangedCores, {});
}

void DatacoreBase::removeDuplicates(std::list<DatacoreBase*>& cores, const std::list<DatacoreBase*>& present)
{
    const QSet<DatacoreBase*> known(present.begin(), present.end());
    cores.remove_if([&](DatacoreBase* core) { return known.contains(core); });
}

void DatacoreBase::registerChildDatacore(QString name, DatacoreBase* child)
{
    if (isElementKey(name) || !m_children.emplace(name, child).second) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "DatacoreBase: '{}' cannot have a child of the name '{}'", getPath(),
                     name);
        return;
    }
    child->m_parent = this;
}

/// Leaves no pointer to this node behind: in the parent, in the children or in the root's list.
void DatacoreBase::leaveTree()
{
    if (m_parent) {
        auto& collected = root().m_collectedChangedCores;
        if (m_isCollected || !m_children.empty()) {
            collected.remove_if([this](DatacoreBase* core) {
                const bool leaves = core->isBelow(this);
                core->m_isCollected = core->m_isCollected && !leaves;
                return leaves;
            });
        }
        m_parent->m_children.erase(m_instanceName);
    } else {
        emptyCollectedChangedCores();
    }
    for (const auto& [name, child] : m_children)
        child->m_parent = nullptr;
}

DatacoreBase& DatacoreBase::root()
{
    DatacoreBase* node = this;
    while (node->m_parent)
        node = node->m_parent;
    return *node;
}

bool DatacoreBase::isBelow(const DatacoreBase* ancestor) const
{
    const DatacoreBase* node = this;
    while (node && node != ancestor)
        node = node->m_parent;
    return node == ancestor;
}

void DatacoreBase::collect(DatacoreBase* changed)
{
    if (std::exchange(changed->m_isCollected, true))
        return;
    m_collectedChangedCores.push_back(changed);
}
