#pragma once

#include "gui/support/WindowFixture.h"
#include "instruments/audiometering/AudioMetering.h"
#include "network/packets/PpmMetersData.h"

#include <QApplication>

/// An audio metering window of its own on a screen, which is given its packets directly.
class MeteringFixture {
public:
    using Values = AudioMetersDataPacket::MeterValues;
    using Value = Values::value_type;

    explicit MeteringFixture(const QSize& window = {960, 540})
    {
        SupportedSubWindow kind;
        kind.windowTitle = QStringLiteral("Meters");
        kind.contentClassName = QString(AudioMetering::kClassName);
        kind.makeContent = [this](WzSubWindow& subWindow) {
            return metering = new AudioMetering(&subWindow, Velmora::Wz::Device::full());
        };
        screen.catalogue.add(kind);
        screen.connectInstrument();
        screen.manager.onDefaultWindowRequested(kind.windowTitle, kind.contentClassName, kind.role);
        metering->getSubWindow()->setBounds(QRect(QPoint(), window));
        QApplication::processEvents();
    }

    /// One value for each channel of a source.
    static Values values(const std::vector<float>& readings, quint32 source = 0)
    {
        Values values;
        for (const float reading : readings) {
            Value value;
            value.channel = static_cast<quint8>(values.size());
            value.pair = value.channel / 2U;
            value.source = source;
            value.value = reading;
            values.push_back(value);
        }
        return values;
    }

    void deliver(MeterSet::Kind kind, const Values& values, quint32 pairs = 0xFF, quint32 secondPairs = 0)
    {
        metering->onMeterPacket(
            kind, PpmMetersData(values, pairs, secondPairs, m_sequence[static_cast<std::size_t>(kind)]++));
    }
    /// The same level for bar, hat and sample peak of each channel.
    void deliverLevels(const std::vector<float>& levels)
    {
        std::vector<float> linear;
        for (const float level : levels)
            linear.push_back(std::pow(10.0F, level / 20.0F));
        deliver(MeterSet::Ppm, values(levels));
        deliver(MeterSet::PeakHold, values(levels));
        deliver(MeterSet::InstantPeakDb, values(levels));
        deliver(MeterSet::InstantPeakLinear, values(linear));
        deliver(MeterSet::Phase, values(std::vector<float>(levels.size(), 1.0F)));
    }

    AudioMeterPairWidget& pair(int i) const { return *metering->pairs().at(static_cast<std::size_t>(i)); }
    /// Without waiting for the tick.
    void show() const
    {
        for (AudioMeterPairWidget* const pair : metering->pairs())
            pair->rateLimitTimerExpired(true);
    }

    WindowFixture screen;
    AudioMetering* metering = nullptr;

private:
    std::array<quint32, MeterSet::kKinds> m_sequence{};
};
