#pragma once

#include <chrono>

class QAbstractSocket;

namespace PeerWatch {

/// How long a peer may be gone without a word (cable pulled, power lost) before its connection is given up.
inline constexpr std::chrono::seconds kLongestSilence{4};

/// Makes the kernel probe the idle peer of a connected TCP socket every second and give the connection up
/// after kLongestSilence without an answer, whether data is waiting to be acknowledged or not. Failure is
/// logged.
void noticeSilentLoss(const QAbstractSocket& socket);

} // namespace PeerWatch
