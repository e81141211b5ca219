#include "network/ClientConstants.h"

std::shared_ptr<ClientConstants> ClientConstantsFactory::instance()
{
    static const std::shared_ptr<ClientConstants> constants = std::make_shared<ClientConstantsWz>();
    return constants;
}
