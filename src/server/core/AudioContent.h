#pragma once

#include "server/core/AudioMeterService.h"
#include "server/core/DatacoreService.h"
#include "server/core/InstrumentTrees.h"
#include "server/core/SignalInput.h"
#include "server/measure/AudioContentDetector.h"

namespace Velmora::Server {

class FilePathNode;

/// The elements that say what the audio channels are: what they carry, where their Dolby E frames begin, and
/// how somebody has named them. What they carry is found out while their levels are measured.
class AudioContent {
public:
    /// Adds its elements to the trees.
    AudioContent(const SignalInput& input, InstrumentTrees& trees, DatacoreService& datacores,
                 AudioMeterService& meters);

    /// Names from a text file, the first line for the first channel; an empty path takes them away.
    void readNames(const QString& path);

private:
    void setActive(bool active);
    void onBlock(const AudioBlock& block);
    void publish();
    void setItems(DatacoreBase& node, const QStringList& items);

    const SignalInput& m_input;
    DatacoreService& m_datacores;
    AudioContentDetector m_detector;
    std::size_t m_framesSincePublished = 0;

    DatacoreBase* m_channels;
    DatacoreBase* m_dolbyELines;
    DatacoreBase* m_dolbyEIdealLine;
    FilePathNode* m_namesFile;
    DatacoreBase* m_names;
};

} // namespace Velmora::Server
