#include "instruments/waveform/WaveformHorizontalScaleWidget.h"

#include "gui/style/Fonts.h"
#include "instruments/waveform/WaveformColours.h"
#include "instruments/waveform/WaveformComponent.h"
#include "instruments/waveform/WaveformHorizontalScale.h"
#include "instruments/waveform/WaveformScalePainter.h"

#include <QPainter>

using WaveformGeometry = WaveformDisplay::WaveformGeometry;
using Velmora::WaveformTypes::Presentation;

namespace {

constexpr int kLabelGap = 10;
constexpr int kLetterGap = 12;

/// Above the lower edge of the widget.
int baselineAbove(WaveformGeometry::Detail detail)
{
    return detail == WaveformGeometry::Detail::Full ? 33 : 6;
}

/// What a cell shows, in its middle; the place that it takes.
QRect paintComponents(QPainter& painter, const WzPalette& palette, const WaveformDisplay& display,
                      const WaveformGeometry& geometry, int cell, int baseline)
{
    const bool isFull = geometry.detail() == WaveformGeometry::Detail::Full;
    painter.setFont(Fonts::ofPixels(isFull ? Fonts::kReadOutPixels : Fonts::kTitlePixels, true));
    const QFontMetrics metrics = painter.fontMetrics();
    const auto components = display.componentsOf(cell);
    int width = -kLetterGap;
    for (const auto component : components)
        width += metrics.horizontalAdvance(WaveformComponent::letterOf(component)) + kLetterGap;
    const QRect place = geometry.cells()[static_cast<std::size_t>(cell)];
    int x = place.left() + (place.width() - width) / 2;
    const QRect taken(x, baseline - metrics.ascent(), width, metrics.height());
    for (const auto component : components) {
        const QString letter = WaveformComponent::letterOf(component);
        painter.setPen(palette.colour(WaveformColours::roleOf(component)));
        painter.drawText(x, baseline + (isFull ? 2 : 0), letter);
        x += metrics.horizontalAdvance(letter) + kLetterGap;
    }
    return taken;
}

/// The labels from left to right, without those that would touch the one before or @p taken.
void paintMarks(QPainter& painter, const std::vector<WaveformHorizontalScale::Mark>& marks, const QRect& cell,
                const QRect& room, int baseline, const QRect& taken)
{
    const QFontMetrics metrics = painter.fontMetrics();
    int free = room.left();
    for (const auto& mark : marks) {
        const int width = metrics.horizontalAdvance(mark.text);
        const int left = std::clamp(cell.left() + mark.column - width / 2, room.left(),
                                    std::max(room.left(), room.right() + 1 - width));
        const QRect label(left, baseline - metrics.ascent(), width, metrics.height());
        if (left < free || label.adjusted(-kLabelGap, 0, kLabelGap, 0).intersects(taken))
            continue;
        painter.drawText(left, baseline, mark.text);
        free = left + width + kLabelGap;
    }
}

} // namespace

void WaveformHorizontalScaleWidget::paintLabels(QPainter& painter, const WzPalette& palette,
                                                const WaveformDisplay& display,
                                                const WaveformGeometry& geometry) const
{
    const int baseline = height() - baselineAbove(geometry.detail());
    const auto marks = WaveformHorizontalScale::marks(display, geometry);
    // Cells one above the other share what is below the lowest, and have their letters inside.
    const bool isStack = display.presentation == Presentation::Stacked;
    const int cells = isStack ? 1 : static_cast<int>(geometry.cells().size());
    for (int i = 0; i < cells; ++i) {
        const QRect cell = geometry.cells()[static_cast<std::size_t>(i)];
        const QRect taken =
            isStack ? QRect() : paintComponents(painter, palette, display, geometry, i, baseline);
        painter.setFont(Fonts::ofPixels(WaveformScalePainter::fontPixels(geometry.detail())));
        painter.setPen(palette.colour(ColourRole::GraticuleLabel));
        // Cells of the full width reach below the frame of the window.
        const int inset = display.isFullWidth ? kLabelGap : 0;
        paintMarks(painter, marks, cell, cell.adjusted(inset, 0, -inset, 0), baseline, taken);
    }
}
