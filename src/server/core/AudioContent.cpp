#include "server/core/AudioContent.h"

#include "datacore/ElementPaths.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/core/FilePathNode.h"
#include "server/measure/DolbyELine.h"

#include <QFile>

namespace Velmora::Server {

namespace {

using Tree = InstrumentTrees::Tree;

/// Five times a second: as often as the detector comes to a conclusion.
constexpr std::size_t kPublishFrames = kAudioSampleRate / 5;
constexpr qint64 kLongestFile = 64 * 1024;
constexpr int kLongestName = 64;

QString lineText(const std::optional<int>& line)
{
    return line ? QString::number(*line) : QString();
}

} // namespace

AudioContent::AudioContent(const SignalInput& input, InstrumentTrees& trees, DatacoreService& datacores,
                           AudioMeterService& meters)
    : m_input(input)
    , m_datacores(datacores)
    , m_channels(&trees.add<DatacoreBase>(Tree::Status, ElementPaths::AudioContentStatus::kChannels))
    , m_dolbyELines(&trees.add<DatacoreBase>(Tree::Status, ElementPaths::AudioContentStatus::kDolbyELines))
    , m_dolbyEIdealLine(
          &trees.add<DatacoreBase>(Tree::Status, ElementPaths::AudioContentStatus::kDolbyEIdealLine))
    , m_namesFile(&trees.add<FilePathNode>(Tree::Configuration, ElementPaths::ChannelNames::kFile))
    , m_names(&trees.add<DatacoreBase>(Tree::Status, ElementPaths::ChannelNamesStatus::kNames))
{
    m_datacores.onWritten(*m_namesFile, [this] { readNames(m_namesFile->getData()); });
    meters.onBlock([this](const AudioBlock& block) { onBlock(block); });
    QObject::connect(&meters, &AudioMeterService::runningChanged, &meters,
                     [this](bool running) { setActive(running); });
    setActive(false);
}

/// What is not measured is not known.
void AudioContent::setActive(bool active)
{
    std::list<DatacoreActiveStatusMessage> reasons;
    if (!active)
        reasons.emplace_back(DatacoreActiveStatusMessage::NoNeed);
    for (DatacoreBase* const node : {m_channels, m_dolbyELines, m_dolbyEIdealLine})
        node->setActive(reasons);
    m_datacores.publishChanges();
}

void AudioContent::onBlock(const AudioBlock& block)
{
    m_detector.process(block);
    m_framesSincePublished += block.frames;
    if (m_framesSincePublished < kPublishFrames)
        return;
    m_framesSincePublished = 0;
    publish();
}

void AudioContent::publish()
{
    QStringList contents;
    for (const auto& content : m_detector.contents())
        contents << content.toItem();
    setItems(*m_channels, contents);

    const auto format = m_input.videoFormat();
    QStringList lines;
    bool hasDolbyE = false;
    for (std::size_t pair = 0; pair < kAudioPairs; ++pair) {
        const auto position = m_detector.dolbyEPosition(pair);
        hasDolbyE = hasDolbyE || position;
        lines << lineText(position && format ? DolbyELine::lineAt(*position, *format) : std::nullopt);
    }
    setItems(*m_dolbyELines, hasDolbyE ? lines : QStringList());
    const QString ideal = lineText(hasDolbyE && format ? DolbyELine::idealLine(*format) : std::nullopt);
    setItems(*m_dolbyEIdealLine, ideal.isEmpty() ? QStringList() : QStringList(ideal));
    m_datacores.publishChanges();
}

void AudioContent::setItems(DatacoreBase& node, const QStringList& items)
{
    if (node.getDataList() != items)
        node.setDataList(items);
}

void AudioContent::readNames(const QString& path)
{
    QStringList names;
    std::list<DatacoreValidStatusMessage> faults;
    QFile file(path);
    if (!path.isEmpty() && file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        const QStringList lines = QString::fromUtf8(file.read(kLongestFile)).split(QLatin1Char('\n'));
        for (const QString& line : lines.mid(0, static_cast<int>(kAudioChannels)))
            names << line.simplified().left(kLongestName);
        while (!names.isEmpty() && names.last().isEmpty())
            names.removeLast();
    } else if (!path.isEmpty()) {
        log()->error("Cannot read the channel names in '{}': {}", path, file.errorString());
        faults.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    }
    if (m_namesFile->getData() != path)
        m_namesFile->setData(path);
    m_namesFile->setValid(faults);
    setItems(*m_names, names);
}

} // namespace Velmora::Server
