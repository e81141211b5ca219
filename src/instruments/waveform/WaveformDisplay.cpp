#include "instruments/waveform/WaveformDisplay.h"

#include "instruments/waveform/WaveformComponent.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Velmora::WaveformTypes;

WaveformGeometry WaveformDisplay::geometry() const
{
    return {content, presentation, static_cast<int>(channels.size()), isFullWidth, view};
}

double WaveformDisplay::pixelsPerPercent(const WaveformGeometry& geometry) const
{
    return geometry.pixelsPerPercent() * view.verticalMagnification;
}

WaveformScale WaveformDisplay::scale(const WaveformGeometry& geometry, bool colourDifference) const
{
    return {verticalScale,    codeScale(colourDifference), signal.bits,
            colourDifference, pixelsPerPercent(geometry),  geometry.detail()};
}

CodeScale WaveformDisplay::codeScale(bool colourDifference) const
{
    return signal.codeScale(fullRangeMode, colourDifference);
}

bool WaveformDisplay::hasColourDifference() const
{
    return std::any_of(channels.begin(), channels.end(),
                       [](const Channel& channel) { return isColourDifference(channel.component); });
}

bool WaveformDisplay::isColourDifferenceOnly() const
{
    return !channels.empty() && std::all_of(channels.begin(), channels.end(), [](const Channel& channel) {
        return isColourDifference(channel.component);
    });
}

std::vector<Channel> WaveformDisplay::channelsOfCell(int cell) const
{
    if (presentation == Presentation::Overlay)
        return channels;
    const auto index = static_cast<std::size_t>(cell);
    return index < channels.size() ? std::vector{channels[index]} : std::vector<Channel>();
}

std::vector<Component> WaveformDisplay::componentsOf(int cell) const
{
    std::vector<Component> components;
    for (const Channel& channel : channelsOfCell(cell))
        components.push_back(channel.component);
    return components;
}

QStringList WaveformDisplay::notesOf(int cell) const
{
    QStringList notes;
    for (const Channel& channel : channelsOfCell(cell)) {
        const QString letter = WaveformComponent::letterOf(channel.component);
        const double gain = gains[channel.number];
        if (signal.isPresent && channel.component == Component::Alpha && !signal.hasAlpha)
            notes << QCoreApplication::translate("WaveformDisplay", "No %1 in the signal").arg(letter);
        else if (gain != 1.0)
            notes << letter + QStringLiteral(" \u00D7") + QString::number(gain, 'f', 2);
    }
    return notes;
}

bool WaveformDisplay::isColourDifferenceCell(int cell) const
{
    const auto components = componentsOf(cell);
    return !components.empty() && std::all_of(components.begin(), components.end(), &isColourDifference);
}

WaveformDisplay::Scale WaveformDisplay::leftScale(int cell) const
{
    const bool isStack = presentation == Presentation::Stacked;
    if (isStack ? isColourDifferenceCell(cell) : isColourDifferenceOnly())
        return Scale::ColourDifference;
    return yAxisLeftRightSwap() ? Scale::Nits : Scale::Levels;
}

WaveformDisplay::Scale WaveformDisplay::rightScale(int cell) const
{
    const bool isStack = presentation == Presentation::Stacked;
    if (isStack ? isColourDifferenceCell(cell) : hasColourDifference())
        return Scale::ColourDifference;
    return showRightHandNitsScale() ? Scale::Nits : Scale::Levels;
}

WaveformDisplay::Scale WaveformDisplay::innerScale() const
{
    if (presentation == Presentation::Stacked || !hasColourDifference() || !hasNitsScale())
        return Scale::None;
    return yAxisLeftRightSwap() ? Scale::Levels : Scale::Nits;
}

std::vector<WaveformScale::Label> WaveformDisplay::labelsOf(Scale kind,
                                                            const WaveformGeometry& geometry) const
{
    switch (kind) {
    case Scale::Levels:
        return scale(geometry, false).labels();
    case Scale::ColourDifference:
        return scale(geometry, true).labels();
    case Scale::Nits:
        return WaveformScale::nitsLabels(nitsScale(), pixelsPerPercent(geometry), geometry.detail());
    case Scale::None:
        break;
    }
    return {};
}

bool WaveformDisplay::hasNitsScale() const
{
    return signal.isPresent && nitsScale().isHdr() && !channels.empty() && !isColourDifferenceOnly();
}

bool WaveformDisplay::showRightHandNitsScale() const
{
    return hasNitsScale() && nitsSide == NitsScaleSide::Right;
}

bool WaveformDisplay::yAxisLeftRightSwap() const
{
    return hasNitsScale() && nitsSide == NitsScaleSide::Left;
}
