#pragma once

#include "datacore/DatacoreMessage.h"

/// Why a datacore could not be written to JSON or read from it.
class DatacoreJsonMessage : public DatacoreMessage<DatacoreJsonMessage> {
public:
    enum Content : int {
        DatacorePathUnresolved = 0,
        BadlyFormedPath = 1,
        ClassNameMismatch = 2,
        InstanceNameMismatch = 3,
        PathUnresolved = 4,
        PathDoesNotEndAtElement = 5,
        ElementKeyMissing = 6,
    };

    static constexpr QLatin1String kClassName{"DatacoreJsonMessage", 19};
    /// The last two are names that nobody has turned into sentences; they are shown like that.
    static constexpr const char* kTexts[] = {
        "Datacore path could not be resolved",
        "Badly formed path",
        "New data class name does not match destination class name",
        "New data instance name does not match destination instance name",
        "Path could not be resolved",
        "MessageContentPathDoesNotEndAtDatacoreElementLeafNode",
        "MessageContentJsonDoesNotContainDatacoreElementKey",
    };

    using DatacoreMessage::DatacoreMessage;
};
