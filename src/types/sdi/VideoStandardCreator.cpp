#include "types/sdi/VideoStandardCreator.h"

#include "types/sdi/PayloadIdentifierFamilies.h"

#include <array>
#include <utility>

namespace Velmora::Sdi {

namespace {

using Identifiers = std::vector<StandardFromPayloadIdentifier::Identifier>;

constexpr unsigned kQuadrants = 4;

/// One identifier for each channel of the family: every link or stream that it numbers. They stand in one
/// block, which lives as long as any of them; the catalogue builds a hundred thousand of them, mostly at
/// start-up.
template<typename Id>
void appendIdentifiers(Identifiers& identifiers, const VideoStandardFields& fields)
{
    const std::uint32_t first = Id::getPayloadIdentifierWord(fields.transport, fields.picture, fields.rate,
                                                             fields.sampling, fields.depth,
                                                             {.transfer = fields.transfer,
                                                              .colourimetry = fields.colourimetry,
                                                              .aspect = fields.aspect,
                                                              .array = fields.array});
    const auto& channel = Id::kFamily.fields.at(PayloadIdentifierFieldType::Channel);
    const auto block = [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        using Block = std::array<Id, sizeof...(I)>;
        return std::make_shared<const Block>(Block{Id(channel.write(first, I))...});
    }
    (std::make_index_sequence<Id::kFamily.identifiers>());
    for (const Id& identifier : *block)
        identifiers.emplace_back(block, &identifier);
}

void append(VideoStandardList& list, Identifiers identifiers, bool quadrantMode)
{
    list.push_back(std::make_unique<const StandardFromPayloadIdentifier>(
        StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(std::move(identifiers),
                                                                           quadrantMode)));
}

template<typename Id>
void addStandard(VideoStandardList& list, const VideoStandardFields& fields)
{
    Identifiers identifiers;
    identifiers.reserve(Id::kFamily.identifiers);
    appendIdentifiers<Id>(identifiers, fields);
    append(list, std::move(identifiers), false);
}

/// Four links with equal identifiers: the quadrants share the identifier objects.
template<typename Id>
void addQuadrants(VideoStandardList& list, const VideoStandardFields& fields)
{
    constexpr std::size_t kPerLink = Id::kFamily.identifiers;
    Identifiers identifiers;
    identifiers.reserve(kQuadrants * kPerLink);
    appendIdentifiers<Id>(identifiers, fields);
    for (std::size_t i = kPerLink; i < kQuadrants * kPerLink; ++i)
        identifiers.push_back(identifiers[i - kPerLink]);
    append(list, std::move(identifiers), true);
}

} // namespace

void VideoStandardCreator::addSd_270m(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifierSd_270m>(list, fields);
}

void VideoStandardCreator::add720_1g5(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier720_1g5>(list, fields);
}

void VideoStandardCreator::add1080_1g5(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier1080_1g5>(list, fields);
}

void VideoStandardCreator::add720_3g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier720_3g>(list, fields);
}

void VideoStandardCreator::add1080_3g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier1080_3g>(list, fields);
}

void VideoStandardCreator::add1080_Levelb3g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier1080_Levelb3g>(list, fields);
}

void VideoStandardCreator::add1080_DualLink1g5(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier1080_DualLink1g5>(list, fields);
}

void VideoStandardCreator::add2160_QuadLink1g5QuadrantMode(VideoStandardList& list,
                                                           const VideoStandardFields& fields)
{
    addQuadrants<PayloadIdentifier1080_1g5>(list, fields);
}

void VideoStandardCreator::add2160_QuadLink3gQuadrantMode(VideoStandardList& list,
                                                          const VideoStandardFields& fields)
{
    addQuadrants<PayloadIdentifier1080_3g>(list, fields);
}

void VideoStandardCreator::add2160_QuadLinkLevelb3gQuadrantMode(VideoStandardList& list,
                                                                const VideoStandardFields& fields)
{
    addQuadrants<PayloadIdentifier1080_Levelb3g>(list, fields);
}

void VideoStandardCreator::add2160_DualLink_3g_LevelB(VideoStandardList& list,
                                                      const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier2160_DualLinkLevelb3g>(list, fields);
}

void VideoStandardCreator::add2160_QuadLink3g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier2160_QuadLink3g>(list, fields);
}

void VideoStandardCreator::add2160_QuadLinkLevelb3g(VideoStandardList& list,
                                                    const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier2160_QuadLinkLevelb3g>(list, fields);
}

void VideoStandardCreator::add2160_6g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier2160_6g>(list, fields);
}

void VideoStandardCreator::add2160_DualLink6g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier2160_DualLink6g>(list, fields);
}

void VideoStandardCreator::add2160_12g(VideoStandardList& list, const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier2160_12g>(list, fields);
}

void VideoStandardCreator::add4320_QuadLink12g_SingleOnly(VideoStandardList& list,
                                                          const VideoStandardFields& fields)
{
    addStandard<PayloadIdentifier4320_QuadLink12g_SingleOnly>(list, fields);
}

} // namespace Velmora::Sdi
