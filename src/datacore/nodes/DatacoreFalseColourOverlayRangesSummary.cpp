#include "datacore/nodes/DatacoreFalseColourOverlayRangesSummary.h"

#include <algorithm>

void FalseColourOverlayRangesSummaryStruct::check(std::list<DatacoreValidStatusMessage>& messages) const
{
    const auto isUpsideDown = [](const Range& range) { return !(range.lower <= range.upper); };
    if (std::any_of(entries.begin(), entries.end(), isUpsideDown))
        messages.emplace_back(DatacoreValidStatusMessage::ConfigurationInvalid);
}
