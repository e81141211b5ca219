#include "datacore/nodes/DatacoreAudioFlowChannelMap.h"

#include <set>

/// A channel of the instrument can be fed only once.
void AudioFlowChannelMapValue::check(std::list<DatacoreValidStatusMessage>& messages) const
{
    std::set<int> fed;
    for (const Channel& channel : entries) {
        if (!fed.insert(channel.outputChannel).second) {
            messages.emplace_back(DatacoreValidStatusMessage::DuplicateItems);
            return;
        }
    }
}
