#pragma once

#include "server/core/MonitorOutput.h"

#include <memory>
#include <vector>

struct _snd_pcm;

namespace Velmora::Sound {

/// The default output of the machine's sound system.
class AlsaOutput : public Server::MonitorOutput {
public:
    /// Null, and why, when there is none.
    static std::unique_ptr<AlsaOutput> open(QString& error);
    ~AlsaOutput() override;

    void play(const float* stereo, std::size_t frames) override;
    QString name() const override;

private:
    explicit AlsaOutput(_snd_pcm* device)
        : m_device(device)
    {
    }
    void begin();

    _snd_pcm* m_device;
};

} // namespace Velmora::Sound
