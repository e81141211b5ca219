#include "instruments/waveform/Waveform.h"

#include "gui/control/SettingList.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/style/Icons.h"
#include "instruments/waveform/MeasurementCursorSettings.h"
#include "instruments/waveform/UserMarkerSettings.h"
#include "instruments/waveform/WaveformClientPreset.h"
#include "instruments/waveform/WaveformColours.h"
#include "instruments/waveform/WaveformGraticuleWidget.h"
#include "instruments/waveform/WaveformHorizontalScaleWidget.h"
#include "instruments/waveform/WaveformLayout.h"
#include "instruments/waveform/WaveformVerticalScaleWidget.h"
#include "types/waveform/WaveformLimits.h"
#include "types/waveform/WaveformPictures.h"

#include <QTimerEvent>

#include <algorithm>

using namespace Velmora::WaveformTypes;
using Side = WaveformVerticalScaleWidget::Side;

namespace {

/// A picture of another size is on its way out after a change; only later it is worth a word.
constexpr int kMisfitMs = 1000;

constexpr QLatin1String kNoSignal("No Signal", 9);
constexpr QLatin1String kSdiMode("SDI", 3);

/// A number of the setting's range; its initial one where the instrument says none.
double numberOf(const Setting& setting, const Limits::Range& range)
{
    bool isNumber = false;
    const double number = setting.value().toDouble(&isNumber);
    const bool isSound = isNumber && setting.isUsable() && number >= range.least && number <= range.most;
    return isSound ? number : range.initial;
}

} // namespace

Waveform::Waveform(WzSubWindow* subWindow, Velmora::Wz::Device device)
    : WzSubwindowContent(QString(kClassName), Icons::path(QString(kIconName)), subWindow, device)
    , m_actions(settings())
    , m_cursors(new MeasurementCursorSettings(m_actions, this))
    , m_graticule(new WaveformGraticuleWidget(m_picture, *getWzStyle(), this))
    , m_leftScale(new WaveformVerticalScaleWidget(Side::Left, *getWzStyle(), this))
    , m_rightScale(new WaveformVerticalScaleWidget(Side::Right, *getWzStyle(), this))
    , m_horizontalScale(new WaveformHorizontalScaleWidget(*getWzStyle(), this))
{
    setPresetClassName(WaveformClientPreset::kClassName);
    setupActions();
    connect(&m_picture, &FeedPicture::wanted, this,
            [this] { emit toCommandcore_wantPicture(geometryContent()); });
    connect(&m_picture, &FeedPicture::arrived, this, [this] { noteDataArrived(); });
    connect(&m_picture, &FeedPicture::stateChanged, this, &Waveform::onPictureStateChanged);
    connect(m_graticule, &WaveformGraticuleWidget::cursorMoved, m_cursors,
            &MeasurementCursorSettings::moveTo);
    connect(m_graticule, &WaveformGraticuleWidget::cornerChosen, m_cursors,
            &MeasurementCursorSettings::setReadOutCorner);
    connect(m_cursors, &MeasurementCursorSettings::changed, this, &Waveform::showCursors);
    connect(m_graticule, &WaveformGraticuleWidget::zoomed, this, &Waveform::zoom);
    connect(m_graticule, &WaveformGraticuleWidget::holdingChanged, this,
            [this](bool holds) { getSubWindow()->area().setAllowSwipeGesture(!holds); });
    const ConnectionStatus& connection = subWindow->area().connectionStatus();
    connect(&connection, &ConnectionStatus::changed, this, &Waveform::updatePictureHost);
    updatePictureHost();
    showCursors();
    updateTransferCurve();
}

Waveform::~Waveform() = default;

bool Waveform::ownsPressAt(const QPoint& position) const
{
    return m_graticule->isHandle(m_graticule->mapFrom(this, position));
}

QSize Waveform::getMaximumWindowSize(const QSize& area) const
{
    return area;
}

