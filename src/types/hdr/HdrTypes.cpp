#include "types/hdr/HdrTypes.h"

namespace Velmora::HdrTypes {

QString convertSLog3ModeToString(SLog3Mode mode)
{
    return mode == SLog3Mode::SLog3 ? QStringLiteral("S-Log3") : QStringLiteral("SR Live");
}

} // namespace Velmora::HdrTypes
