#include "instruments/waveform/WaveformActions.h"

#include "gui/control/SettingList.h"
#include "instruments/waveform/UserMarkerSettings.h"
#include "instruments/waveform/WaveformComponent.h"
#include "types/sdi/SdiTypes.h"
#include "types/sdi/SdiUtility.h"
#include "types/waveform/WaveformLimits.h"
#include "types/waveform/WaveformTexts.h"

#include <QCoreApplication>

#include <initializer_list>

using namespace Velmora;
namespace Limits = WaveformTypes::Limits;
namespace Texts = WaveformTypes::Texts;

namespace {

QString tr(const char* words)
{
    return QCoreApplication::translate("WaveformActions", words);
}

using Options = std::vector<Setting::Option>;

/// Options whose values are their numbers.
template<typename Range = std::initializer_list<const char*>>
Options numbered(const Range& texts)
{
    Options options;
    for (const char* const text : texts)
        options.push_back({tr(text), QString::number(options.size())});
    return options;
}

template<typename Code, typename ToText>
Options coded(std::initializer_list<Code> codes, ToText toText)
{
    Options options;
    for (const Code code : codes)
        options.push_back({toText(code), QString::number(static_cast<unsigned>(code))});
    return options;
}

Options components()
{
    Options options;
    for (unsigned number = 0; number < WaveformTypes::kComponents; ++number)
        options.push_back({WaveformComponent::nameOf(static_cast<WaveformTypes::Component>(number)),
                           QString::number(number)});
    options.push_back({tr("None"), QString::number(WaveformTypes::kNoComponent)});
    return options;
}

Setting::Range rangeOf(const Limits::Range& range, int decimals, const char* unit)
{
    return {range.least, range.most, range.step, decimals, QString::fromUtf8(unit)};
}

/// A choice of the window's own, which is saved with it.
Setting* addOwn(SettingList& list, const char* title, Options options, const char* initial, QLatin1String key)
{
    Setting* const setting = list.addOptions(tr(title), std::move(options));
    setting->initialise({QString::fromLatin1(initial)});
    setting->keepAs(key);
    return setting;
}

template<std::size_t Size>
constexpr QLatin1String key(const char (&text)[Size])
{
    return QLatin1String(text, static_cast<int>(Size) - 1);
}

} // namespace

WaveformActions::WaveformActions(SettingList& list)
    : userMarkers(new UserMarkerSettings(*list.addGroup(tr("User Markers (%)")), &list))
{
    addScales(list);
    addLine(list);
    addMarkers(list);
    addTrace(list);
    addSignal(list);
    addCursors(list);
    addReferenceTrace(list);
    addOverrides(list);
}

void WaveformActions::addScales(SettingList& list)
{
    verticalScale =
        list.addOptions(tr("V Scale"), numbered({"Percent", "Hex Value", "Decimal Value", "Millivolts"}));
    horizontalScale = list.addOptions(tr("H Scale"), numbered({"% Line", "Pixels"}));
    displayMode = list.addOptions(tr("Display Mode"), numbered(Texts::kDisplayModes));
    SettingList& custom = *list.addGroup(tr("Custom Display Mode"));
    for (std::size_t i = 0; i < customChannels.size(); ++i)
        customChannels[i] = custom.addOptions(tr("Channel %1").arg(i + 1), components());
    presentation = list.addOptions(tr("Waveform Mode"), numbered(Texts::kPresentations));
    fullWidth = list.addToggle(tr("Full Width Mode"));
    nitsSide = list.addOptions(tr("V Scale Nits"), numbered({"Right Side", "Left Side"}));
}

void WaveformActions::addLine(SettingList& list)
{
    singleLine =
        list.addOptions(tr("Single Line Mode"),
                        {{tr("Enabled"), QStringLiteral("true")}, {tr("Disabled"), QStringLiteral("false")}});
    SettingList& group = *list.addGroup(tr("Line and Pixel"));
    lineNumber = group.addNumber(tr("Line Number"), {1, 1080, 1});
    pixelNumber = group.addNumber(tr("Pixel Number"), {0, 1919, 1});
    pictureCursor = group.addToggle(tr("Picture Cursor"));
    pictureCursor->initialise({QStringLiteral("false")});
    pictureCursor->keepAs(key("pictureCursor"));
}

void WaveformActions::addMarkers(SettingList& list)
{
    referenceMarker =
        addOwn(list, "Reference Level Marker",
               {{tr("Enabled"), QStringLiteral("true")}, {tr("Disabled"), QStringLiteral("false")}}, "false",
               key("referenceLevelMarker"));
    Options peaks{{tr("Disabled"), QStringLiteral("0")}};
    for (const char* const nits : {"1000", "2000", "4000", "10000"})
        peaks.push_back({tr("%1 Nits").arg(QString::fromLatin1(nits)), QString::fromLatin1(nits)});
    peakWhite = addOwn(list, "Peak White Marker", peaks, "0", key("peakWhiteMarker"));
    // In the order of the menu, which is not that of the numbers.
    sLog3 = list.addOptions(tr("S-Log3 Mode"),
                            {{tr("SR Live"), QStringLiteral("1")}, {tr("S-Log3"), QStringLiteral("0")}});
}