void Waveform::setupActions()
{
    m_actions.filter->writesTo(this, &Waveform::toConfigCoreWaveformFilter);
    m_actions.brightness->writesTo(this, &Waveform::toConfigCoreWaveformBrightness);
    m_actions.gamma->writesTo(this, &Waveform::toConfigCoreWaveformGamma);
    m_actions.persistenceAttack->writesTo(this, &Waveform::toConfigCoreWaveformPersistenceAttack);
    m_actions.persistence->writesTo(this, &Waveform::toConfigCoreWaveformPersistenceDecay);
    m_actions.singleLine->writesTo(this, &Waveform::toConfigCoreWaveformSingleLineMode);
    m_actions.verticalMagnification->writesTo(this, &Waveform::toConfigCoreWaveformVerticalMagnification);
    m_actions.verticalPosition->writesTo(this, &Waveform::toConfigCoreWaveformVerticalPosition);
    m_actions.horizontalMagnification->writesTo(this, &Waveform::toConfigCoreWaveformHorizontalMagnification);
    m_actions.horizontalPosition->writesTo(this, &Waveform::toConfigCoreWaveformHorizontalPosition);
    m_actions.displayMode->writesTo(this, &Waveform::toConfigCoreWaveformDisplayMode);
    m_actions.presentation->writesTo(this, &Waveform::toConfigCoreWaveformPresentationMode);
    m_actions.colourMode->writesTo(this, &Waveform::toConfigCoreWaveformColourMode);
    m_actions.fullWidth->writesTo(this, &Waveform::toConfigCoreWaveformFullWidthMode);
    m_actions.onVideoLoss->writesTo(this, &Waveform::toConfigCoreWaveformOnVideoLoss);
    m_actions.fullRange->writesTo(this, &Waveform::toConfigCoreWaveformFullRangeMode);
    m_actions.verticalScale->writesTo(this, &Waveform::toConfigCoreWaveformVerticalScaleMode);
    m_actions.nitsSide->writesTo(this, &Waveform::toConfigCoreWaveformVerticalNitsScaleMode);
    m_actions.horizontalScale->writesTo(this, &Waveform::toConfigCoreWaveformHorizontalScaleMode);
    m_actions.sLog3->writesTo(this, &Waveform::toConfigCoreWaveformSLog3Mode);
    m_actions.userMarkers->lumaRgbEnable()->writesTo(this,
                                                     &Waveform::toConfigCoreWaveformUserMarkerLumaRgbEnable);
    m_actions.userMarkers->cbCrEnable()->writesTo(this, &Waveform::toConfigCoreWaveformUserMarkerCbCrEnable);
    m_actions.colourimetry->writesTo(this, &Waveform::toConfigCorePayloadIdColourimetryOverride);
    m_actions.colourimetryEnable->writesTo(this, &Waveform::toConfigCorePayloadIdColourimetryOverrideEnable);
    m_actions.transferCurve->writesTo(this, &Waveform::toConfigCorePayloadIdTransferCurveOverride);
    m_actions.transferCurveEnable->writesTo(this,
                                            &Waveform::toConfigCorePayloadIdTransferCurveOverrideEnable);
    m_actions.subImageMapping->writesTo(this, &Waveform::toConfigCoreSubImageMappingOverride);
    m_actions.subImageMappingEnable->writesTo(this, &Waveform::toConfigCoreSubImageMappingOverrideEnable);
    setupListActions();
    setupReferenceTrace();
    connect(m_actions.userMarkers, &UserMarkerSettings::chosen, this,
            [this](UserMarkerSettings::Marker marker, double percent) {
                switch (marker) {
                case UserMarkerSettings::LumaRgb1:
                    emit toConfigCoreWaveformUserMarkerLumaRgb1(percent);
                    break;
                case UserMarkerSettings::LumaRgb2:
                    emit toConfigCoreWaveformUserMarkerLumaRgb2(percent);
                    break;
                case UserMarkerSettings::CbCr1:
                    emit toConfigCoreWaveformUserMarkerCbCr1(percent);
                    break;
                case UserMarkerSettings::CbCr2:
                    emit toConfigCoreWaveformUserMarkerCbCr2(percent);
                    break;
                }
            });
    settings().forEachSetting([this](const Setting& setting) {
        connect(&setting, &Setting::changed, this, &Waveform::updateDisplay);
    });
    for (const Setting* const setting : {m_actions.transferCurve, m_actions.transferCurveEnable,
                                         m_actions.colourimetry, m_actions.colourimetryEnable})
        connect(setting, &Setting::changed, this, &Waveform::updateTransferCurve);
}

/// Items of one element, which is written as a whole.
void Waveform::setupListActions()
{
    const auto bindItems = [this](const std::array<Setting*, 4>& items, auto signal) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            items[i]->bindTo(this, [this, items, i, signal](const QStringList& chosen) {
                QStringList values;
                for (std::size_t k = 0; k < items.size(); ++k)
                    values << (k == i ? chosen.value(0) : items[k]->value());
                emit(this->*signal)(values);
            });
        }
    };
    bindItems(m_actions.customChannels, &Waveform::toConfigCoreWaveformCustomDisplayMode);
    bindItems(m_actions.gains, &Waveform::toConfigCoreWaveformBlenderGains);
    m_actions.restoreLevels->bindTo(this, [this](const QStringList&) {
        QStringList gains;
        for (std::size_t i = 0; i < m_actions.gains.size(); ++i)
            gains << QString::number(Limits::kGain.initial);
        emit toConfigCoreWaveformBlenderGains(gains);
    });
    m_actions.lineNumber->bindTo(this, [this](const QStringList& line) {
        writePictureCursor(m_cursorPosition.values.value(0).toInt(), line.value(0).toInt() - 1);
    });
    m_actions.pixelNumber->bindTo(this, [this](const QStringList& pixel) {
        writePictureCursor(pixel.value(0).toInt(), m_cursorPosition.values.value(1).toInt());
    });
}

