#include "sound/AlsaOutput.h"

#include <alsa/asoundlib.h>

namespace Velmora::Sound {

namespace {

constexpr char kDevice[] = "default";
constexpr unsigned kChannels = 2;
constexpr unsigned kSampleRate = 48000;
constexpr int kResample = 1;
constexpr unsigned kLatencyUs = 150'000;
/// Silence in front, so that neither a late block nor a clock that is a little faster makes gaps at once.
constexpr std::size_t kHeadStartFrames = kSampleRate / 20;

/// What is wrong is told by the results; the library would write it to standard error as well.
void keepQuiet(const char*, int, const char*, int, const char*, ...)
{
}

} // namespace

std::unique_ptr<AlsaOutput> AlsaOutput::open(QString& error)
{
    snd_lib_error_set_handler(keepQuiet);
    snd_pcm_t* device = nullptr;
    int result = snd_pcm_open(&device, kDevice, SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
    if (result >= 0) {
        std::unique_ptr<AlsaOutput> output(new AlsaOutput(device));
        result = snd_pcm_set_params(device, SND_PCM_FORMAT_FLOAT, SND_PCM_ACCESS_RW_INTERLEAVED, kChannels,
                                    kSampleRate, kResample, kLatencyUs);
        if (result >= 0) {
            output->begin();
            return output;
        }
    }
    error = QStringLiteral("no sound output: %1").arg(QString::fromLocal8Bit(snd_strerror(result)));
    return nullptr;
}

AlsaOutput::~AlsaOutput()
{
    snd_pcm_close(m_device);
}

QString AlsaOutput::name() const
{
    return QString::fromLatin1(snd_pcm_name(m_device));
}

void AlsaOutput::begin()
{
    const std::vector<float> silence(kHeadStartFrames * kChannels);
    snd_pcm_writei(m_device, silence.data(), kHeadStartFrames);
}

void AlsaOutput::play(const float* stereo, std::size_t frames)
{
    const snd_pcm_sframes_t written = snd_pcm_writei(m_device, stereo, frames);
    // A full buffer leaves out the block. After a gap, or a sleep of the machine, it begins anew.
    if (written < 0 && written != -EAGAIN && snd_pcm_recover(m_device, static_cast<int>(written), 1) >= 0) {
        begin();
        snd_pcm_writei(m_device, stereo, frames);
    }
}

} // namespace Velmora::Sound
