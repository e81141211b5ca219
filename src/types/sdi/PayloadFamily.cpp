#include "types/sdi/PayloadFamily.h"

#include "types/sdi/PayloadFamilies.h"

#include <algorithm>

namespace Velmora::Sdi {

static_assert(std::all_of(PayloadFamilies::kAll.begin(), PayloadFamilies::kAll.end(),
                          [](const PayloadFamily* family) { return family->fields.isFreeOfOverlap(); }));

const PayloadFamily* findPayloadFamily(unsigned byte1)
{
    const auto& families = PayloadFamilies::kAll;
    const auto found = std::find_if(families.begin(), families.end(),
                                    [byte1](const PayloadFamily* family) { return family->byte1 == byte1; });
    return found == families.end() ? nullptr : *found;
}

} // namespace Velmora::Sdi
