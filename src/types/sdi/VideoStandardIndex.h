#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/sdi/SdiTypes.h"

#include <map>
#include <tuple>
#include <vector>

namespace Velmora::Sdi {

class PayloadIdentifierBase;
class StandardFromPayloadIdentifier;

/// Finds standards by their decoded fields. Refers to the standards without owning them.
class VideoStandardIndex {
public:
    using StandardList = std::vector<const StandardFromPayloadIdentifier*>;

    VideoStandardIndex() = default;
    VideoStandardIndex(const VideoStandardIndex&) = delete;
    VideoStandardIndex& operator=(const VideoStandardIndex&) = delete;

    /// Files @p standard under its nine keys.
    void addVideoStandard(const StandardFromPayloadIdentifier* standard);

    /// The standards with these properties at any picture rate, in rate order; none when a key is unknown.
    [[nodiscard]] StandardList
    findMatchingStandardList(unsigned links, SdiDataRate dataRate, PayloadId::TransferCurve transfer,
                             PayloadId::Colourimetry colourimetry, PayloadId::SampleStructure sampling,
                             PayloadId::BitDepth depth, CombinedFormat format, Level level) const;

    /// The standards that a received @p identifier can belong to when the signal has @p links links. A
    /// 1080-line single-link identifier on four links belongs to quadrant standards; one link stands for all
    /// where only single links can be received. Standards that agree in every field go first and alone; only
    /// when there are none, those that differ in aspect ratio, luminance signal or a transport bit without
    /// effect are returned.
    [[nodiscard]] StandardList findMatchingStandardList(const PayloadIdentifierBase& identifier,
                                                        unsigned links) const;

private:
    using ByPictureRate = std::map<PayloadId::PictureRate, StandardList>;
    using ByLevel = std::map<Level, ByPictureRate>;
    using ByFormat = std::map<CombinedFormat, ByLevel>;
    using ByDepth = std::map<PayloadId::BitDepth, ByFormat>;
    using BySampling = std::map<PayloadId::SampleStructure, ByDepth>;
    using ByColourimetry = std::map<PayloadId::Colourimetry, BySampling>;
    using ByTransfer = std::map<PayloadId::TransferCurve, ByColourimetry>;
    using ByDataRate = std::map<SdiDataRate, ByTransfer>;
    using ByLinks = std::map<unsigned, ByDataRate>;

    const ByPictureRate* findNode(unsigned links, SdiDataRate dataRate, PayloadId::TransferCurve transfer,
                                  PayloadId::Colourimetry colourimetry, PayloadId::SampleStructure sampling,
                                  PayloadId::BitDepth depth, CombinedFormat format, Level level) const;

    /// The first eight keys.
    using Path = std::tuple<unsigned, SdiDataRate, PayloadId::TransferCurve, PayloadId::Colourimetry,
                            PayloadId::SampleStructure, PayloadId::BitDepth, CombinedFormat, Level>;

    ByLinks m_byLinks;
    /// Where the last standard went: in catalogue order the next one, another rate of the same, mostly goes
    /// there too.
    Path m_lastPath;
    ByPictureRate* m_lastNode = nullptr;
};

} // namespace Velmora::Sdi