void Waveform::writePictureCursor(int x, int y)
{
    emit toConfigCorePictureCursorPosition({x, y});
}

/// Lines are counted from 1, pixels from 0 as on the scale below.
void Waveform::showPictureCursor()
{
    const ElementState& position = m_cursorPosition;
    m_actions.lineNumber->setRange({1, static_cast<double>(std::max(1, m_signal.height)), 1});
    m_actions.pixelNumber->setRange({0, static_cast<double>(std::max(1, m_signal.width) - 1), 1});
    bool hasLine = false;
    const int line = position.values.value(1).toInt(&hasLine) + 1;
    m_actions.lineNumber->fromElement(hasLine ? QStringList{QString::number(line)} : QStringList{},
                                      position.reasons, position.active);
    m_actions.pixelNumber->fromElement(position.values.mid(0, 1), position.reasons, position.active);
}

/// Not offered where it gains nothing; what is on can be switched off.
void Waveform::showFullWidth()
{
    const bool isOn = m_fullWidth.text() == QLatin1String("true");
    const bool isOffered = m_fullWidth.active && (isOn || isFullWidthModeSupportedByCurrentConfig());
    const ElementState& shown = m_actions.fullWidth->state();
    if (shown.values != m_fullWidth.values || shown.reasons != m_fullWidth.reasons
        || shown.active != isOffered)
        m_actions.fullWidth->fromElement(m_fullWidth.values, m_fullWidth.reasons, isOffered);
}

void Waveform::zoom(int steps)
{
    enum class ZoomPan { HAndVMag, HMag, VMag, HPos, VPos };
    const auto mode = choiceOf(*m_actions.zoomPan, ZoomPan::VPos);
    if (mode == ZoomPan::HAndVMag || mode == ZoomPan::HMag)
        m_actions.horizontalMagnification->step(steps);
    if (mode == ZoomPan::HAndVMag || mode == ZoomPan::VMag)
        m_actions.verticalMagnification->step(steps);
    if (mode == ZoomPan::HPos)
        m_actions.horizontalPosition->step(steps);
    if (mode == ZoomPan::VPos)
        m_actions.verticalPosition->step(steps);
}

void Waveform::updatePictureHost()
{
    const QString address = getSubWindow()->area().connectionStatus().address();
    if (address == m_address)
        return;
    m_address = address;
    m_picture.setHost(PictureHost::at(address));
}

void Waveform::updateWatching()
{
    m_picture.setWatched(isExposed() && isConnected());
    setUpdatesDue(isExposed() && isConnected());
}

void Waveform::onPictureStateChanged()
{
    m_graticule->setNotice({});
    if (m_picture.state() == FeedPicture::State::OtherSize)
        m_misfit.start(kMisfitMs, this);
    else
        m_misfit.stop();
}

void Waveform::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_misfit.timerId()) {
        WzSubwindowContent::timerEvent(event);
        return;
    }
    m_misfit.stop();
    m_graticule->setNotice(tr("The instrument sends pictures of another size"));
}

/// What the input says of itself, before anything is overridden.
WaveformSignal Waveform::signalOfInput() const
{
    const bool isIp = m_analyserMode.isUsable() && m_analyserMode.text() != kSdiMode;
    if (isIp) {
        const bool isLost = m_ipVideoLoss.isUsable() && m_ipVideoLoss.text() == QLatin1String("true");
        return isLost || !m_ipStandard.isUsable() ? WaveformSignal()
                                                  : WaveformSignal::of2110Standard(m_ipStandard.values);
    }
    WaveformSignal signal =
        m_sdiStandard.isUsable() ? WaveformSignal::ofSdiStandard(m_sdiStandard.values) : WaveformSignal();
    // Pictures that no SDI standard has are there all the same.
    if (!signal.isPresent && m_pictureFormat.isUsable() && m_pictureFormat.text() != kNoSignal) {
        signal.isPresent = true;
        signal.format = m_pictureFormat.text();
    }
    return signal;
}

