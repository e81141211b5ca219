#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Velmora::AudioTypes {

/// What a channel of AES3 audio carries. Those behind the first ones are the data types of SMPTE ST 338,
/// which are bursts of SMPTE ST 337.
enum class AudioDataType {
    Absent = -3, ///< there is no such channel
    Silence = -2, ///< all samples are zero
    Pcm = -1,
    Null = 0,
    Ac3 = 1,
    TimeStamp = 2,
    Pause = 3,
    EAc3 = 16,
    DolbyE = 28,
    LastData = 31,
};

/// What was found out about one channel. A value.
struct AudioChannelContent {
    AudioDataType type = AudioDataType::Absent;
    int wordLength = 0; ///< of samples or data, in bits; 0 when unknown
    int programConfig = -1; ///< of Dolby E: the code of its programmes; -1 when unknown

    bool isData() const { return type >= AudioDataType::Null; }
    /// "PCM 24", "Silent", "Data 20"; "--" for a channel that is absent.
    QString shortText() const;
    /// The name of the kind of data, with the programmes of Dolby E: "Dolby E  5.1 + 2".
    QString dataText() const;

    /// As an element holds them, one a channel: "pcm 24", "silence", "absent", "data 28 20 0".
    QString toItem() const;
    /// Absent for what is no such item.
    static AudioChannelContent fromItem(const QString& item);

    bool operator==(const AudioChannelContent&) const = default;
};

/// How many programmes a Dolby E programme configuration has, 1 for an unknown one, and their names: "5.1 +
/// 2", empty for an unknown one.
int dolbyEProgramCount(int programConfig);
QString dolbyEProgramsText(int programConfig);

} // namespace Velmora::AudioTypes
