#pragma once

#include "gui/control/ElementState.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/picture/FeedPicture.h"
#include "instruments/waveform/HeldTrace.h"
#include "instruments/waveform/WaveformActions.h"
#include "instruments/waveform/WaveformDisplay.h"

#include <QBasicTimer>

class MeasurementCursorSettings;
class WaveformGraticuleWidget;
class WaveformHorizontalScaleWidget;
class WaveformVerticalScaleWidget;

/// Shows the waveform of the input. The instrument draws the trace; the window draws graticule and scales by
/// the same geometry, and measures with cursors. Its settings are the instrument's, shared by all who look at
/// the waveform, but for the cursors, the markers of the signal and the reference trace.
class Waveform : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"Waveform", 8};
    static constexpr QLatin1String kIconName{"waveform", 8};

    Waveform(WzSubWindow* subWindow, Velmora::Wz::Device device);
    ~Waveform() override;

    SerialisableDataPacket getWidgetStatesAsPreset() override;
    void loadWidgetStatesFromPreset(SerialisableDataPacket& preset) override;
    QSize getMaximumWindowSize(const QSize& area) const override;
    QString helpText() const override;
    bool ownsPressAt(const QPoint& position) const override;

    const WaveformActions& actions() const { return m_actions; }
    WaveformGraticuleWidget& graticule() const { return *m_graticule; }
    FeedPicture& picture() { return m_picture; }

    /// Full width is for one column of cells: side by side they would be read off scales that lie over
    /// others.
    bool isFullWidthModeSupportedByCurrentConfig() const;

