#include "types/Types.h"

namespace Velmora::Types {

QString convertPPMScaleTypeToString(PPMScaleType type)
{
    switch (type) {
    case PPMScaleType::DbFs:
        return QStringLiteral("dBFS");
    case PPMScaleType::DbuMinus18DbFs:
        return QStringLiteral("dBu -18dBFS");
    case PPMScaleType::DbuMinus20DbFs:
        return QStringLiteral("dBu -20dBFS");
    case PPMScaleType::Bbc:
        return QStringLiteral("BBC");
    case PPMScaleType::NordicN9:
        return QStringLiteral("NordicN9");
    case PPMScaleType::Din45406:
        return QStringLiteral("DIN45406");
    }
    return {};
}

std::vector<PPMScaleType> getPPMScaleTypesInMenuOrder()
{
    return {PPMScaleType::DbFs, PPMScaleType::DbuMinus18DbFs, PPMScaleType::DbuMinus20DbFs,
            PPMScaleType::Bbc,  PPMScaleType::Din45406,       PPMScaleType::NordicN9};
}

} // namespace Velmora::Types
