#pragma once

class WzClientNetworkManager;

namespace ConnectionLog {

/// Logs from now on when the connection to the instrument comes, goes and fails to come.
void follow(WzClientNetworkManager& manager);

} // namespace ConnectionLog
