#include "types/sdi/SupportedVideoStandards.h"

#include "types/sdi/VideoStandardFamilies.h"

#include <array>
#include <cstddef>
#include <span>

namespace Velmora::Sdi {

using namespace PayloadId;
using namespace VideoStandardFamilies;

namespace {

constexpr std::array kColourPairs{
    ColourPair{Colourimetry::Rec709, TransferCurve::SdrTv},
    ColourPair{Colourimetry::Rec2020, TransferCurve::SdrTv},
    ColourPair{Colourimetry::Rec2020, TransferCurve::Pq},
    ColourPair{Colourimetry::Rec2020, TransferCurve::Hlg},
    ColourPair{Colourimetry::Rec2020, TransferCurve::SLog3},
    // For the analyser's 2160-line families only.
    ColourPair{Colourimetry::ColVancPacket, TransferCurve::SdrTv},
};

/// Room for either catalogue, so that building them does not move their entries about.
constexpr std::size_t kExpectedStandards = 21000;

using ColourPairs = std::span<const ColourPair>;
using FamilyFunction = void (*)(VideoStandardList&, const ColourPair&);

constexpr ColourPairs fivePairs()
{
    return ColourPairs(kColourPairs).first(5);
}
constexpr ColourPairs sixPairs()
{
    return kColourPairs;
}

void addFamily(VideoStandardList& list, FamilyFunction add, ColourPairs pairs)
{
    for (const ColourPair& pair : pairs)
        add(list, pair);
}

void add2160Families(VideoStandardList& list, ColourPairs pairs)
{
    addFamily(list, add2160_12g_standards, pairs);
    addFamily(list, add2160_12g_extended_standards, pairs);
    addFamily(list, add2160_DualLink6g_standards, pairs);
    addFamily(list, add2160_DualLink6g_extended_standards, pairs);
    addFamily(list, add2160_6g_standards, pairs);
    addFamily(list, add2160_6g_extended_standards, pairs);
    addFamily(list, add2160_QuadLinkLevelb3g_standards, pairs);
    addFamily(list, add2160_QuadLinkLevelb3g_extended_standards, fivePairs()); // never the sixth
    addFamily(list, add2160_QuadLink3g_standards, pairs);
    addFamily(list, add2160_QuadLink3g_extended_standards, pairs);
    addFamily(list, add2160_QuadLinkLevelb3gQuadrantMode_standards, pairs);
    addFamily(list, add2160_QuadLinkLevelb3gQuadrantMode_extended_standards, pairs);
    addFamily(list, add2160_QuadLink3gQuadrantMode_standards, pairs);
    addFamily(list, add2160_QuadLink3gQuadrantMode_extended_standards, pairs);

    addFamily(list, add2160_DualLink_3g_LevelB_standards, fivePairs());
    addFamily(list, add2160_QuadLink1g5QuadrantMode_standards, fivePairs());
}

void add1080And720Families(VideoStandardList& list)
{
    addFamily(list, add1080_Levelb3g_422_10_standards, fivePairs());
    addFamily(list, add1080_Levelb3g_extended_standards, fivePairs());
    addFamily(list, add1080_DualLink1g5_422_10_standards, fivePairs());
    addFamily(list, add1080_DualLink1g5_extended_standards, fivePairs());
    addFamily(list, add1080_3g_422_10_standards, fivePairs());
    addFamily(list, add1080_3g_extended_standards, fivePairs());
    addFamily(list, add720_3g_444_standards, fivePairs());
    addFamily(list, add1080_1g5_standards, fivePairs());
    addFamily(list, add720_1g5_standards, fivePairs());
}

} // namespace

SupportedVideoStandards::SupportedVideoStandards()
{
    m_analyserCatalogue.reserve(kExpectedStandards);
    m_generatorCatalogue.reserve(kExpectedStandards);
    populateStandards(m_analyserCatalogue, true);
    populateStandards(m_generatorCatalogue, false);

    m_analyserStandards.reserve(m_analyserCatalogue.size());
    m_analyserWithoutSingleLinkStandards.reserve(m_analyserCatalogue.size());
    for (const auto& standard : m_analyserCatalogue) {
        m_analyserStandards.push_back(standard.get());
        if (!standard->isSingleLinkOfMultiLinkStandard())
            m_analyserWithoutSingleLinkStandards.push_back(standard.get());
        m_analyserIndex.addVideoStandard(standard.get());
    }
    m_generatorStandards.reserve(m_generatorCatalogue.size());
    for (const auto& standard : m_generatorCatalogue)
        m_generatorStandards.push_back(standard.get());
}

void SupportedVideoStandards::populateStandards(VideoStandardList& list, bool analyser)
{
    if (analyser) {
        addFamily(list, add4320_QuadLink12g_standards, fivePairs());
        addFamily(list, add4320_QuadLink12g_extended_standards, fivePairs());
    }
    add2160Families(list, analyser ? sixPairs() : fivePairs());
    add1080And720Families(list);
    if (analyser)
        addSd_270m_standards(list);
}

} // namespace Velmora::Sdi
