#pragma once

#include "server/core/AudioMeterService.h"
#include "server/core/DatacoreService.h"
#include "server/core/InstrumentTrees.h"
#include "server/core/MonitorOutput.h"
#include "server/measure/MonitorMix.h"

#include <vector>

namespace Velmora::Server {

/// The elements that choose what of the input is heard, and the hearing. Where the machine has no output it
/// is silent, and says so.
class AudioMonitor {
public:
    /// Adds its elements to the trees.
    AudioMonitor(InstrumentTrees& trees, DatacoreService& datacores, AudioMeterService& meters);

    /// How to open the output, which happens when something is to be heard for the first time.
    void setOpener(MonitorOpener open) { m_open = std::move(open); }

private:
    /// An element whose valid values go to @p target, which has its first one.
    void addNumber(InstrumentTrees& trees, const QString& path, unsigned& target, unsigned lowest,
                   unsigned highest);
    void setMuted(bool muted);
    void openOutput();
    void play(const AudioBlock& block);

    DatacoreService& m_datacores;
    AudioMeterService& m_meters;
    MonitorOpener m_open;
    bool m_isMuted = true;
    bool m_hasTriedToOpen = false;
    std::unique_ptr<MonitorOutput> m_output;
    MonitorMix m_mix;
    std::vector<float> m_stereo;

    DatacoreBase* m_outputName;
};

} // namespace Velmora::Server
