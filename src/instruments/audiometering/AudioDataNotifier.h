#pragma once

#include "types/audio/AudioChannelContent.h"

#include <QObject>
#include <QStringList>

/// Tells what the channels of the input carry, as the instrument has detected it, when that changes.
class AudioDataNotifier : public QObject {
    Q_OBJECT
public:
    using AudioDataType = Velmora::AudioTypes::AudioDataType;
    using Content = Velmora::AudioTypes::AudioChannelContent;

    static constexpr int kMostChannels = 64;

    using QObject::QObject;

    /// From the element, one item a channel; nothing is known of channels without one.
    void setItems(const QStringList& items);
    /// PCM as long as nothing is known.
    Content content(int channel) const;

signals:
    void contentChanged(int channel);

private:
    std::vector<Content> m_contents;
};