void Waveform::updateTransferCurve()
{
    using Sdi = WaveformSignal::TransferCurve;
    m_signal = signalOfInput();
    if (m_actions.transferCurveEnable->isUsable() && m_actions.transferCurveEnable->isOn())
        m_signal.transferCurve = choiceOf(*m_actions.transferCurve, Sdi::SLog3);
    if (m_actions.colourimetryEnable->isUsable() && m_actions.colourimetryEnable->isOn())
        m_signal.colourimetry = choiceOf(*m_actions.colourimetry, WaveformSignal::Colourimetry::Rec601);
    const bool isKnown = m_sdiStandard.verdict() != ElementState::Verdict::Unknown
        || m_pictureFormat.verdict() != ElementState::Verdict::Unknown || m_ipStandard.isUsable();
    if (isKnown)
        noteDataArrived();
    setNoSignal(isKnown && !m_signal.isPresent);
    if (!m_signal.isPresent)
        m_graticule->setNotice({});
    showPictureCursor();
    updateDisplay();
}

/// The frame around the content belongs to what the instrument draws for, so that cells have round sizes.
QSize Waveform::geometryContent() const
{
    return {width() + 2 * x(), height() + x()};
}

bool Waveform::isFullWidthModeSupportedByCurrentConfig() const
{
    const auto presentation = choiceOf(*m_actions.presentation, Presentation::Overlay);
    return presentation != Presentation::Parade || m_graticule->display().channels.size() == 1;
}

WaveformDisplay Waveform::displayOfNow() const
{
    WaveformDisplay display;
    display.signal = m_signal;
    display.content = geometryContent();
    CustomChannels custom;
    for (std::size_t i = 0; i < custom.size(); ++i) {
        bool isNumber = false;
        const unsigned component = m_actions.customChannels[i]->value().toUInt(&isNumber);
        custom[i] = {isNumber && component < kComponents, static_cast<Component>(component % kComponents)};
    }
    display.channels = channelsOf(choiceOf(*m_actions.displayMode, DisplayMode::Custom), custom);
    for (std::size_t i = 0; i < display.gains.size(); ++i)
        display.gains[i] = numberOf(*m_actions.gains[i], Limits::kGain);
    display.presentation = choiceOf(*m_actions.presentation, Presentation::Overlay);
    display.isFullWidth = m_actions.fullWidth->isUsable() && m_actions.fullWidth->isOn();
    display.view.horizontalMagnification =
        numberOf(*m_actions.horizontalMagnification, Limits::kHorizontalMagnification);
    display.view.horizontalPosition =
        numberOf(*m_actions.horizontalPosition, Limits::kHorizontalPosition) / 100.0;
    display.view.verticalMagnification =
        numberOf(*m_actions.verticalMagnification, Limits::kVerticalMagnification);
    display.view.verticalPosition = numberOf(*m_actions.verticalPosition, Limits::kVerticalPosition);
    display.verticalScale = choiceOf(*m_actions.verticalScale, VerticalScale::Millivolts);
    display.horizontalScale = choiceOf(*m_actions.horizontalScale, HorizontalScale::Pixels);
    display.nitsSide = choiceOf(*m_actions.nitsSide, NitsScaleSide::Left);
    display.sLog3Mode = choiceOf(*m_actions.sLog3, SLog3Mode::SrLive);
    display.fullRangeMode = choiceOf(*m_actions.fullRange, FullRangeMode::SdiProtected);
    display.hasReferenceMarker = m_actions.referenceMarker->isOn();
    if (m_actions.peakWhite->number() > 0.0)
        display.peakWhiteNits = m_actions.peakWhite->number();
    if (m_actions.pictureCursor->isOn() && m_cursorPosition.isUsable())
        display.cursorPixel = m_cursorPosition.values.value(0).toInt();
    return display;
}

/// A picture that is held is of the signal and the channels that were; units and magnification may change.
void Waveform::updateDisplay()
{
    WaveformDisplay display = displayOfNow();
    if (isFrozen()) {
        const WaveformDisplay& held = m_graticule->display();
        display.signal = held.signal;
        display.channels = held.channels;
        display.presentation = held.presentation;
        display.fullRangeMode = held.fullRangeMode;
    }
    const WaveformDisplay& before = m_graticule->display();
    const bool isAnotherUnit = display.verticalScale != before.verticalScale
        || display.signal != before.signal || display.fullRangeMode != before.fullRangeMode;
    showDisplay(display);
    if (isAnotherUnit)
        m_actions.userMarkers->updateUserMarkerAfterStandardChange(display);
    m_graticule->setUserMarkers(m_actions.userMarkers->markers());
    showFullWidth();
    updateTitle();
}

