#include "instruments/audiometering/MeteringSettings.h"

#include "gui/control/SettingList.h"
#include "instruments/MeterSettingTexts.h"

#include <QCoreApplication>

namespace {

constexpr QLatin1String kOn{"true", 4};
constexpr QLatin1String kOff{"false", 5};
constexpr int kMostPairs = 32;
constexpr int kMostPrograms = 8;

QString tr(const char* text)
{
    return QCoreApplication::translate("AudioMetering", text);
}

/// A setting of the window with its first value.
Setting* kept(Setting* setting, const char* key, const QString& initial)
{
    setting->initialise({initial});
    setting->keepAs(QLatin1String(key));
    return setting;
}

Setting* addSwitch(SettingList& list, const QString& title, const char* key)
{
    return kept(list.addOptions(title, {{tr("Enabled"), QString(kOn)}, {tr("Disabled"), QString(kOff)}}), key,
                QString(kOff));
}

std::vector<Setting::Option> inputOptions(Velmora::Wz::Device device)
{
    using Velmora::Types::AudioInput;
    std::vector<Setting::Option> options;
    const auto add = [&options](const QString& text, AudioInput input) {
        options.push_back({text, QString::number(static_cast<int>(input))});
    };
    add(tr("Embedded"), AudioInput::EmbeddedSdi);
    add(tr("AES"), AudioInput::Aes);
    if (device.supports(Velmora::Wz::Device::St2110))
        add(tr("ST 2110-30"), AudioInput::St2110_30);
    if (device.supports(Velmora::Wz::Device::DolbyDecoding))
        add(tr("Dolby E"), AudioInput::DolbyE);
    return options;
}

std::vector<Setting::Option> pairOptions()
{
    std::vector<Setting::Option> options{{tr("Automatic"), QStringLiteral("0")}};
    for (int count = 1; count <= kMostPairs; count *= 2)
        options.push_back({QString::number(count), QString::number(count)});
    return options;
}

std::vector<Setting::Option> programOptions()
{
    std::vector<Setting::Option> options;
    for (int program = 0; program < kMostPrograms; ++program)
        options.push_back({tr("Program %1").arg(program + 1), QString::number(program)});
    return options;
}

} // namespace

MeteringSettings::MeteringSettings(SettingList& list, Velmora::Wz::Device device)
    : scale(list.addOptions(tr("Scale"), MeterSettingTexts::scaleOptions()))
    , ballistics(list.addOptions(tr("Ballistics"), MeterSettingTexts::ballisticsOptions()))
    , hatHoldTime(list.addNumber(tr("Hat Hold Time"), MeterSettingTexts::hatHoldTimeRange()))
    , resetPeaks(list.addButton(tr("Reset Held Peaks")))
    , input(
          kept(list.addOptions(tr("Audio Source"), inputOptions(device)), "audioInput", QStringLiteral("0")))
    , pairs(kept(list.addOptions(tr("Pairs"), pairOptions()), "pairs", QStringLiteral("0")))
    , firstPair(kept(list.addNumber(tr("First Pair"), {1, kMostPairs, 1}), "firstPair", QStringLiteral("1")))
    , blending(addSwitch(list, tr("Blend Colours"), "blendColours"))
    , dolbyELineMode(
          kept(list.addOptions(tr("Dolby E Line Number"),
                               {{tr("Relative to Ideal"), QString(kOn)}, {tr("Absolute"), QString(kOff)}}),
               "dolbyELineRelative", QString(kOn)))
    , program(kept(list.addOptions(tr("Dolby E Program"), programOptions()), "dolbyEProgram",
                   QStringLiteral("0")))
    , monitorButtons(addSwitch(list, tr("Monitor Buttons"), "monitorButtons"))
    , soloButtons(addSwitch(list, tr("Solo Buttons"), "soloButtons"))
    , mixButtons(addSwitch(list, tr("Mix Buttons"), "mixButtons"))
{
}

Velmora::Types::AudioInput MeteringSettings::chosenInput() const
{
    return static_cast<Velmora::Types::AudioInput>(input->value().toInt());
}

int MeteringSettings::buttonRows() const
{
    constexpr int kMixRows = 2; // one for each side of the output
    return (monitorButtons->isOn() ? 1 : 0) + (soloButtons->isOn() ? 1 : 0)
        + (mixButtons->isOn() ? kMixRows : 0);
}
