#pragma once

/// Says when each step of the start was reached, in milliseconds since the process began, on standard error.
/// Silent unless enabled: "-Dtrace=startup".
namespace StartupTrace {

void enable();
bool isEnabled();
void step(const char* name);

} // namespace StartupTrace
