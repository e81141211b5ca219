#include "server/sources/PatternCatalogue.h"

#include "server/sources/patterns/Black.h"
#include "server/sources/patterns/CheckField.h"
#include "server/sources/patterns/EbuBars.h"
#include "server/sources/patterns/HdrBars.h"
#include "server/sources/patterns/LevelSweeps.h"
#include "server/sources/patterns/MovingBox.h"
#include "server/sources/patterns/SmpteBars.h"
#include "server/sources/patterns/ZonePlate.h"

#include <algorithm>

namespace Velmora::Server::PatternCatalogue {

namespace {

template<typename Kind>
std::unique_ptr<Pattern> makeKind()
{
    return std::make_unique<Kind>();
}

std::unique_ptr<Pattern> makeBars100()
{
    return std::make_unique<EbuBars>(1.0, 1.0);
}

std::unique_ptr<Pattern> makeBars75()
{
    return std::make_unique<EbuBars>(0.75, 0.75);
}

std::unique_ptr<Pattern> makeEbuBars()
{
    return std::make_unique<EbuBars>(1.0, 0.75);
}

} // namespace

const std::vector<Entry>& entries()
{
    static const std::vector<Entry> list{
        {"smpte-bars", "multi-format colour bars (SMPTE RP 219)", makeKind<SmpteBars>},
        {"bars-100", "full-field colour bars 100/0/100/0", makeBars100},
        {"bars-75", "full-field colour bars 75/0/75/0", makeBars75},
        {"ebu-bars", "full-field colour bars 100/0/75/0 (EBU)", makeEbuBars},
        {"hdr-bars", "colour bars for HLG and PQ (ITU-R BT.2111)", makeKind<HdrBars>},
        {"ramp", "grey ramp from black to white", makeKind<LevelRamp>},
        {"full-range-sweep", "every code of each component in turn", makeKind<FullRangeSweep>},
        {"zone-plate", "circular zone plate", makeKind<ZonePlate>},
        {"check-field", "pathological check field (SMPTE RP 178, RP 198)", makeKind<CheckField>},
        {"moving-box", "moving box with the number of the frame", makeKind<MovingBox>},
        {"black", "black", makeKind<Black>},
    };
    return list;
}

std::unique_ptr<Pattern> make(std::string_view name)
{
    const auto& all = entries();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Entry& entry) { return entry.name == name; });
    return found == all.end() ? nullptr : found->make();
}

} // namespace Velmora::Server::PatternCatalogue
