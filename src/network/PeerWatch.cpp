#include "network/PeerWatch.h"

#include "logging/LogThrottle.h"

#include <QAbstractSocket>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <cerrno>

namespace PeerWatch {

namespace {

bool setOption(int descriptor, int level, int name, int value)
{
    return ::setsockopt(descriptor, level, name, &value, sizeof value) == 0;
}

} // namespace

void noticeSilentLoss(const QAbstractSocket& socket)
{
    const auto descriptor = static_cast<int>(socket.socketDescriptor());
    // The probes find a loss on an idle connection, the user time-out one with data under way. The time-out
    // also ends the probing, so the count only has to reach as far.
    const int seconds = static_cast<int>(kLongestSilence.count());
    const bool set = setOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1)
        && setOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, 1)
        && setOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, 1)
        && setOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, seconds - 1)
        && setOption(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT, seconds * 1000);
    if (!set) {
        const int error = errno;
        static Velmora::LogThrottle throttle;
        throttle.log(spdlog::level::warn, "NetworkConnection cannot watch for a silent peer (errno={})",
                     error);
    }
}

} // namespace PeerWatch
