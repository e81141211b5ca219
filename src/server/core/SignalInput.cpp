#include "server/core/SignalInput.h"

#include "datacore/ElementPaths.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "datacore/nodes/DatacoreVideoStandard.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "network/events/AudioInputPresenceChangeEventPacket.h"
#include "network/events/SdiInputRateChangeEventPacket.h"
#include "network/events/SdiInputVideoStandardChangeEventPacket.h"
#include "server/core/ChoiceNode.h"
#include "server/core/FilePathNode.h"
#include "server/core/GeneratorStandardNode.h"
#include "server/sources/AudioSourceCatalogue.h"
#include "server/sources/PatternCatalogue.h"
#include "server/sources/PatternGenerator.h"
#include "server/sources/ToneGenerator.h"
#include "server/sources/VideoFormats.h"
#include "server/sources/patterns/LipSync.h"

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;
constexpr double kLowestToneDbfs = -120.0;
/// The entry of the catalogue that the settings of the tone act on.
constexpr char kToneSource[] = "tone";
constexpr double kLongestMedia = 7.0 * 24.0 * 3600.0; ///< seconds

/// 4:2:2, 10 bits, BT.709.
constexpr VideoFormat kDefaultFormat{.width = 1920, .height = 1080, .rateNumerator = 50};

std::list<DatacoreActiveStatusMessage> inactiveUnless(bool active)
{
    std::list<DatacoreActiveStatusMessage> reasons;
    if (!active)
        reasons.emplace_back(DatacoreActiveStatusMessage::NoNeed);
    return reasons;
}

template<typename Entries>
QStringList namesOf(const Entries& entries)
{
    QStringList names;
    for (const auto& entry : entries)
        names << QString::fromLatin1(entry.name);
    return names;
}

QString orDefault(const QString& text, const char* fallback)
{
    return text.isEmpty() ? QString::fromLatin1(fallback) : text;
}

std::unique_ptr<AudioSource> noSound()
{
    return std::make_unique<ToneGenerator>(0);
}

} // namespace

SignalInput::SignalInput(const SignalChoice& choice, unsigned seed, InstrumentTrees& trees,
                         DatacoreService& datacores, EventService& events, AudioMeterService& meters)
    : m_seed(seed)
    , m_openMedia(choice.openMedia)
    , m_trees(trees)
    , m_datacores(datacores)
    , m_events(events)
    , m_meters(meters)
    , m_source(orDefault(choice.source, AudioSourceCatalogue::entries().front().name))
    , m_patternName(orDefault(choice.pattern, PatternCatalogue::entries().front().name))
    , m_generatedStandard(choice.standard ? *choice.standard : *VideoFormats::standardOf(kDefaultFormat))
    , m_generatedFormat(VideoFormats::formatOf(m_generatedStandard).value_or(kDefaultFormat))
{
    addSourceElements();
    addGeneratorElements();
    addToneElements();
    addMediaElements(choice);
    addStatusElements();
    m_playback->setLooping(choice.loop);
    begin();
    showVideo(m_presentFormat);
    connect(&m_meters, &AudioMeterService::presentChannelsChanged, this, &SignalInput::reportAudioPresence);
}

SignalInput::~SignalInput() = default;

QStringList SignalInput::sourceNames()
{
    return namesOf(AudioSourceCatalogue::entries())
        << QString::fromLatin1(kLipSyncSource) << QString::fromLatin1(kFileSource)
        << QString::fromLatin1(kNoSignalSource);
}

QString SignalInput::description() const
{
    return QStringLiteral("source %1, %2").arg(m_source, m_pictureFormat->getData());
}

void SignalInput::addSourceElements()
{
    m_sourceName = &m_trees.add<ChoiceNode>(Tree::Configuration, ElementPaths::SignalSource::kName, m_source,
                                            sourceNames());
    m_datacores.onWritten(*m_sourceName, [this] { selectSource(); });
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SignalSourceStatus::kAvailableNames)
        .setDataList(sourceNames());
}

void SignalInput::addGeneratorElements()
{
    const QStringList patterns = namesOf(PatternCatalogue::entries());
    m_pattern = &m_trees.add<ChoiceNode>(Tree::Configuration, ElementPaths::PatternGenerator::kPattern,
                                         m_patternName, patterns);
    m_generatorStandard = &m_trees.add<GeneratorStandardNode>(Tree::Configuration,
                                                              ElementPaths::PatternGenerator::kVideoStandard,
                                                              VideoStandardValue::of(m_generatedStandard));
    m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::PatternGeneratorStatus::kAvailablePatterns)
        .setDataList(patterns);
    m_datacores.onWritten(*m_pattern, [this] { selectPattern(); });
    m_datacores.onWritten(*m_generatorStandard, [this] { selectStandard(); });
}