public slots:
    void fromConfigCoreWaveformFilterUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformBrightnessUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformGammaUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformPersistenceAttackUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformPersistenceDecayUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformSingleLineModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformVerticalMagnificationUpdated(QStringList values, QStringList reasons,
                                                            bool active);
    void fromConfigCoreWaveformVerticalPositionUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformHorizontalMagnificationUpdated(QStringList values, QStringList reasons,
                                                              bool active);
    void fromConfigCoreWaveformHorizontalPositionUpdated(QStringList values, QStringList reasons,
                                                         bool active);
    void fromConfigCoreWaveformDisplayModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformPresentationModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformColourModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformFullWidthModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformOnVideoLossUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformFullRangeModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformVerticalScaleModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformVerticalNitsScaleModeUpdated(QStringList values, QStringList reasons,
                                                            bool active);
    void fromConfigCoreWaveformHorizontalScaleModeUpdated(QStringList values, QStringList reasons,
                                                          bool active);
    void fromConfigCoreWaveformSLog3ModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformUserMarkerLumaRgbEnableUpdated(QStringList values, QStringList reasons,
                                                              bool active);
    void fromConfigCoreWaveformUserMarkerCbCrEnableUpdated(QStringList values, QStringList reasons,
                                                           bool active);
    void fromConfigCorePayloadIdColourimetryOverrideUpdated(QStringList values, QStringList reasons,
                                                            bool active);
    void fromConfigCorePayloadIdColourimetryOverrideEnableUpdated(QStringList values, QStringList reasons,
                                                                  bool active);
    void fromConfigCorePayloadIdTransferCurveOverrideUpdated(QStringList values, QStringList reasons,
                                                             bool active);
    void fromConfigCorePayloadIdTransferCurveOverrideEnableUpdated(QStringList values, QStringList reasons,
                                                                   bool active);
    void fromConfigCoreSubImageMappingOverrideUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreSubImageMappingOverrideEnableUpdated(QStringList values, QStringList reasons,
                                                            bool active);
    void fromConfigCoreWaveformUserMarkerLumaRgb1Updated(QStringList values, QStringList reasons,
                                                         bool active);
    void fromConfigCoreWaveformUserMarkerLumaRgb2Updated(QStringList values, QStringList reasons,
                                                         bool active);
    void fromConfigCoreWaveformUserMarkerCbCr1Updated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformUserMarkerCbCr2Updated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformCustomDisplayModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreWaveformBlenderGainsUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCorePictureCursorPositionUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAnalyserModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreRequested2110VideoFlowsUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreIp20227ModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreActiveSdiStandardUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCorePictureFormatUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreActive2110StandardUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCore2110VideoLossUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreWaveformFilter(unsigned choice);
    void toConfigCoreWaveformBrightness(double number);
    void toConfigCoreWaveformGamma(double number);
    void toConfigCoreWaveformPersistenceAttack(double number);
    void toConfigCoreWaveformPersistenceDecay(double number);
    void toConfigCoreWaveformSingleLineMode(bool on);
    void toConfigCoreWaveformVerticalMagnification(double number);
    void toConfigCoreWaveformVerticalPosition(double number);
    void toConfigCoreWaveformHorizontalMagnification(double number);
    void toConfigCoreWaveformHorizontalPosition(double number);
    void toConfigCoreWaveformDisplayMode(unsigned choice);
    void toConfigCoreWaveformPresentationMode(unsigned choice);
    void toConfigCoreWaveformColourMode(unsigned choice);
    void toConfigCoreWaveformFullWidthMode(bool on);
    void toConfigCoreWaveformOnVideoLoss(unsigned choice);
    void toConfigCoreWaveformFullRangeMode(unsigned choice);
    void toConfigCoreWaveformVerticalScaleMode(unsigned choice);
    void toConfigCoreWaveformVerticalNitsScaleMode(unsigned choice);
    void toConfigCoreWaveformHorizontalScaleMode(unsigned choice);
    void toConfigCoreWaveformSLog3Mode(unsigned choice);
    void toConfigCoreWaveformUserMarkerLumaRgbEnable(bool on);
    void toConfigCoreWaveformUserMarkerCbCrEnable(bool on);
    void toConfigCorePayloadIdColourimetryOverride(unsigned choice);
    void toConfigCorePayloadIdColourimetryOverrideEnable(bool on);
    void toConfigCorePayloadIdTransferCurveOverride(unsigned choice);
    void toConfigCorePayloadIdTransferCurveOverrideEnable(bool on);
    void toConfigCoreSubImageMappingOverride(unsigned choice);
    void toConfigCoreSubImageMappingOverrideEnable(bool on);
    void toConfigCoreWaveformUserMarkerLumaRgb1(double percent);
    void toConfigCoreWaveformUserMarkerLumaRgb2(double percent);
    void toConfigCoreWaveformUserMarkerCbCr1(double percent);
    void toConfigCoreWaveformUserMarkerCbCr2(double percent);
    void toConfigCoreWaveformCustomDisplayMode(const QStringList& components);
    void toConfigCoreWaveformBlenderGains(const QStringList& gains);
    void toConfigCorePictureCursorPosition(QPoint pixel);
    /// Of the window without its title line.
    void toCommandcore_wantPicture(QSize content);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void onExposedChanged(bool exposed) override;
    void onFrozenChanged(bool frozen) override;
    void onConnectionChanged(bool connected) override;
    void onStaleChanged(int seconds) override;

private:
    void setupActions();
    void setupListActions();
    void setupReferenceTrace();
    void writePictureCursor(int x, int y);
    void showFullWidth();
    void showPictureCursor();
    void zoom(int steps);

    void updatePictureHost();
    void updateWatching();
    void onPictureStateChanged();

    void updateTransferCurve();
    WaveformSignal signalOfInput() const;
    WaveformDisplay displayOfNow() const;
    void updateDisplay();
    void showDisplay(const WaveformDisplay& display);
    void updateTitle();
    QSize geometryContent() const;

    void showCursors();
    void showReferenceTrace();

    const WaveformActions m_actions;
    MeasurementCursorSettings* const m_cursors;
    FeedPicture m_picture;
    WaveformGraticuleWidget* const m_graticule;
    WaveformVerticalScaleWidget* const m_leftScale;
    WaveformVerticalScaleWidget* const m_rightScale;
    WaveformHorizontalScaleWidget* const m_horizontalScale;

    ElementState m_sdiStandard;
    ElementState m_pictureFormat;
    ElementState m_ipStandard;
    ElementState m_ipVideoLoss;
    ElementState m_analyserMode;
    ElementState m_requestedFlows;
    ElementState m_ip20227Mode;
    ElementState m_cursorPosition; ///< of the picture cursor
    ElementState m_fullWidth;
    WaveformSignal m_signal; ///< what is overridden included
    QString m_address;
    QBasicTimer m_misfit; ///< while pictures come that do not fit

    HeldTrace m_referenceTrace;
};
