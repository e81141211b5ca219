#pragma once

namespace TerminationSignals {

/// Makes SIGINT and SIGTERM end the event loop of the running application object, with exit code 0, instead
/// of the process: what it holds is closed and written. A second signal ends the process at once.
void quitApplication();

} // namespace TerminationSignals
