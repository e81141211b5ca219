#include "server/core/GeneratorStandardNode.h"

#include "server/sources/VideoFormats.h"

#include <algorithm>

namespace Velmora::Server {

namespace {

/// The memory and time of four times the largest picture have no use yet.
constexpr int kMostLines = 2160;
constexpr unsigned kQuadrants = 4;

bool isWhole(const Sdi::StandardFromPayloadIdentifier& standard)
{
    const Sdi::PayloadFamily* const family = standard.getFirstPayloadIdentifier().family();
    return family
        && standard.getPayloadIdentifiers().size()
        == family->identifiers * (standard.isQuadrantMode() ? kQuadrants : 1);
}

/// Whether the identifiers are valid ones and differ in the number of their link alone.
bool isConsistent(const Sdi::StandardFromPayloadIdentifier& standard)
{
    const auto& all = standard.getPayloadIdentifiers();
    return std::all_of(all.begin(), all.end(), [&](const auto& each) {
        return each->doSmpteValidationChecks().isEmpty()
            && each->compareForVideoStandard(standard.getFirstPayloadIdentifier(), true);
    });
}

} // namespace

void GeneratorStandardNode::regenerateInvalidationStatusMessages(Messages& messages) const
{
    DatacoreVideoStandard::regenerateInvalidationStatusMessages(messages);
    if (!messages.empty())
        return;
    const auto value = getValueAndValidateThatItIsDeserialisable(messages);
    if (value && !formatOf(*value))
        messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
}

std::optional<VideoFormat> GeneratorStandardNode::formatOf(const VideoStandardValue& value)
{
    const auto standard = value.toStandard();
    if (!standard || !isWhole(*standard) || !isConsistent(*standard))
        return std::nullopt;
    const auto format = VideoFormats::formatOf(*standard);
    return format && format->height <= kMostLines ? format : std::nullopt;
}

} // namespace Velmora::Server
