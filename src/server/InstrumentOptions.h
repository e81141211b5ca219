#pragma once

#include "server/RenderCommand.h"
#include "server/core/FaultPlan.h"
#include "server/core/SignalInput.h"

#include <QHostAddress>

namespace Velmora::Server {

/// What the command line of wz_instrument asks for.
struct InstrumentOptions {
    QHostAddress address{QHostAddress::LocalHost};
    SignalChoice signal;
    QString channelNames; ///< a file
    unsigned seed = 1;
    FaultPlan faults;
    bool listSources = false;
    QString stateFolder; ///< where everything is kept that shall survive
    RenderRequest render;

    static const char* usage();
    /// Ends the program with one line that says what is wrong with the command line.
    static InstrumentOptions read(const QStringList& arguments);
};

} // namespace Velmora::Server
