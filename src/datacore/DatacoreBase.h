#pragma once

#include "datacore/DatacoreActiveStatusElement.h"
#include "datacore/DatacoreClassnameElement.h"
#include "datacore/DatacoreDataElement.h"
#include "datacore/DatacoreElementPrivateInterface.h"
#include "datacore/DatacoreJsonInterface.h"
#include "datacore/DatacoreValidStatusElement.h"

#include <QString>

#include <deque>
#include <list>
#include <map>

class JsonObjectWriter;
class JsonView;

/// One node of a datacore tree: its data, its class name and its reasons for being invalid and inactive, and
/// the child nodes by instance name.
///
/// A node registers with its parent when it is made and leaves it when it is destroyed; parent and children
/// do not own each other. Changes are passed up and collected by the root. One thread only.
class DatacoreBase : public DatacoreJsonInterface, private DatacoreElementPrivateInterface {
public:
    enum ChangedStatus : int {
        Unchanged = 0,
        ChangedFromJson = 1,
        ChangedDirectly = 2,
    };

    DatacoreBase(QString className, QString instanceName, DatacoreBase* parent, QString initialData);
    DatacoreBase(QString instanceName, DatacoreBase* parent, QString initialData);
    DatacoreBase(const QString& className, const QString& instanceName, DatacoreBase* parent,
                 const std::deque<QString>& initialData);
    DatacoreBase(const QString& instanceName, DatacoreBase* parent, const std::deque<QString>& initialData);
    DatacoreBase(QString className, QString instanceName, DatacoreBase* parent);
    DatacoreBase(QString instanceName, DatacoreBase* parent);
    ~DatacoreBase() override;
    Q_DISABLE_COPY_MOVE(DatacoreBase)

    /// The single item; of a list the first one, of no data the empty string.
    QString getData() const;
    std::deque<QString> getDataArray() const { return m_data.getData(); }
    /// The items as they are kept.
    const QStringList& getDataList() const { return m_data.items(); }
    void setData(QString data);
    void setDataArray(std::deque<QString>&& data);
    void setDataList(const QStringList& data);

    QString getClassName() const { return m_className.getClassname(); }
    QString getInstanceName() const { return m_instanceName; }
    /// The instance names from the root to this node, joined by "/".
    QString getPath() const;
    const std::map<QString, DatacoreBase*>& getChildren() const { return m_children; }
    /// The node at @p path below this one; this one for the empty path; null when there is none.
    DatacoreBase* findDescendant(const QString& path);
    /// Splits at the first "/". False when the path begins with it.
    bool splitPathAroundFirstDelimiter(QString path, QString& head, QString& rest) const;

    bool isValid() const { return m_validStatus.isValid(); }
    bool isValid(std::list<DatacoreValidStatusMessage>& reasons) const
    {
        return m_validStatus.isValid(reasons);
    }
    /// Whether all nodes below this one are valid.
    bool areChildrenValid() const;
    bool isActive() const { return m_activeStatus.isActive(); }
    bool isActive(std::list<DatacoreActiveStatusMessage>& reasons) const
    {
        return m_activeStatus.isActive(reasons);
    }
    const std::list<DatacoreValidStatusMessage>& getReasonsForBeingInvalid() const
    {
        return m_validStatus.getReasonsForBeingInvalid();
    }
    const std::list<DatacoreActiveStatusMessage>& getReasonsForBeingInactive() const
    {
        return m_activeStatus.getReasonsForBeingInactive();
    }
    void setValid(const std::list<DatacoreValidStatusMessage>& reasons) { m_validStatus.setValid(reasons); }
    void setActive(const std::list<DatacoreActiveStatusMessage>& reasons)
    {
        m_activeStatus.setActive(reasons);
    }