void SignalInput::addToneElements()
{
    const ToneChannel defaults;
    m_toneFrequency = &m_trees.add<DatacoreNumberLimits<double>>(
        Tree::Configuration, ElementPaths::ToneGenerator::kFrequency, defaults.frequencyHz,
        ToneChannel::kLowestHz, ToneChannel::kHighestHz);
    m_toneLevel = &m_trees.add<DatacoreNumberLimits<double>>(
        Tree::Configuration, ElementPaths::ToneGenerator::kLevel, defaults.levelDbfs, kLowestToneDbfs, 0.0);
    m_datacores.onWritten(*m_toneFrequency, [this] { applyTone(); });
    m_datacores.onWritten(*m_toneLevel, [this] { applyTone(); });
}

void SignalInput::addMediaElements(const SignalChoice& choice)
{
    m_mediaPath =
        &m_trees.add<FilePathNode>(Tree::Configuration, ElementPaths::MediaFile::kPath, choice.mediaFile);
    m_mediaLoop =
        &m_trees.add<DatacoreBool>(Tree::Configuration, ElementPaths::MediaFile::kLoop, choice.loop);
    m_mediaPaused = &m_trees.add<DatacoreBool>(Tree::Configuration, ElementPaths::MediaFile::kPaused, false);
    m_mediaSeek = &m_trees.add<DatacoreNumberLimits<double>>(
        Tree::Command, ElementPaths::MediaFileCommands::kSeek, 0.0, 0.0, kLongestMedia);
    m_mediaDuration =
        &m_trees.add<DatacoreNumber<double>>(Tree::Status, ElementPaths::MediaFileStatus::kDuration, 0.0);
    m_datacores.onWritten(*m_mediaPath, [this] { selectFile(); });
    m_datacores.onWritten(*m_mediaLoop, [this] { m_playback->setLooping(m_mediaLoop->getDataBool()); });
    m_datacores.onWritten(*m_mediaPaused, [this] { m_playback->setPaused(m_mediaPaused->getDataBool()); });
    m_datacores.onWritten(*m_mediaSeek, [this] { seek(); });
}

void SignalInput::addStatusElements()
{
    m_audioChannels = &m_trees.add<DatacoreNumber<unsigned int>>(
        Tree::Status, ElementPaths::SignalSourceStatus::kAudioChannels, 0U);
    m_videoStandard =
        &m_trees.add<DatacoreVideoStandard>(Tree::Status, ElementPaths::SdiInputStatus::kActiveStandard);
    m_pictureFormat =
        &m_trees.add<DatacoreBase>(Tree::Status, ElementPaths::SdiInputStatus::kPictureFormat, QString());
}

bool SignalInput::isSource(const char* name) const
{
    return m_source == QLatin1String(name);
}

bool SignalInput::isGenerated() const
{
    return !isSource(kFileSource) && !isSource(kNoSignalSource);
}

void SignalInput::begin()
{
    Signal signal = makeSignal();
    m_playback->start();
    m_video = std::move(signal.video);
    m_meters.setSource(signal.audio ? std::move(signal.audio) : noSound());
    m_audioChannels->setDataNumber(static_cast<unsigned>(m_meters.presentChannels().count()));
    applyTone();
    showActivity();
    tellPictures();
}

void SignalInput::selectSource()
{
    const bool isAnother = std::exchange(m_source, m_sourceName->getData()) != m_sourceName->getData();
    log()->info("Source {}", m_source);
    begin();
    publishVideo(m_presentFormat);
    // A source that is chosen again begins anew, which changes nothing at the input.
    if (isAnother)
        reportAudioPresence();
}

void SignalInput::selectPattern()
{
    m_patternName = m_pattern->getData();
    log()->info("Pattern {}", m_patternName);
    regenerate();
}

void SignalInput::selectStandard()
{
    std::list<DatacoreValidStatusMessage> faults;
    const auto value = m_generatorStandard->getValueAndValidateThatItIsDeserialisable(faults);
    m_generatedStandard = *value->toStandard();
    m_generatedFormat = *GeneratorStandardNode::formatOf(*value);
    regenerate();
}

void SignalInput::selectFile()
{
    if (!isSource(kFileSource)) {
        // Only to tell whether it will do.
        openFile();
        return;
    }
    begin();
    publishVideo(m_presentFormat);
    reportAudioPresence();
}

void SignalInput::seek()
{
    using namespace std::chrono;
    m_playback->seek(duration_cast<nanoseconds>(duration<double>(m_mediaSeek->getDataNumber())));
}

void SignalInput::regenerate()
{
    if (isSource(kLipSyncSource))
        begin();
    else if (isGenerated()) {
        m_video = makePattern();
        tellPictures();
    }
    publishVideo(m_presentFormat);
}

Signal SignalInput::makeSignal()
{
    if (isSource(kNoSignalSource))
        return {};
    if (isSource(kFileSource))
        return openFile();
    if (isSource(kLipSyncSource))
        return {std::make_unique<PatternGenerator>(std::make_unique<LipSync>(), m_generatedFormat),
                std::make_unique<ClickTrack>(m_generatedFormat)};
    return {makePattern(), AudioSourceCatalogue::make(m_source.toStdString(), m_seed)};
}

