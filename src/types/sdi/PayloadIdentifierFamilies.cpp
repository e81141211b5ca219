#include "types/sdi/PayloadIdentifierFamilies.h"

#include <algorithm>
#include <array>

namespace Velmora::Sdi {

namespace {

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

} // namespace Velmora::Sdi
