#pragma once

#include "server/sources/AudioSource.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace Velmora::Server {

/// The sources of sound that can be chosen by name.
namespace AudioSourceCatalogue {

struct Entry {
    const char* name;
    const char* description;
    std::unique_ptr<AudioSource> (*make)(std::uint64_t seed);
};

/// In the order in which they are listed; the first is the default.
const std::vector<Entry>& entries();

/// A new source of that name, or null. The same @p seed gives the same noise.
std::unique_ptr<AudioSource> make(std::string_view name, std::uint64_t seed);

} // namespace AudioSourceCatalogue

} // namespace Velmora::Server
