#pragma once

#include "tools/FactSheet.h"

#include <cstdint>

namespace Velmora::Sdi {
class SupportedVideoStandards;
}

/// Everything that there is to tell about one payload identifier.
namespace PayloadIdentifierReport {

/// Its texts, fields, geometry, faults, and the standards among @p supported that it can belong to.
FactSheet of(std::uint32_t word, const Velmora::Sdi::SupportedVideoStandards& supported);

} // namespace PayloadIdentifierReport
