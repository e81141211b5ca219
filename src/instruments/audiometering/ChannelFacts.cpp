#include "instruments/audiometering/ChannelFacts.h"

#include "instruments/audiometering/AudioMeterPairWidget.h"

std::optional<int> ChannelFacts::toLine(const QString& text)
{
    bool ok = false;
    const int line = text.toInt(&ok);
    return ok ? std::optional(line) : std::nullopt;
}

void ChannelFacts::showNames(const Pairs& pairs) const
{
    for (AudioMeterPairWidget* const pair : pairs) {
        const int index = pair->pairIndex();
        pair->setPairTitles(names.value(2 * index), names.value(2 * index + 1));
    }
}

void ChannelFacts::showContents(const Pairs& pairs, const AudioDataNotifier& contents) const
{
    for (AudioMeterPairWidget* const pair : pairs) {
        const int index = pair->pairIndex();
        pair->setLeftAudioType(contents.content(2 * index));
        pair->setRightAudioType(contents.content(2 * index + 1));
        pair->setDolbyELines(toLine(dolbyELines.value(index)), dolbyEIdealLine);
    }
}

void ChannelFacts::showMonitor(const Pairs& pairs) const
{
    for (AudioMeterPairWidget* const pair : pairs) {
        const auto left = static_cast<quint32>(2 * pair->pairIndex());
        const quint32 right = left + 1;
        pair->setMix(monitor.isMixed(left, 0), monitor.isMixed(left, 1), monitor.isMixed(right, 0),
                     monitor.isMixed(right, 1));
        pair->setSolo(monitor.soloChannel == left + 1, monitor.soloChannel == right + 1);
        pair->startMonitoring(monitor.isHeard(left), monitor.isHeard(right));
    }
}
