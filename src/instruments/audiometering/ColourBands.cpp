#include "instruments/audiometering/ColourBands.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

QColor blended(const QColor& above, const QColor& below, double share)
{
    const auto mix = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mix(above.red(), below.red()), mix(above.green(), below.green()),
            mix(above.blue(), below.blue())};
}

} // namespace

int ColourBands::rowOfProportion(double proportion, int height)
{
    return static_cast<int>(std::lround((1.0 - std::clamp(proportion, 0.0, 1.0)) * height));
}

void ColourBands::build(const Sections& sections, const std::vector<double>& transitions, int height)
{
    m_stripes.clear();
    int top = 0;
    for (std::size_t i = sections.size(); i-- > 1;) {
        const double share = i <= transitions.size() ? std::clamp(transitions[i - 1], 0.0, 1.0) : 0.0;
        const int boundary = std::max(top, rowOfProportion(sections[i].first, height));
        const int half = static_cast<int>(std::lround(share * height / 2));
        const int blendTop = std::max(top, boundary - half);
        const int blendBottom = std::min(height, boundary + half);
        m_stripes.push_back({top, blendTop, sections[i].second});
        addTransition(blendTop, blendBottom, sections[i].second, sections[i - 1].second);
        top = blendBottom;
    }
    if (!sections.empty())
        m_stripes.push_back({top, height, sections.front().second});
}

void ColourBands::addTransition(int from, int to, const QColor& above, const QColor& below)
{
    for (int row = from; row < to; ++row)
        m_stripes.push_back({row, row + 1, blended(above, below, (row - from + 0.5) / (to - from))});
}

void ColourBands::paint(QPainter& painter, const QRect& area) const
{
    for (const Stripe& stripe : m_stripes) {
        const int top = std::max(stripe.top, area.top());
        const int bottom = std::min(stripe.bottom, area.bottom() + 1);
        if (top < bottom)
            painter.fillRect(area.left(), top, area.width(), bottom - top, stripe.colour);
    }
}
