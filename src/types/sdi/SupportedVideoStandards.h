#pragma once

#include "types/sdi/VideoStandardCreator.h"
#include "types/sdi/VideoStandardIndex.h"

#include <vector>

namespace Velmora::Sdi {

/// Every SDI video standard that can be named, recognised or generated. Built once and shared read-only; the
/// lists and the index point into the catalogues that this object owns. All lists are in catalogue order,
/// which is the order of menus.
class SupportedVideoStandards {
public:
    using StandardList = VideoStandardIndex::StandardList;

    SupportedVideoStandards();
    SupportedVideoStandards(const SupportedVideoStandards&) = delete;
    SupportedVideoStandards& operator=(const SupportedVideoStandards&) = delete;

    const StandardList& getSupportedAnalyserStandards() const { return m_analyserStandards; }
    /// Without the standards of which the analyser can receive a single link only.
    const StandardList& getSupportedAnalyserWithoutSingleLinkOfMultiLinkStandards() const
    {
        return m_analyserWithoutSingleLinkStandards;
    }
    const StandardList& getSupportedGeneratorStandards() const { return m_generatorStandards; }
    const VideoStandardIndex& getAnalyserStandardsIndex() const { return m_analyserIndex; }

private:
    static void populateStandards(VideoStandardList& list, bool analyser);

    VideoStandardList m_analyserCatalogue;
    VideoStandardList m_generatorCatalogue;
    StandardList m_analyserStandards;
    StandardList m_analyserWithoutSingleLinkStandards;
    StandardList m_generatorStandards;
    VideoStandardIndex m_analyserIndex;
};

} // namespace Velmora::Sdi
