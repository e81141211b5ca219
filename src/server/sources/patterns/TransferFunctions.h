#pragma once

namespace Velmora::Server {

/// The transfer functions of BT.2100, between the non-linear signal E' (0 to 1) and light.
namespace TransferFunctions {

/// HLG: scene light, 1 at E' = 1.
double hlgToLight(double signal);
double lightToHlg(double light);
/// PQ (ST 2084): display light, 1 at 10,000 cd/m2.
double pqToLight(double signal);
double lightToPq(double light);

} // namespace TransferFunctions

} // namespace Velmora::Server
