#include "datacore/DatacoreTree.h"

#include <array>

namespace {

/// In the order of the enumeration.
constexpr std::array kRootNames{
    QLatin1String("configCoreRouter", 16),
    QLatin1String("statusCoreRouter", 16),
    QLatin1String("nonPersistentConfigCoreRouter", 29),
    QLatin1String("commandCoreRouter", 17),
    QLatin1String("persistentConfigCoreRouter", 26),
};

} // namespace

std::optional<QLatin1String> ServerCommon::rootName(DatacoreTree tree)
{
    const auto index = static_cast<size_t>(tree);
    return index < kRootNames.size() ? std::optional(kRootNames[index]) : std::nullopt;
}
