#include "types/audio/AudioChannelContent.h"

#include "types/TextTable.h"

#include <array>

namespace Velmora::AudioTypes {

namespace {

constexpr std::array<const char*, 32> kDataTypes{"Null data",
                                                 "AC-3",
                                                 "Time stamp",
                                                 "Pause",
                                                 "MPEG-1 layer 1",
                                                 "MPEG-1 layer 2/3",
                                                 "MPEG-2",
                                                 "MPEG-2 AAC",
                                                 "MPEG-2 layer 1 LSF",
                                                 "MPEG-2 layer 2/3 LSF",
                                                 "MPEG-4 AAC",
                                                 "HE-AAC",
                                                 "Data type 12",
                                                 "Data type 13",
                                                 "Data type 14",
                                                 "Data type 15",
                                                 "E-AC-3",
                                                 "Data type 17",
                                                 "Data type 18",
                                                 "AAC",
                                                 "Data type 20",
                                                 "E-AC-3",
                                                 "Data type 22",
                                                 "Data type 23",
                                                 "AC-4",
                                                 "Data type 25",
                                                 "Utility",
                                                 "KLV",
                                                 "Dolby E",
                                                 "Captioning",
                                                 "User defined",
                                                 "Extended"};

/// By programme configuration, as RDD 33 and public descriptions of the format number them.
constexpr std::array<const char*, 24> kPrograms{"5.1 + 2",
                                                "5.1 + 1 + 1",
                                                "4 + 4",
                                                "4 + 2 + 2",
                                                "4 + 2 + 1 + 1",
                                                "4 + 1 + 1 + 1 + 1",
                                                "2 + 2 + 2 + 2",
                                                "2 + 2 + 2 + 1 + 1",
                                                "2 + 2 + 1 + 1 + 1 + 1",
                                                "2 + 1 + 1 + 1 + 1 + 1 + 1",
                                                "1 + 1 + 1 + 1 + 1 + 1 + 1 + 1",
                                                "5.1",
                                                "4 + 2",
                                                "4 + 1 + 1",
                                                "2 + 2 + 2",
                                                "2 + 2 + 1 + 1",
                                                "2 + 1 + 1 + 1 + 1",
                                                "1 + 1 + 1 + 1 + 1 + 1",
                                                "4",
                                                "2 + 2",
                                                "2 + 1 + 1",
                                                "1 + 1 + 1 + 1",
                                                "7.1",
                                                "7.1 Screen"};

QString numbered(const char* name, int bits)
{
    const QString text = QString::fromLatin1(name);
    return bits > 0 ? text + QLatin1Char(' ') + QString::number(bits) : text;
}

/// The number behind the first words of an item; @p fallback where there is none between the limits.
int numberAt(const QStringList& words, int index, int lowest, int highest, int fallback)
{
    bool ok = false;
    const int number = words.value(index).toInt(&ok);
    return ok && number >= lowest && number <= highest ? number : fallback;
}

constexpr int kLongestWord = 24;
constexpr int kNoNumber = -100;

} // namespace

QString AudioChannelContent::shortText() const
{
    switch (type) {
    case AudioDataType::Absent:
        return QStringLiteral("--");
    case AudioDataType::Silence:
        return QStringLiteral("Silent");
    case AudioDataType::Pcm:
        return numbered("PCM", wordLength);
    default:
        return numbered("Data", wordLength);
    }
}

QString AudioChannelContent::dataText() const
{
    if (!isData())
        return {};
    const QString name = Types::textOf(type, kDataTypes, "Data");
    const QString programs = type == AudioDataType::DolbyE ? dolbyEProgramsText(programConfig) : QString();
    return programs.isEmpty() ? name : name + QStringLiteral("  ") + programs;
}

QString AudioChannelContent::toItem() const
{
    switch (type) {
    case AudioDataType::Absent:
        return QStringLiteral("absent");
    case AudioDataType::Silence:
        return QStringLiteral("silence");
    case AudioDataType::Pcm:
        return numbered("pcm", wordLength);
    default:
        return QStringLiteral("data %1 %2 %3")
            .arg(QString::number(static_cast<int>(type)), QString::number(wordLength),
                 QString::number(programConfig));
    }
}

AudioChannelContent AudioChannelContent::fromItem(const QString& item)
{
    const QStringList words = item.split(QLatin1Char(' '));
    const QString& kind = words.first();
    if (kind == QLatin1String("silence"))
        return {AudioDataType::Silence};
    if (kind == QLatin1String("pcm"))
        return {AudioDataType::Pcm, numberAt(words, 1, 1, kLongestWord, 0)};
    const int dataType = numberAt(words, 1, 0, static_cast<int>(AudioDataType::LastData), kNoNumber);
    if (kind != QLatin1String("data") || dataType == kNoNumber)
        return {};
    return {static_cast<AudioDataType>(dataType), numberAt(words, 2, 1, kLongestWord, 0),
            numberAt(words, 3, 0, static_cast<int>(kPrograms.size()) - 1, -1)};
}

int dolbyEProgramCount(int programConfig)
{
    return dolbyEProgramsText(programConfig).count(QLatin1Char('+')) + 1;
}

QString dolbyEProgramsText(int programConfig)
{
    return programConfig < 0 ? QString() : Types::textOf(programConfig, kPrograms, "");
}

} // namespace Velmora::AudioTypes
