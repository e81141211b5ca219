#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <memory>

namespace Velmora::Server {

/// Where the monitored sound is heard.
class MonitorOutput {
public:
    MonitorOutput() = default;
    MonitorOutput(const MonitorOutput&) = delete;
    MonitorOutput& operator=(const MonitorOutput&) = delete;
    virtual ~MonitorOutput() = default;

    /// Takes frames of left and right at 48 kHz, at the pace of real time, and never waits. What has no room
    /// is left out.
    virtual void play(const float* stereo, std::size_t frames) = 0;
    /// What it is called.
    virtual QString name() const = 0;
};

/// Opens the machine's output. Null, and one line that says why, when there is none.
using MonitorOpener = std::function<std::unique_ptr<MonitorOutput>(QString& error)>;

} // namespace Velmora::Server
