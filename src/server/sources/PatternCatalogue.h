#pragma once

#include "server/sources/patterns/Pattern.h"

#include <memory>
#include <string_view>
#include <vector>

namespace Velmora::Server {

/// The test patterns that can be chosen by name.
namespace PatternCatalogue {

struct Entry {
    const char* name;
    const char* description;
    std::unique_ptr<Pattern> (*make)();
};

/// In the order in which they are listed; the first is the default.
const std::vector<Entry>& entries();

/// A new pattern of that name, or null.
std::unique_ptr<Pattern> make(std::string_view name);

} // namespace PatternCatalogue

} // namespace Velmora::Server
