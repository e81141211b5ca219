#include "network/JsonDocument.h"

#include <atomic>

namespace {

quint64 firstNumberOfThread()
{
    static std::atomic<quint64> threads{0};
    return ++threads << 40;
}

} // namespace

JsonDocument::JsonDocument()
    : number(firstNumberOfThread())
{
    // The size is that of the buffers made ready here; they grow with the documents.
    usable = parser.allocate(16 * 1024, kDepthLimit) == simdjson::SUCCESS;
}

JsonDocument& JsonDocument::ofThisThread()
{
    static thread_local JsonDocument instance;
    return instance;
}
