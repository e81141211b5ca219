#pragma once

#include "server/core/AudioMeterService.h"
#include "server/core/DatacoreService.h"
#include "server/core/EventService.h"
#include "server/core/InstrumentTrees.h"
#include "server/sources/Signal.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

template<typename T>
class DatacoreNumberLimits;
template<typename T>
class DatacoreNumber;
class DatacoreBool;
class DatacoreVideoStandard;

namespace Velmora::Server {

class ChoiceNode;
class FilePathNode;
class GeneratorStandardNode;

/// What is at the input when the instrument starts.
struct SignalChoice {
    QString source; ///< one of SignalInput::sourceNames(); empty for the default
    QString pattern; ///< one of the PatternCatalogue; empty for the default
    std::optional<Sdi::StandardFromPayloadIdentifier> standard; ///< of generated pictures
    QString mediaFile;
    bool loop = false;
    MediaOpener openMedia; ///< without it there are no media files
};

/// The instrument's input: the elements that choose a signal, generate it or play it from a file, what they
/// do, and the publication of what is there.
///
/// Sound is measured by the AudioMeterService. Pictures are made when whoever measures them reads one, and
/// never otherwise.
class SignalInput : public QObject {
    Q_OBJECT
public:
    using Standard = Sdi::StandardFromPayloadIdentifier;

    static constexpr char kLipSyncSource[] = "lip-sync";
    static constexpr char kFileSource[] = "file";
    static constexpr char kNoSignalSource[] = "no-signal";

    /// Adds its elements to the trees.
    SignalInput(const SignalChoice& choice, unsigned seed, InstrumentTrees& trees, DatacoreService& datacores,
                EventService& events, AudioMeterService& meters);
    ~SignalInput() override;

    static QStringList sourceNames();
    /// Source and pictures in words, for the log.
    QString description() const;

    using Pictures = std::shared_ptr<VideoSource>;
    /// What is to be measured, for one reader in whatever thread; null without a signal.
    const Pictures& pictures() const { return m_video; }
    /// What the reader of pictures has found them to be, nothing when they have ended. Publishes it, unless
    /// they are none of the present ones any more.
    void notePictures(const Pictures& pictures, const std::optional<VideoFormat>& format);
    /// Of the pictures that are there, as far as it is known; nothing without any.
    const std::optional<VideoFormat>& videoFormat() const { return m_presentFormat; }
    /// Why the file does not play; empty when it does.
    const QString& mediaError() const { return m_mediaError; }

signals:
    /// pictures() are others.
    void picturesChanged();

private:
    void addSourceElements();
    void addGeneratorElements();
    void addToneElements();
    void addMediaElements(const SignalChoice& choice);
    void addStatusElements();

    bool isSource(const char* name) const;
    bool isGenerated() const;
    /// Begins the chosen source anew, with its pictures and its sound.
    void begin();
    void selectSource();
    void selectPattern();
    void selectStandard();
    void selectFile();
    void seek();
    /// Renews the generated pictures, alone where the sound has nothing to do with them.
    void regenerate();
    Signal makeSignal();
    Signal openFile();
    std::unique_ptr<VideoSource> makePattern() const;

    void showActivity();
    void applyTone();
    void tellPictures();
    std::optional<Standard> standardOf(const std::optional<VideoFormat>& format) const;
    void showVideo(const std::optional<VideoFormat>& format);
    /// Shows what is new and raises the events for it.
    void publishVideo(const std::optional<VideoFormat>& format);
    void reportAudioPresence();

    unsigned m_seed;
    MediaOpener m_openMedia;
    InstrumentTrees& m_trees;
    DatacoreService& m_datacores;
    EventService& m_events;
    AudioMeterService& m_meters;

    // What was chosen last and is valid; a node may hold something that is not.
    QString m_source;
    QString m_patternName;
    Standard m_generatedStandard;
    VideoFormat m_generatedFormat;

    QString m_mediaError;
    Pictures m_video;
    std::optional<VideoFormat> m_presentFormat; ///< of m_video, as far as it is known
    std::shared_ptr<PlaybackControl> m_playback = std::make_shared<PlaybackControl>();
    std::optional<VideoFormat> m_shownFormat;
    std::optional<Standard> m_shownStandard; ///< nothing also for pictures that no standard has

    ChoiceNode* m_sourceName = nullptr;
    ChoiceNode* m_pattern = nullptr;
    GeneratorStandardNode* m_generatorStandard = nullptr;
    DatacoreNumberLimits<double>* m_toneFrequency = nullptr;
    DatacoreNumberLimits<double>* m_toneLevel = nullptr;
    FilePathNode* m_mediaPath = nullptr;
    DatacoreBool* m_mediaLoop = nullptr;
    DatacoreBool* m_mediaPaused = nullptr;
    DatacoreNumberLimits<double>* m_mediaSeek = nullptr;
    DatacoreNumber<double>* m_mediaDuration = nullptr;
    DatacoreNumber<unsigned int>* m_audioChannels = nullptr;
    DatacoreVideoStandard* m_videoStandard = nullptr;
    DatacoreBase* m_pictureFormat = nullptr;
};

} // namespace Velmora::Server
