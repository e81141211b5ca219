// Any 32-bit word is decoded by its family, by the default field map and by a field map made of the input,
// named, checked, compared and looked up. Wrong results end the run like crashes.

#include "types/sdi/PayloadIdentifierFamilies.h"
#include "types/sdi/SupportedVideoStandards.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace Velmora::Sdi;

namespace {

const SupportedVideoStandards& supported()
{
    static const SupportedVideoStandards standards;
    return standards;
}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void readEverything(const PayloadIdentifierBase& id)
{
    require(!id.toHumanReadable(true).isEmpty());
    require(id.toHumanReadable(false).size() >= id.toHumanReadable(true).size());
    id.doSmpteValidationChecks();
    id.doReservedBitsChecks();
    require(id.getFieldHeights().size() == id.getFieldFirstLineNumbersOfActivePicture().size());
    require(id.compareForVideoStandard(id, true) && id.compareForVideoStandard(id, false));
}

void readAsStandard(const StandardFromPayloadIdentifier::Identifier& id, bool quadrants)
{
    const auto standard = StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier({id}, quadrants);
    require(!standard.getStandardAsShortText().isEmpty());
    require(!standard.getStandardAsReferenceString().isEmpty());
    require(standard.getSubPicutureSampleRateInHz() >= 0);
    for (unsigned i = 0; i < standard.getSubImageCount(); ++i)
        require(!standard.getPayloadIdentifiersForSubImage(i).empty());
    standard.getReconstructedPictureHorizontalblankingSize();
    standard.getCombinedFormat();
}

/// Field places from the bytes behind the word, any of them overlapping.
PayloadIdentifierFieldMap mapFrom(const std::uint8_t* data, std::size_t size)
{
    PayloadIdentifierFieldMap map;
    for (std::size_t i = 0; i + 2 < size && i / 3 < kPayloadIdentifierFieldTypes; i += 3) {
        const unsigned bits = data[i + 1] | static_cast<unsigned>(data[i + 2]) << 8;
        map = map.with(static_cast<PayloadIdentifierFieldType>(i / 3),
                       {data[i], {bits & 7U, (bits >> 4) & 7U, (bits >> 8) & 7U, bits >> 12}});
    }
    return map;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::uint32_t word = 0;
    if (size < sizeof word)
        return 0;
    std::memcpy(&word, data, sizeof word);

    const auto id = makePayloadIdentifier(word);
    readEverything(*id);
    readEverything(PayloadIdentifierBase(word));
    readEverything(PayloadIdentifierBase(word, mapFrom(data + sizeof word, size - sizeof word)));
    readAsStandard(id, false);
    readAsStandard(id, true);

    for (const unsigned links : {0U, 1U, 2U, 4U}) {
        for (const auto* standard :
             supported().getAnalyserStandardsIndex().findMatchingStandardList(*id, links)) {
            require(standard->getNumberOfPhysicalLinks() == links
                    || standard->isSingleLinkOfMultiLinkStandard());
            require(standard->getFirstPayloadIdentifier().compareForVideoStandard(*id, false));
        }
    }
    return 0;
}
