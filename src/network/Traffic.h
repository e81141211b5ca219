#pragma once

#include <QElapsedTimer>

/// What a connection has received since it was made.
struct Traffic {
    quint64 tcpFrames = 0;
    quint64 udpFrames = 0;
    QElapsedTimer sinceLast; ///< invalid before the first frame
};
