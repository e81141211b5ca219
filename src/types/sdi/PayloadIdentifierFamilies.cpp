#include "types/sdi/PayloadIdentifierFamilies.h"

#include <algorithm>
#include <array>

namespace Velmora::Sdi {

using namespace PayloadId;

namespace {

using FieldType = PayloadIdentifierFieldType;

std::uint32_t depthCodeOf(BitDepthCoding coding, BitDepth depth)
{
    switch (coding) {
    case BitDepthCoding::OneBit:
        return depth == BitDepth::Bits8 ? 0 : 1;
    case BitDepthCoding::S292_1:
        return static_cast<std::uint32_t>(PayloadIdentifierBase::convertBitDepthToS292_1BitDepth(depth));
    case BitDepthCoding::General:
        break;
    }
    return static_cast<std::uint32_t>(depth);
}

template<typename Family>
std::shared_ptr<const PayloadIdentifierBase> make(std::uint32_t word)
{
    return std::make_shared<const Family>(word);
}

using Maker = std::shared_ptr<const PayloadIdentifierBase> (*)(std::uint32_t);

template<typename... Families>
std::shared_ptr<const PayloadIdentifierBase> makeByByte1(std::uint32_t word)
{
    static constexpr std::array kMakers{
        std::pair<unsigned, Maker>{Families::kFamily.byte1, make<Families>}...};
    static_assert(kMakers.size() == PayloadFamilies::kAll.size());
    const auto maker = std::find_if(kMakers.begin(), kMakers.end(),
                                    [word](const auto& entry) { return entry.first == word >> 24; });
    return maker == kMakers.end() ? make<PayloadIdentifierBase>(word) : maker->second(word);
}

} // namespace

std::shared_ptr<const PayloadIdentifierBase> makePayloadIdentifier(std::uint32_t word)
{
    return makeByByte1<PayloadIdentifierSd_270m, PayloadIdentifier720_1g5, PayloadIdentifier1080_1g5,
                       PayloadIdentifier1080_DualLink1g5, PayloadIdentifier720_3g, PayloadIdentifier1080_3g,
                       PayloadIdentifier1080_Levelb3g, PayloadIdentifier2160_DualLinkLevelb3g,
                       PayloadIdentifier2160_QuadLink3g, PayloadIdentifier2160_QuadLinkLevelb3g,
                       PayloadIdentifier2160_6g, PayloadIdentifier2160_DualLink6g, PayloadIdentifier2160_12g,
                       PayloadIdentifier4320_QuadLink12g_SingleOnly>(word);
}

std::uint32_t buildPayloadIdentifierWord(const PayloadFamily& family, TransportFormat transport,
                                         PictureFormat picture, PictureRate rate, SampleStructure sampling,
                                         BitDepth depth, const PayloadIdentifierOptions& options)
{
    std::uint32_t word = 0;
    const auto put = [&word, &family](FieldType type, auto value) {
        word = family.fields.at(type).write(word, static_cast<unsigned>(value));
    };
    put(FieldType::PayloadAndDigitalInterface, family.byte1);
    put(FieldType::TransportFormat, transport);
    put(FieldType::PictureFormat, picture);
    put(FieldType::PictureRate, rate);
    put(FieldType::TransferCharacteristics, options.transfer);
    put(FieldType::SamplingStructure, sampling);
    put(FieldType::Colourimetry, options.colourimetry);
    put(FieldType::AspectRatio, options.aspect);
    put(FieldType::HorizontalPixelArraySize, options.array);
    put(FieldType::BitDepth, depthCodeOf(family.depthCoding, depth));
    put(FieldType::LuminanceAndColourDifferenceSignal, options.luminance);
    put(FieldType::Channel, options.channel);
    put(FieldType::AudioCopyStatus, options.audioCopy);
    return word;
}

} // namespace Velmora::Sdi
