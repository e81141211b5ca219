#pragma once

#include "instruments/audiometering/AudioDataNotifier.h"
#include "instruments/audiometering/AudioMeterWidget.h"
#include "instruments/audiometering/MeteringLayout.h"

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

    /// Which of its outer scales have ticks and labels; the others are lines only, so that a row of pairs is
    /// labelled at its ends.
    enum class ScaleDisplayPriority { LinesOnly, Left, Right, LeftAndRight };

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
    QString title() const;

    /// Readings of the channels, in dBFS.
    void setLeftPpmMeterValue(float level) { channel(kLeft).level = level; }
    void setRightPpmMeterValue(float level) { channel(kRight).level = level; }
    void setLeftPeakHoldValue(float level) { channel(kLeft).hat = level; }
    void setRightPeakHoldValue(float level) { channel(kRight).hat = level; }
    /// The sample peaks, of which the highest since clearMarks() is shown in figures.
    void setLeftDBLabelValue(float level) { noteSamplePeak(kLeft, level); }
    void setRightDBLabelValue(float level) { noteSamplePeak(kRight, level); }
    /// Nothing where it means nothing.
    void setPhase(std::optional<float> phase) { m_phase = phase; }
    /// Samples have reached full scale. The lamp stays lit until clearMarks().
    void noteClip(Side side);
    bool isClipped(Side side) const { return channel(side).isClipped; }
    float levelDbfs(Side side) const { return channel(side).level; }
    float samplePeakDbfs(Side side) const { return channel(side).samplePeak; }
    void clearMarks();
    /// Nothing is known any more.
    void clearReadings();

    void setPresent(bool left, bool right);
    bool isPresent(Side side) const { return channel(side).isPresent; }
    void setLeftAudioType(const Content& content) { setAudioType(kLeft, content); }
    void setRightAudioType(const Content& content) { setAudioType(kRight, content); }
    /// The video line on which Dolby E frames begin, and the ideal one; nothing where there are none.
    void setDolbyELines(std::optional<int> line, std::optional<int> idealLine);
    void setDolbyELineNumberRelative(bool relative);
    /// "Line 23", "Ideal +2"; empty without Dolby E.
    QString dolbyELineText() const;

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

    AudioMeterWidget& meter(Side side) const { return *channel(side).meter; }
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
    struct Channel {
        AudioMeterWidget* meter = nullptr;
        float level = AudioMeterWidget::kLowest;
        float hat = AudioMeterWidget::kLowest;
        float samplePeak = AudioMeterWidget::kLowest; ///< the highest one
        std::optional<int> levelNumber; ///< as it is shown
        std::optional<int> peakNumber;
        bool isPresent = true;
        bool isClipped = false;
        bool isMonitored = false;
        Content content{AudioDataNotifier::AudioDataType::Pcm};
        QString name;
    };
    static constexpr std::array<Side, 2> kSides{kLeft, kRight};

    Channel& channel(Side side) { return m_channels[static_cast<std::size_t>(side)]; }
    const Channel& channel(Side side) const { return m_channels[static_cast<std::size_t>(side)]; }

    void noteSamplePeak(Side side, float level);
    void setAudioType(Side side, const Content& content);
    /// Whether there is a level to be shown.
    bool isMetered(Side side) const;
    void showMeters();
    void showBars();
    void showFigures();
    void showPhase();
    std::optional<int> numberOf(float levelDbfs) const;
    void applyScale();
    PairButtons& buttons();

    void paintTitle(QPainter& painter) const;
    void paintSeparator(QPainter& painter) const;
    void paintRowNames(QPainter& painter) const;
    void paintScales(QPainter& painter) const;
    void paintInsteadOfBars(QPainter& painter) const;
    void paintBox(QPainter& painter, const QRect& box, const QString& text, bool isData) const;
    void paintFigures(QPainter& painter, Side side, const QRect& dirty) const;
    void paintLamp(QPainter& painter, Side side) const;
    void paintPhase(QPainter& painter) const;
    void paintAudioTypes(QPainter& painter) const;
    QRect litLamp(Side side) const;
    QString shownTitle() const;

    const AudioInput m_input;
    const int m_pairIndex;
    QString m_title;
    PPMScaleType m_scaleType = PPMScaleType::DbFs;
    ScaleDisplayPriority m_priority = ScaleDisplayPriority::LinesOnly;
    PairLayout m_layout;
    const MeterLook* m_look = nullptr;
    std::array<Channel, 2> m_channels;
    std::optional<float> m_phase;
    std::optional<float> m_shownPhase;
    std::optional<int> m_dolbyELine;
    std::optional<int> m_dolbyEIdealLine;
    bool m_isDolbyELineRelative = true;
    bool m_isStale = false;
    PairButtons* m_buttons = nullptr; ///< while any can be seen
};