    /// Lists every problem of the present data. Overrides replace the whole list and do not call this one,
    /// which tells that the class has no rules of its own.
    virtual void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const;
    virtual void regenerateInactivationStatusMessages(std::list<DatacoreActiveStatusMessage>& messages) const;
    /// Regenerates the reasons for being invalid in the whole subtree. A node whose class has no rules keeps
    /// those that it has.
    void revalidateAll();
    /// Validates the subtree, marks it unchanged and processes what is valid.
    void applyDefaultStateToSystem();
    /// Lets the data take effect.
    virtual void processData() { }
    void processAllValidData();

    bool appendDataToJson(QString path, QJsonObject& json, bool skipStatus, bool includeChildren,
                          std::list<DatacoreJsonMessage>& messages) const override;
    /// Reads the member of @p json that is named as the node, and with it what it holds for the node's
    /// children. A fault anywhere leaves all of them as they were. However much differs, each node found
    /// notifies once, also when nothing does.
    bool populateDataFromJson(QString path, const QJsonObject& json, bool skipStatus,
                              std::list<DatacoreJsonMessage>& messages) override;
    /// The same straight from received text.
    bool populateDataFromView(const JsonView& json, bool skipStatus,
                              std::list<DatacoreJsonMessage>& messages);
    /// Writes what appendDataToJson() inserts for the empty path without children.
    void writeOwnData(JsonObjectWriter& writer, bool skipStatus) const;

    void notifyElementChangedFromJson() override;
    void notifyElementChangedFromDirect() override;
    void notifyChanged();
    /// Passes the nodes up to the root, which collects each once.
    void notifyChanged(std::list<DatacoreBase*>& changedCores);
    int getChangedStatus() const { return m_changedStatus; }
    void resetChangedStatus() { m_changedStatus = Unchanged; }
    void resetAllChangedStatus();
    /// Hands over the nodes collected since the last call, in the order of their first change.
    std::list<DatacoreBase*> emptyCollectedChangedCores();
    /// Drops from @p cores every node that is in @p present.
    static void removeDuplicates(std::list<DatacoreBase*>& cores, const std::list<DatacoreBase*>& present);

protected:
    /// Called on the root after each change in its tree.
    virtual void changedPrivateSignal() { }
    /// Takes over whatever class name is received, as a mirror does.
    void adoptReceivedClassNames() { m_className.adoptReceivedNames(); }
    void markChangedDirectly() { m_changedStatus = ChangedDirectly; }

private:
    struct Update;

    DatacoreBase(const QString& className, const QString& instanceName, DatacoreBase* parent,
                 const QStringList& initialData);

    void registerChildDatacore(QString name, DatacoreBase* child);
    void leaveTree();
    DatacoreBase& root();
    bool isBelow(const DatacoreBase* ancestor) const;
    void collect(DatacoreBase* changed);

    bool appendOwnData(QJsonObject& json, bool skipStatus, bool includeChildren,
                       std::list<DatacoreJsonMessage>& messages) const;
    template<typename View>
    bool readOwnData(const View& json, bool skipStatus, Update& update,
                     std::list<DatacoreJsonMessage>& messages);
    template<typename View>
    bool readWithChildren(const View& json, bool skipStatus, std::vector<Update>& updates,
                          std::list<DatacoreJsonMessage>& messages);
    template<typename View>
    bool populateFrom(const View& json, bool skipStatus, std::list<DatacoreJsonMessage>& messages);
    void apply(Update&& update);

    DatacoreDataElement m_data;
    DatacoreValidStatusElement m_validStatus;
    DatacoreActiveStatusElement m_activeStatus;
    DatacoreClassnameElement m_className;
    int m_changedStatus = ChangedDirectly;
    bool m_isCollected = false; ///< the root's list holds this node
    mutable bool m_hasNoRules = false; ///< found while regenerating the reasons
    std::list<DatacoreBase*> m_collectedChangedCores;
    std::map<QString, DatacoreBase*> m_children;
    QString m_instanceName;
    DatacoreBase* m_parent = nullptr;
};
