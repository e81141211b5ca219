#pragma once

#include <QMetaType>
#include <QString>

#include <cstdint>
#include <vector>

/// Value types that windows, datacore bindings and remote control share.
namespace Velmora::Types {

/// Scale of an audio level meter; the values are those on the wire.
enum class PPMScaleType : std::uint8_t {
    DbFs = 0,
    DbuMinus18DbFs = 1,
    DbuMinus20DbFs = 2,
    Bbc = 3,
    NordicN9 = 4,
    Din45406 = 5,
};

/// The option text; empty for any other value.
QString convertPPMScaleTypeToString(PPMScaleType type);
/// The scales as menus offer them: DIN45406 stands before NordicN9, although its value is the greater.
std::vector<PPMScaleType> getPPMScaleTypesInMenuOrder();

/// Where metered audio comes from.
enum class AudioInput : std::uint8_t { EmbeddedSdi = 0, Aes = 1, St2110_30 = 2, DolbyE = 3 };

/// One of the instrument's SDI outputs.
enum class OutputSpigot : std::uint8_t { A = 0, B = 1, C = 2, D = 3 };

} // namespace Velmora::Types

Q_DECLARE_METATYPE(Velmora::Types::PPMScaleType)
Q_DECLARE_METATYPE(Velmora::Types::AudioInput)
Q_DECLARE_METATYPE(Velmora::Types::OutputSpigot)
