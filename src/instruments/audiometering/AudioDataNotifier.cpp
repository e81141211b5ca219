#include "instruments/audiometering/AudioDataNotifier.h"

#include <algorithm>

void AudioDataNotifier::setItems(const QStringList& items)
{
    std::vector<Content> contents;
    for (const QString& item : items.mid(0, kMostChannels))
        contents.push_back(Content::fromItem(item));
    m_contents.swap(contents);
    const auto before = [&contents](std::size_t channel) {
        return channel < contents.size() ? contents[channel] : Content{AudioDataType::Pcm};
    };
    for (std::size_t i = 0; i < std::max(contents.size(), m_contents.size()); ++i) {
        if (content(static_cast<int>(i)) != before(i))
            emit contentChanged(static_cast<int>(i));
    }
}

AudioDataNotifier::Content AudioDataNotifier::content(int channel) const
{
    const auto index = static_cast<std::size_t>(channel);
    return index < m_contents.size() ? m_contents[index] : Content{AudioDataType::Pcm};
}