/// A file that cannot be played leaves its path marked, and the input without a signal where it is the
/// source.
Signal SignalInput::openFile()
{
    const QString path = m_mediaPath->getData();
    std::optional<MediaFile> file;
    m_mediaError.clear();
    if (path.isEmpty())
        m_mediaError = QStringLiteral("no file is chosen");
    else if (!m_openMedia)
        m_mediaError = QStringLiteral("this instrument plays no files");
    else
        file = m_openMedia(path, m_playback, m_mediaError);
    std::list<DatacoreValidStatusMessage> faults;
    if (!m_mediaError.isEmpty() && !path.isEmpty()) {
        log()->error("Cannot play '{}': {}", path, m_mediaError);
        faults.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    }
    m_mediaPath->setValid(faults);
    const auto duration = file ? file->duration : std::chrono::nanoseconds(0);
    m_mediaDuration->setDataNumber(std::chrono::duration<double>(duration).count());
    return file ? std::move(file->signal) : Signal{};
}

std::unique_ptr<VideoSource> SignalInput::makePattern() const
{
    return std::make_unique<PatternGenerator>(PatternCatalogue::make(m_patternName.toStdString()),
                                              m_generatedFormat);
}

void SignalInput::notePictures(const Pictures& pictures, const std::optional<VideoFormat>& format)
{
    if (pictures != m_video)
        return;
    m_presentFormat = format;
    publishVideo(format);
}

void SignalInput::showActivity()
{
    m_pattern->setActive(inactiveUnless(isGenerated() && !isSource(kLipSyncSource)));
    m_generatorStandard->setActive(inactiveUnless(isGenerated()));
    for (DatacoreBase* const node :
         std::initializer_list<DatacoreBase*>{m_mediaLoop, m_mediaPaused, m_mediaSeek, m_mediaDuration})
        node->setActive(inactiveUnless(isSource(kFileSource)));
}

void SignalInput::applyTone()
{
    auto* const generator = dynamic_cast<ToneGenerator*>(&m_meters.source());
    const bool isTone = generator && isSource(kToneSource);
    m_toneFrequency->setActive(inactiveUnless(isTone));
    m_toneLevel->setActive(inactiveUnless(isTone));
    if (!isTone)
        return;
    ToneChannel tone;
    tone.frequencyHz = m_toneFrequency->getDataNumber();
    tone.levelDbfs = m_toneLevel->getDataNumber();
    generator->setAllChannels(tone);
}

/// From then on the pictures belong to whoever reads them, so the format is looked at before.
void SignalInput::tellPictures()
{
    m_presentFormat = m_video ? std::optional(m_video->format()) : std::nullopt;
    emit picturesChanged();
}

/// What is generated has the very standard that was chosen; pictures of a file have one that would carry
/// them.
std::optional<SignalInput::Standard> SignalInput::standardOf(const std::optional<VideoFormat>& format) const
{
    if (!format)
        return std::nullopt;
    return isGenerated() ? m_generatedStandard : VideoFormats::standardOf(*format);
}

void SignalInput::showVideo(const std::optional<VideoFormat>& format)
{
    m_shownFormat = format;
    m_shownStandard = standardOf(format);
    if (m_shownStandard)
        m_videoStandard->setValue(VideoStandardValue::of(*m_shownStandard));
    else
        m_videoStandard->setDataList({});
    m_videoStandard->setActive(inactiveUnless(m_shownStandard.has_value()));
    m_pictureFormat->setData(format ? VideoFormats::toText(*format) : QStringLiteral("No Signal"));
}

void SignalInput::publishVideo(const std::optional<VideoFormat>& format)
{
    using RateEvent = SdiInputRateChangeEventPacket;
    if (format == m_shownFormat && standardOf(format) == m_shownStandard)
        return;
    const auto rateOf = [](const std::optional<Standard>& standard) {
        return standard ? standard->getPhysicalLinksDataRates().front() : Sdi::SdiDataRate::NoSignal;
    };
    const auto rateBefore = rateOf(m_shownStandard);
    showVideo(format);
    m_datacores.publishChanges();
    if (const auto rate = rateOf(m_shownStandard); rate != rateBefore)
        m_events.raise(RateEvent(RateEvent::Input::SdiA, static_cast<RateEvent::Rate>(rate)));
    if (format)
        m_events.raise(SdiInputVideoStandardChangeEventPacket(
            m_shownStandard ? m_shownStandard->getStandardAsShortText() : VideoFormats::toText(*format)));
}

void SignalInput::reportAudioPresence()
{
    const auto count = static_cast<unsigned>(m_meters.presentChannels().count());
    m_audioChannels->setDataNumber(count);
    m_datacores.publishChanges();
    m_events.raise(AudioInputPresenceChangeEventPacket(
        QStringLiteral("Audio input %1: %2 of %3 channels present")
            .arg(m_source, QString::number(count), QString::number(kAudioChannels))));
}

} // namespace Velmora::Server
