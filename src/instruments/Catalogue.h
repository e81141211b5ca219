#pragma once

struct InstrumentServices;
class SupportedSubWindows;

/// Puts every instrument into the catalogue, one line each, in the order of the launcher. The services have
/// to outlive it.
void addInstruments(SupportedSubWindows& catalogue, const InstrumentServices& services);
