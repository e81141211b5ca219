#include "types/sdi/VideoStandardIndex.h"

#include "types/sdi/SdiUtility.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

#include <algorithm>
#include <iterator>

namespace Velmora::Sdi {

using namespace PayloadId;

namespace {

/// Walks @p map down one key after the other; null as soon as one is missing.
template<typename Map, typename Key, typename... Keys>
const auto* descend(const Map& map, Key key, Keys... keys)
{
    const auto found = map.find(key);
    if constexpr (sizeof...(keys) == 0)
        return found == map.end() ? nullptr : &found->second;
    else
        return found == map.end() ? nullptr : descend(found->second, keys...);
}

} // namespace

void VideoStandardIndex::addVideoStandard(const StandardFromPayloadIdentifier* standard)
{
    const Path path(standard->getNumberOfPhysicalLinks(),
                    standard->getFirstPayloadIdentifier().getDataRatePerPhysicalConnection(),
                    standard->getTransferCurve(), standard->getColourimetry(), standard->getSampleStructure(),
                    standard->getBitDepth(), standard->getCombinedFormat(), standard->getLinkLevel());
    if (!m_lastNode || path != m_lastPath) {
        const auto& [links, dataRate, transfer, colourimetry, sampling, depth, format, level] = path;
        m_lastNode = &m_byLinks[links][dataRate][transfer][colourimetry][sampling][depth][format][level];
        m_lastPath = path;
    }
    // Rates rise within a sweep, so that the end is the right place for nearly every standard.
    const auto leaf = m_lastNode->try_emplace(m_lastNode->end(), standard->getPictureRate());
    leaf->second.push_back(standard);
}

const VideoStandardIndex::ByPictureRate*
VideoStandardIndex::findNode(unsigned links, SdiDataRate dataRate, TransferCurve transfer,
                             Colourimetry colourimetry, SampleStructure sampling, BitDepth depth,
                             CombinedFormat format, Level level) const
{
    return descend(m_byLinks, links, dataRate, transfer, colourimetry, sampling, depth, format, level);
}

VideoStandardIndex::StandardList
VideoStandardIndex::findMatchingStandardList(unsigned links, SdiDataRate dataRate, TransferCurve transfer,
                                             Colourimetry colourimetry, SampleStructure sampling,
                                             BitDepth depth, CombinedFormat format, Level level) const
{
    StandardList standards;
    const ByPictureRate* node =
        findNode(links, dataRate, transfer, colourimetry, sampling, depth, format, level);
    if (!node)
        return standards;
    for (const auto& [rate, list] : *node)
        standards.insert(standards.end(), list.begin(), list.end());
    return standards;
}

VideoStandardIndex::StandardList
VideoStandardIndex::findMatchingStandardList(const PayloadIdentifierBase& identifier, unsigned links) const
{
    const PayloadFamily* family = identifier.family();
    if (family && family->receivedAsSingleLinkOnly && links == 1)
        links = family->links;
    const unsigned factor = identifier.getNumPhysicalConnections() == 1 && links == 4 ? 2 : 1;
    const CombinedFormat format =
        SdiUtility::convertToCombinedFormat(factor * identifier.getReconstructedImageWidthInPixels(),
                                            factor * identifier.getReconstructedImageHeightInPixels(),
                                            identifier.getPicutreInterlacedProgressivePsf());
    const ByPictureRate* node =
        findNode(links, identifier.getDataRatePerPhysicalConnection(),
                 identifier.getTransferCharacteristics(), identifier.getColourimetry(),
                 identifier.getSampleStructure(), identifier.getBitDepth(), format, identifier.getLevel());
    if (!node)
        return {};
    const auto atRate = node->find(identifier.getPictureRate());
    if (atRate == node->end())
        return {};
    for (const bool exact : {true, false}) {
        StandardList standards;
        std::copy_if(atRate->second.begin(), atRate->second.end(), std::back_inserter(standards),
                     [&identifier, exact](const StandardFromPayloadIdentifier* standard) {
                         return standard->getFirstPayloadIdentifier().compareForVideoStandard(identifier,
                                                                                              exact);
                     });
        if (!standards.empty())
            return standards;
    }
    return {};
}

} // namespace Velmora::Sdi
