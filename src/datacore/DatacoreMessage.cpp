#include "datacore/DatacoreMessage.h"

#include "datacore/DatacoreActiveStatusMessage.h"
#include "datacore/DatacoreJsonMessage.h"
#include "datacore/DatacoreValidStatusMessage.h"

namespace {

template<typename... Messages>
bool registerAll()
{
    (MessageBase::registerBuilder(Messages::kClassName, &Messages::build), ...);
    return true;
}

} // namespace

void registerDatacoreMessages()
{
    static const bool done =
        registerAll<DatacoreJsonMessage, DatacoreValidStatusMessage, DatacoreActiveStatusMessage>();
    Q_UNUSED(done)
}
