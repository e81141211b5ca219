#pragma once

#include <QMetaType>
#include <QString>

#include <cstdint>

namespace Velmora::HdrTypes {

/// How S-Log3 code values are taken to light. Which of the two has the value 0 is inferred from their
/// reference levels (70.0 % belongs to plain S-Log3) and not confirmed.
enum class SLog3Mode : std::uint8_t { SLog3 = 0, SrLive = 1 };

/// "S-Log3" or "SR Live"; any value but 0 is the latter.
QString convertSLog3ModeToString(SLog3Mode mode);

} // namespace Velmora::HdrTypes

Q_DECLARE_METATYPE(Velmora::HdrTypes::SLog3Mode)
