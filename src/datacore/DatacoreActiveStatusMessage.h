#pragma once

#include "datacore/DatacoreMessage.h"

/// Why a datacore is inactive.
class DatacoreActiveStatusMessage : public DatacoreMessage<DatacoreActiveStatusMessage> {
public:
    enum Content : int {
        CommandExecutorBusy = 2,
        NoNeed = 3,
        NotSupportedForStandard = 4,
        ChildrenInvalid = 5,
    };

    static constexpr QLatin1String kClassName{"DatacoreActiveStatusMessage", 27};
    static constexpr const char* kTexts[] = {
        "",
        "",
        "Command Executor is Busy",
        ("There is not currently any need for this datacore, its value is meaningless and probably "
         "represents "
         "data that doesn't exist yet!"),
        "Parameter not supported for current video standard",
        "One or more child datacores are invalid.",
        "",
    };

    using DatacoreMessage::DatacoreMessage;
};
