#include "instruments/waveform/UserMarkerSettings.h"

#include "gui/control/SettingList.h"
#include "instruments/waveform/WaveformColours.h"
#include "types/waveform/WaveformLimits.h"

#include <cmath>

namespace Limits = Velmora::WaveformTypes::Limits;

namespace {

WaveformScale scaleOfUnit(const WaveformDisplay& display, bool colourDifference)
{
    // There is no entering of hexadecimal figures: codes are entered in decimal.
    using Unit = WaveformScale::Unit;
    const Unit unit = display.verticalScale == Unit::Hex ? Unit::Decimal : display.verticalScale;
    return {unit, display.codeScale(colourDifference), display.signal.bits, colourDifference,
            0.0,  WaveformScale::Detail::Full};
}

} // namespace

UserMarkerSettings::UserMarkerSettings(SettingList& list, QObject* parent)
    : QObject(parent)
    , m_lumaRgbScale(scaleOfUnit({}, false))
    , m_cbCrScale(scaleOfUnit({}, true))
    , m_lumaRgbEnable(list.addToggle(tr("Luma/RGB Markers")))
{
    for (int i = 0; i < kMarkers; ++i) {
        const auto marker = static_cast<Marker>(i);
        if (marker == CbCr1)
            m_cbCrEnable = list.addToggle(tr("CbCr Markers"));
        const QString title = isCbCr(marker) ? tr("CbCr Marker %1") : tr("Marker %1");
        Setting* const setting = list.addNumber(title.arg(i % 2 + 1), {});
        setting->setIcon(i % 2 == 0 ? QStringLiteral("solidOrange") : QStringLiteral("solidPaleTurquoise"));
        setting->bindTo(this, [this, marker](const QStringList& values) {
            emit chosen(marker, userMarkerValueToPercentage(marker, values.value(0).toDouble()));
        });
        m_settings[static_cast<std::size_t>(i)] = setting;
        show(marker);
    }
}

void UserMarkerSettings::fromElement(Marker marker, const QStringList& values, const QStringList& reasons,
                                     bool active)
{
    m_elements[static_cast<std::size_t>(marker)] = {values, reasons, active};
    show(marker);
}

void UserMarkerSettings::updateUserMarkerAfterStandardChange(const WaveformDisplay& display)
{
    m_lumaRgbScale = scaleOfUnit(display, false);
    m_cbCrScale = scaleOfUnit(display, true);
    for (int i = 0; i < kMarkers; ++i)
        show(static_cast<Marker>(i));
}

double UserMarkerSettings::userMarkerValueToPercentage(Marker marker, double value) const
{
    // Rounded figures at the ends of the range are not to lie beyond it.
    return std::clamp(scaleOf(marker).percent(value), Limits::kUserMarker.least, Limits::kUserMarker.most);
}

void UserMarkerSettings::show(Marker marker)
{
    const WaveformScale& scale = scaleOf(marker);
    const bool isPercent = scale.unitText() == QLatin1String("%");
    const int decimals = isPercent ? 1 : 0;
    const double step = isPercent ? Limits::kUserMarker.step : 1.0;
    const double least = scale.value(Limits::kUserMarker.least);
    const double most = scale.value(Limits::kUserMarker.most);
    setting(marker)->setRange({isPercent ? least : std::ceil(least), isPercent ? most : std::floor(most),
                               step, decimals, scale.unitText()});
    const ElementState& element = m_elements[static_cast<std::size_t>(marker)];
    bool isNumber = false;
    const double percent = element.text().toDouble(&isNumber);
    const QStringList values =
        isNumber ? QStringList{QString::number(scale.value(percent), 'f', decimals)} : QStringList{};
    setting(marker)->fromElement(values, element.reasons, element.active);
}

WaveformMarkers::UserMarker UserMarkerSettings::markerOf(Marker marker, QRgb colour) const
{
    const Setting* const enable = isCbCr(marker) ? m_cbCrEnable : m_lumaRgbEnable;
    const ElementState& element = m_elements[static_cast<std::size_t>(marker)];
    bool isNumber = false;
    const double percent = element.text().toDouble(&isNumber);
    return {percent, QColor(colour),
            isNumber && std::isfinite(percent) && element.isUsable() && enable->isUsable() && enable->isOn()};
}

WaveformMarkers::UserMarkers UserMarkerSettings::markers() const
{
    using namespace WaveformColours;
    return {{markerOf(LumaRgb1, kUserMarker1), markerOf(LumaRgb2, kUserMarker2)},
            {markerOf(CbCr1, kUserMarker1), markerOf(CbCr2, kUserMarker2)}};
}
