#pragma once

#include "gui/control/ElementState.h"
#include "gui/framework/WzSubwindowContent.h"
#include "instruments/audiometering/ChannelFacts.h"
#include "instruments/audiometering/MeterRouting.h"
#include "instruments/audiometering/MeteringSettings.h"

#include "network/packets/MeterSequence.h"
#include "types/audio/AudioTypes.h"

#include <QBasicTimer>

#include <memory>

class MeterPacketReceiver;
struct MeterLook;

/// Shows the levels of the audio channels in pairs, and what they carry. It asks for the meter packets only
/// while it can be seen.
class AudioMetering : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"AudioMetering", 13};

    using PPMScaleType = Velmora::Types::PPMScaleType;
    using AudioInput = Velmora::Types::AudioInput;
    using Ballistics = Velmora::AudioTypes::AudioMonitor::AudioMonitorBallisticsSelection;

    AudioMetering(WzSubWindow* subWindow, Velmora::Wz::Device device);
    ~AudioMetering() override;

    QString helpText() const override;
    QSize getMinimumWindowSize(const QSize& area) const override;
    SerialisableDataPacket getWidgetStatesAsPreset() override;
    void loadWidgetStatesFromPreset(SerialisableDataPacket& preset) override;

    /// Shows the levels on another scale. Any other value changes nothing.
    void setPPMScaleType(PPMScaleType type);
    PPMScaleType ppmScaleType() const { return m_scaleType; }
    /// Asks the instrument for other ballistics.
    void setBallistics(Ballistics ballistics);
    /// Shows the channels of another input, or of another decoded programme, which counts from 0.
    void setMeteringSource(AudioInput input, int program = 0);

    const std::vector<AudioMeterPairWidget*>& pairs() const { return m_pairs; }
    void onMeterPacket(MeterSet::Kind kind, const AudioMetersDataPacket& packet);

    const MeteringSettings& meteringSettings() const { return m_settings; }

public slots:
    void fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMeteringPpmScaleTypeUpdated(QStringList values, QStringList reasons, bool active);
    void onBallisticsChanged(QStringList values, QStringList reasons, bool active);
    void onHatHoldTimeChanged(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMonitorChannelPairUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMonitorMutedUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMonitorSoloChannelUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMonitorMixLeftUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMonitorMixRightUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreAudioContentChannelsUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreAudioContentDolbyELinesUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreAudioContentDolbyEIdealLineUpdated(QStringList values, QStringList reasons,
                                                          bool active);
    void fromStatusCoreChannelNamesUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreAudioMeteringPpmScaleTypeChosen(unsigned type);
    void toConfigCoreAudioMeteringBallisticsChosen(unsigned ballistics);
    void toConfigCoreAudioMeteringHatHoldTimeChosen(double seconds);
    void toConfigCoreAudioMonitorChannelPairChosen(unsigned pair);
    void toConfigCoreAudioMonitorMutedChosen(bool muted);
    void toConfigCoreAudioMonitorSoloChannelChosen(unsigned channel);
    void toConfigCoreAudioMonitorMixLeftChosen(unsigned channels);
    void toConfigCoreAudioMonitorMixRightChosen(unsigned channels);
    void toCommandcore_resetPeakHold(bool reset);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    void onExposedChanged(bool exposed) override;
    void onFrozenChanged(bool frozen) override;
    void onConnectionChanged(bool connected) override;
    void onStaleChanged(int seconds) override;

private:
    void setupActions();
    /// The table from the channels of the sources to the meters that show them.
    void setupSourceMeterHash();
    void rebuildPairs();
    AudioMeterPairWidget* makePair(int index);
    void connectButtons(AudioMeterPairWidget& pair);
    void relayout();
    void applySettings();
    int pairCount() const;
    int firstPair() const;
    void growToShow(const AudioMetersDataPacket& packet);

    void requestTick();
    AudioMeterPairWidget* pairAt(const QPoint& position) const;
    void clearAllMarks();
    void clearReadings();
    void updateTitle();
    void showContents();
    void showNames();
    void showMonitor();

    const MeteringSettings m_settings;
    std::vector<AudioMeterPairWidget*> m_pairs;
    MeterRouting m_routing;
    MeteringLayout m_layout;
    std::unique_ptr<MeterLook> m_look;

    AudioInput m_input = AudioInput::EmbeddedSdi;
    int m_program = 0;
    PPMScaleType m_scaleType = PPMScaleType::DbFs;
    int m_grownPairs = 0; ///< what the source has shown to need

    std::unique_ptr<MeterPacketReceiver> m_receiver; ///< while meters are wanted
    std::array<MeterSequence, MeterSet::kKinds> m_sequences;
    QBasicTimer m_tick;
    QElapsedTimer m_sinceTick;
    QElapsedTimer m_sinceFigures;

    ElementState m_source;
    AudioDataNotifier m_contents;
    ChannelFacts m_facts;
};
