#pragma once

#include "datacore/DatacoreElementPrivateInterface.h"
#include "datacore/DatacoreJsonInterface.h"
#include "datacore/QtJsonView.h"

#include "network/JsonView.h"

#include <QJsonObject>

#include <string_view>
#include <utility>

/// What the four elements of a node have in common. @p Self gives its key in the node's JSON object as kKey,
/// the type of a change to it as Change, and
///  - toJson(skipStatus): its JSON value, undefined when there is nothing to write,
///  - read(value, change, messages): checks a JSON value and notes in @p change what it alters; for both
///    views of JSON,
///  - apply(change): takes a change over, silently.
template<typename Self>
class DatacoreElement : public DatacoreJsonInterface {
public:
    explicit DatacoreElement(DatacoreElementPrivateInterface* node)
        : m_node(node)
    {
    }

    bool appendDataToJson(QString path, QJsonObject& json, bool skipStatus, bool /*includeChildren*/,
                          std::list<DatacoreJsonMessage>& messages) const override
    {
        if (!endsHere(path, messages))
            return false;
        const QJsonValue value = self().toJson(skipStatus);
        if (!value.isUndefined())
            json.insert(Self::kKey, value);
        return true;
    }

    bool populateDataFromJson(QString path, const QJsonObject& json, bool skipStatus,
                              std::list<DatacoreJsonMessage>& messages) override
    {
        if (!endsHere(path, messages))
            return false;
        auto change = typename Self::Change();
        if (!readMember(QtJsonView(json), skipStatus, change, messages))
            return false;
        static_cast<Self*>(this)->apply(std::move(change));
        m_node->notifyElementChangedFromJson();
        return true;
    }

    /// Checks the element's member of the node's object and notes what it alters. That a status is missing is
    /// no fault.
    template<typename View, typename Change>
    bool readMember(const View& nodeObject, bool skipStatus, Change& change,
                    std::list<DatacoreJsonMessage>& messages) const
    {
        if (Self::kIsStatus && skipStatus)
            return true;
        const View value = nodeObject.member(keyView());
        if (Self::kIsStatus && value.isAbsent())
            return true;
        const size_t messagesBefore = messages.size();
        if (!value.isAbsent() && self().read(value, change, messages))
            return true;
        if (messages.size() == messagesBefore)
            messages.emplace_back(DatacoreJsonMessage::ElementKeyMissing);
        return false;
    }

protected:
    static constexpr std::string_view keyView() { return asciiView(Self::kKey); }
    DatacoreElementPrivateInterface& node() const { return *m_node; }

private:
    static bool endsHere(const QString& path, std::list<DatacoreJsonMessage>& messages)
    {
        if (path.isEmpty())
            return true;
        messages.emplace_back(DatacoreJsonMessage::PathDoesNotEndAtElement);
        return false;
    }
    const Self& self() const { return static_cast<const Self&>(*this); }

    DatacoreElementPrivateInterface* m_node;
};