void Waveform::showDisplay(const WaveformDisplay& display)
{
    const auto geometry = display.geometry();
    const WaveformLayout layout(geometry, size(), QPoint(-(display.content.width() - width()) / 2, 0),
                                display.isFullWidth);
    m_graticule->setGeometry(layout.graticule);
    m_graticule->setDisplay(display, layout.picture);
    m_leftScale->setGeometry(layout.leftScale);
    m_rightScale->setGeometry(layout.rightScale);
    for (WaveformVerticalScaleWidget* const scale : {m_leftScale, m_rightScale}) {
        scale->setPictureTop(layout.picture.y());
        scale->setDisplay(display);
    }
    m_horizontalScale->setGeometry(layout.horizontalScale);
    m_horizontalScale->setDisplay(display);
    m_picture.setImage(Pictures::imageName(display.content), display.content);
    m_picture.setSize(geometry.imageRect().size());
}

void Waveform::updateTitle()
{
    const WaveformDisplay& display = m_graticule->display();
    QStringList details;
    if (display.geometry().detail() != WaveformGeometry::Detail::Small) {
        if (m_actions.displayMode->isUsable() && m_actions.presentation->isUsable())
            details << m_actions.displayMode->valueText() + QLatin1Char(' ')
                    + m_actions.presentation->valueText().toLower();
        if (m_actions.singleLine->isUsable() && m_actions.singleLine->isOn())
            details << tr("line %1").arg(m_actions.lineNumber->valueText());
    }
    if (m_requestedFlows.isUsable() && m_analyserMode.text() != kSdiMode)
        details << m_requestedFlows.values;
    else if (m_analyserMode.isUsable())
        details << m_analyserMode.text();
    if (m_ip20227Mode.isUsable() && m_ip20227Mode.text() == QLatin1String("true"))
        details << QStringLiteral("2022-7");
    setTitleDetails(details.join(QLatin1String("  ")));
}

void Waveform::resizeEvent(QResizeEvent* event)
{
    updateDisplay();
    WzSubwindowContent::resizeEvent(event);
}

void Waveform::onExposedChanged(bool)
{
    updateWatching();
}

void Waveform::onFrozenChanged(bool frozen)
{
    if (frozen)
        m_graticule->hold(m_graticule->shownTrace());
    else
        m_graticule->goOn();
    updateDisplay();
}

void Waveform::onConnectionChanged(bool connected)
{
    if (!connected) {
        for (ElementState* const state :
             {&m_sdiStandard, &m_pictureFormat, &m_ipStandard, &m_ipVideoLoss, &m_analyserMode,
              &m_requestedFlows, &m_ip20227Mode, &m_cursorPosition, &m_fullWidth})
            *state = {};
        updateTransferCurve();
    }
    updateWatching();
}

void Waveform::onStaleChanged(int seconds)
{
    m_graticule->setStaleSeconds(seconds);
}

void Waveform::showCursors()
{
    m_graticule->setCursors(m_cursors->cursors(), m_cursors->scale());
}

void Waveform::setupReferenceTrace()
{
    connect(m_actions.holdTrace, &Setting::chosen, this, [this] {
        const HeldTrace trace = m_graticule->shownTrace();
        // Where there is nothing to be held, the trace of before stays.
        if (!trace.isNull())
            m_referenceTrace = trace;
        showReferenceTrace();
    });
    connect(m_actions.showTrace, &Setting::changed, this, &Waveform::showReferenceTrace);
    connect(m_actions.clearTrace, &Setting::chosen, this, [this] {
        m_referenceTrace = {};
        showReferenceTrace();
    });
}

void Waveform::showReferenceTrace()
{
    const bool isShown = m_actions.showTrace->isOn();
    m_graticule->setReferenceTrace(isShown ? m_referenceTrace.inColour(WaveformColours::kReferenceTrace)
                                           : HeldTrace());
}

SerialisableDataPacket Waveform::getWidgetStatesAsPreset()
{
    WaveformClientPreset preset;
    settings().save(preset);
    m_cursors->save(preset);
    if (const QJsonObject trace = m_referenceTrace.toJson(); !trace.isEmpty())
        preset.setReferenceTrace(trace);
    return preset;
}

void Waveform::loadWidgetStatesFromPreset(SerialisableDataPacket& packet)
{
    if (packet.getPacketClassName() != WaveformClientPreset::kClassName)
        return;
    const WaveformClientPreset preset(packet);
    m_cursors->restore(preset);
    if (preset.containsReferenceTrace())
        m_referenceTrace = HeldTrace::fromJson(preset.getReferenceTrace());
    settings().restore(preset);
    showReferenceTrace();
}