void WaveformActions::addTrace(SettingList& list)
{
    filter = list.addOptions(tr("Filter"), numbered(Texts::kFilters));
    SettingList& zoom = *list.addGroup(tr("Zoom/Pan"));
    zoomPan = addOwn(zoom, "Zoom/Pan",
                     numbered({"H & V Mag", "H Mag Only", "V Mag Only", "H Pos Only", "V Pos Only"}), "0",
                     key("zoomPan"));
    horizontalMagnification =
        zoom.addSlider(tr("H Magnification"), rangeOf(Limits::kHorizontalMagnification, 1, "\u00D7"));
    horizontalPosition = zoom.addSlider(tr("H Position"), rangeOf(Limits::kHorizontalPosition, 0, "%"));
    verticalMagnification =
        zoom.addSlider(tr("V Magnification"), rangeOf(Limits::kVerticalMagnification, 1, "\u00D7"));
    verticalPosition = zoom.addSlider(tr("V Position"), rangeOf(Limits::kVerticalPosition, 0, "%"));
    SettingList& picture = *list.addGroup(tr("Picture Controls"));
    brightness = picture.addSlider(tr("Brightness"), rangeOf(Limits::kBrightness, 0, "%"));
    persistence = picture.addSlider(tr("Persistence"), rangeOf(Limits::kPersistence, 1, "s"));
    gamma = picture.addSlider(tr("Gamma"), rangeOf(Limits::kGamma, 2, ""));
    persistenceAttack = picture.addSlider(tr("Persistence Attack"), rangeOf(Limits::kPersistence, 1, "s"));
    SettingList& levels = *list.addGroup(tr("Channel Gains"));
    for (std::size_t i = 0; i < gains.size(); ++i)
        gains[i] = levels.addSlider(tr("Channel %1 Gain").arg(i + 1), rangeOf(Limits::kGain, 2, "\u00D7"));
    restoreLevels = levels.addButton(tr("Restore Default Levels"));
}

void WaveformActions::addSignal(SettingList& list)
{
    colourMode = list.addOptions(tr("Colour Mode"), numbered(Texts::kColourModes));
    onVideoLoss = list.addOptions(tr("On Video Loss"), numbered({"Clear", "Hold"}));
    fullRange = list.addOptions(tr("Full Range Mode"), numbered({"RP.2077", "SDI Protected"}));
}

void WaveformActions::addCursors(SettingList& list)
{
    cursors = addOwn(list, "Measurement Cursors", numbered({"Off", "Single", "Both"}), "0",
                     key("measurementCursors"));
    SettingList& group = *list.addGroup(tr("Cursor Controls"));
    cursorAxis = addOwn(group, "Cursor X/Y Select", numbered({"X", "Y"}), "1", key("cursorXYSelect"));
    cursorValues =
        addOwn(group, "Cursor Values", numbered({"Displayed", "Hidden"}), "0", key("cursorValues"));
    cursorAdjustment =
        addOwn(group, "Cursor Adjustment", numbered({"Independent", "Linked"}), "0", key("cursorAdjustment"));
    cursorScaleX = addOwn(group, "Cursor Scale", numbered({"Percent", "Time", "Pixels", "Frequency"}), "0",
                          key("cursorScaleX"));
    cursorScaleY =
        addOwn(group, "Cursor Scale",
               numbered({"Percent", "Percent Ref", "Millivolts", "Hex Value", "Decimal Value", "Nits"}), "0",
               key("cursorScaleY"));
    refPosition = group.addNumber(tr("Ref Cursor Position"), {});
    deltaPosition = group.addNumber(tr("Delta Cursor Position"), {});
    differential = group.addNumber(tr("Cursor Differential"), {});
    setReference = group.addButton(tr("Set % Reference"));
    resetReference = group.addButton(tr("Reset % Reference"));
}

void WaveformActions::addReferenceTrace(SettingList& list)
{
    SettingList& group = *list.addGroup(tr("Reference Trace"));
    holdTrace = group.addButton(tr("Hold as Reference"));
    showTrace = group.addToggle(tr("Show Reference"));
    showTrace->initialise({QStringLiteral("true")});
    showTrace->keepAs(key("showReferenceTrace"));
    clearTrace = group.addButton(tr("Clear Reference"));
}

void WaveformActions::addOverrides(SettingList& list)
{
    using Sdi::SubImagePixelMappingFormat;
    using Sdi::PayloadId::Colourimetry;
    using Sdi::PayloadId::TransferCurve;
    SettingList& group = *list.addGroup(tr("Payload ID Override"));
    colourimetryEnable = group.addToggle(tr("Override Colourimetry"));
    colourimetry = group.addOptions(tr("Colourimetry"),
                                    coded({Colourimetry::Rec709, Colourimetry::Rec2020, Colourimetry::Rec601},
                                          &Sdi::SdiUtility::convertColourimetryToString));
    transferCurveEnable = group.addToggle(tr("Override Transfer Curve"));
    transferCurve = group.addOptions(
        tr("Transfer Curve"),
        coded({TransferCurve::SdrTv, TransferCurve::Hlg, TransferCurve::Pq, TransferCurve::SLog3},
              &Sdi::SdiUtility::convertTransferCurveToString));
    subImageMappingEnable = group.addToggle(tr("Override Sub-Image Mapping"));
    subImageMapping = group.addOptions(
        tr("Sub-Image Mapping"),
        coded({SubImagePixelMappingFormat::TwoSampleInterleave, SubImagePixelMappingFormat::SquareDivision},
              &Sdi::SdiUtility::convertSubImagePixelMappingFormatToString));
}
