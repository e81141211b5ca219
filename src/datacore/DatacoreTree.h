#pragma once

#include <QLatin1String>

#include <optional>

namespace ServerCommon {

/// The server's trees.
enum class DatacoreTree : int {
    Configuration = 0,
    Status = 1,
    NonPersistentConfiguration = 2,
    Command = 3,
    PersistentConfiguration = 4,
};

/// The name of the tree's root node, with which every path in it begins; nothing when there is no such tree.
std::optional<QLatin1String> rootName(DatacoreTree tree);

} // namespace ServerCommon
