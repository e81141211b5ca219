#pragma once

#include "datacore/DatacoreJsonMessage.h"

#include <QString>

#include <list>

class QJsonObject;

/// Anything that can write itself into a JSON object and read itself back: nodes and their elements.
class DatacoreJsonInterface {
public:
    virtual ~DatacoreJsonInterface() = default;

    /// Adds the JSON form of what stands at @p path below this to @p json. What went wrong is added to
    /// @p messages; nothing is written then.
    virtual bool appendDataToJson(QString path, QJsonObject& json, bool skipStatus, bool includeChildren,
                                  std::list<DatacoreJsonMessage>& messages) const = 0;
    /// Takes over what appendDataToJson() has written, all of it or nothing. @p skipStatus leaves the reasons
    /// for being invalid and inactive as they are.
    virtual bool populateDataFromJson(QString path, const QJsonObject& json, bool skipStatus,
                                      std::list<DatacoreJsonMessage>& messages) = 0;
};
