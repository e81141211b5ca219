#include "feed/SegmentNames.h"

#include "feed/Segment.h"

#include <algorithm>

#include <dirent.h>

namespace Velmora::Feed::SegmentNames {

namespace {

constexpr std::string_view kPrefix = "wz-feed-";
/// Where the C library keeps POSIX shared memory on Linux; there is no portable way to list it.
constexpr const char* kFolder = "/dev/shm";

} // namespace

bool isImageName(std::string_view image)
{
    constexpr std::size_t kLongest = 32;
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    };
    return !image.empty() && image.size() <= kLongest && std::all_of(image.begin(), image.end(), isAllowed);
}

std::string nameOf(int port, std::string_view image)
{
    return '/' + std::string(kPrefix) + std::to_string(port) + '-' + std::string(image);
}

int removeAbandoned()
{
    DIR* const folder = ::opendir(kFolder);
    if (folder == nullptr)
        return 0;
    int removed = 0;
    while (const dirent* const entry = ::readdir(folder)) {
        const std::string_view file = entry->d_name;
        if (file.substr(0, kPrefix.size()) != kPrefix)
            continue;
        const std::string name = '/' + std::string(file);
        const Segment segment = Segment::open(name);
        if (segment.isValid() && !segment.isLocked()) {
            Segment::unlink(name);
            ++removed;
        }
    }
    ::closedir(folder);
    return removed;
}

} // namespace Velmora::Feed::SegmentNames
