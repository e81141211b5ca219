#pragma once

#include "instruments/audiometering/AudioDataNotifier.h"
#include "instruments/audiometering/AudioMeterWidget.h"
#include "instruments/audiometering/PairPainter.h"
#include "instruments/audiometering/PairState.h"

#include <array>
#include <optional>

class PairButtons;
struct MeterLook;

/// The meters of one pair of channels: two bars with their scales, and above them title, readings in figures,
/// phase and clip lamps. Readings come in dBFS and are shown on the scale that was chosen.
class AudioMeterPairWidget : public QWidget {
    Q_OBJECT
public:
    using PPMScaleType = Velmora::Types::PPMScaleType;
    using AudioInput = Velmora::Types::AudioInput;
    using Content = AudioDataNotifier::Content;
    using Side = PairLayout::Side;
    static constexpr Side kLeft = PairLayout::Left;
    static constexpr Side kRight = PairLayout::Right;

    using ScaleDisplayPriority = PairPainter::ScaleDisplayPriority;

    AudioMeterPairWidget(AudioInput input, int pairIndex, QWidget* parent);

    /// Of pairs in groups of two, both numbered from 1: "11 · 12" for the second pair of group 3.
    static QString createTitleFromGroupAndPairNumbers(int group, int pair);
    static QString createToolTipFromSourceGroupAndPairNumbers(AudioInput source, int group, int pair);

    AudioInput audioInput() const { return m_input; }
    int pairIndex() const { return m_pairIndex; }

    /// A value that is no scale leaves the scale as it is.
    void setScaleType(PPMScaleType type);
    PPMScaleType scaleType() const { return m_scaleType; }
    const MeterScale& scale() const { return *MeterScale::of(m_scaleType); }
    /// A level in dBFS as the present scale reads it.
    float convertInstantPeakValueToCurrentStandard(float levelDbfs) const;

    void setPairTitle(const QString& title);
    /// The names of its channels, which then stand for the title; empty for none.
    void setPairTitles(const QString& left, const QString& right);
    QString title() const { return m_state.shownTitle(); }

    /// Readings of the channels, in dBFS.
    void setLeftPpmMeterValue(float level) { m_state.channel(kLeft).level = level; }
    void setRightPpmMeterValue(float level) { m_state.channel(kRight).level = level; }
    void setLeftPeakHoldValue(float level) { m_state.channel(kLeft).hat = level; }
    void setRightPeakHoldValue(float level) { m_state.channel(kRight).hat = level; }
    /// The sample peaks, of which the highest since clearMarks() is shown in figures.
    void setLeftDBLabelValue(float level) { noteSamplePeak(kLeft, level); }
    void setRightDBLabelValue(float level) { noteSamplePeak(kRight, level); }
    /// Nothing where it means nothing.
    void setPhase(std::optional<float> phase) { m_state.phase = phase; }
    /// Samples have reached full scale. The lamp stays lit until clearMarks().
    void noteClip(Side side);
    bool isClipped(Side side) const { return m_state.channel(side).isClipped; }
    float levelDbfs(Side side) const { return m_state.channel(side).level; }
    float samplePeakDbfs(Side side) const { return m_state.channel(side).samplePeak; }
    void clearMarks();
    /// Nothing is known any more.
    void clearReadings();

    void setPresent(bool left, bool right);
    bool isPresent(Side side) const { return m_state.channel(side).isPresent; }
    void setLeftAudioType(const Content& content) { setAudioType(kLeft, content); }
    void setRightAudioType(const Content& content) { setAudioType(kRight, content); }
    /// The video line on which Dolby E frames begin, and the ideal one; nothing where there are none.
    void setDolbyELines(std::optional<int> line, std::optional<int> idealLine);
    void setDolbyELineNumberRelative(bool relative);
    /// "Line 23", "Ideal +2"; empty without Dolby E.
    QString dolbyELineText() const { return m_state.dolbyELineText(); }

    /// Which channels go to which side of the monitor output.
    void setMix(bool leftToLeft, bool leftToRight, bool rightToLeft, bool rightToRight);
    void setSolo(bool left, bool right);
    void startMonitoring(bool left, bool right);
    void stopMonitoring() { startMonitoring(false, false); }
    void toggleMonitorButtonVisibility(bool visible);
    void toggleSoloButtonsVisibility(bool visible);
    void toggleMixButtonsVisibility(bool visible);

    /// @p look is the window's and has to stay.
    void setLayout(const PairLayout& layout, const MeterLook& look, ScaleDisplayPriority priority);
    const PairLayout& pairLayout() const { return m_layout; }
    /// Blends the colours of the bars into each other.
    void setTransitionProportions(const std::vector<double>& proportions);
    void setStale(bool stale);

    AudioMeterWidget& meter(Side side) const { return *m_meters[static_cast<std::size_t>(side)]; }
    /// What the pair is, and the readings of the channel of that side.
    QString toolTipText(Side side) const;

    /// The window's tick: shows the newest readings. Figures that change faster than a few times a second
    /// cannot be read, which is why they do not follow each time.
    void rateLimitTimerExpired(bool withFigures);

signals:
    void monitorToggled(bool monitored);
    void soloToggled(int side, bool solo);
    void mixToggled(int side, int output, bool mixed);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr std::array<Side, 2> kSides{kLeft, kRight};

    void noteSamplePeak(Side side, float level);
    void setAudioType(Side side, const Content& content);
    void showMeters();
    void showBars();
    void showFigures();
    void showPhase();
    std::optional<int> numberOf(float levelDbfs) const;
    void applyScale();
    PairButtons& buttons();

    QRect litLamp(Side side) const;

    const AudioInput m_input;
    const int m_pairIndex;
    PairState m_state;
    std::array<AudioMeterWidget*, 2> m_meters{};
    PPMScaleType m_scaleType = PPMScaleType::DbFs;
    ScaleDisplayPriority m_priority = ScaleDisplayPriority::LinesOnly;
    PairLayout m_layout;
    const MeterLook* m_look = nullptr;
    PairButtons* m_buttons = nullptr; ///< while any can be seen
};
