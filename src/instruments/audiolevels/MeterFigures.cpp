#include "instruments/audiolevels/MeterFigures.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr float kLowest = -99.9F;
constexpr float kHighest = 99.9F;
/// The minus sign has the width of a figure; the hyphen stands where a value is missing.
constexpr char16_t kCharacters[] = u"0123456789.\u2212-";

} // namespace

MeterFigures::MeterFigures(const QFont& font, const QColor& colour, qreal devicePixelRatio)
{
    const QFontMetrics metrics(font);
    m_cell = QSize(2 * metrics.horizontalAdvance(QLatin1Char('0')), metrics.height());
    m_ascent = metrics.ascent();
    m_glyphs = QPixmap(QSize(kGlyphs * m_cell.width(), m_cell.height()) * devicePixelRatio);
    m_glyphs.setDevicePixelRatio(devicePixelRatio);
    m_glyphs.fill(Qt::transparent);
    QPainter painter(&m_glyphs);
    painter.setFont(font);
    painter.setPen(colour);
    for (int i = 0; i < kGlyphs; ++i) {
        const QString character(QChar(kCharacters[i]));
        const int width = metrics.horizontalAdvance(character);
        // A missing figure takes the room of a figure.
        m_advance[static_cast<std::size_t>(i)] = i == Dash ? m_advance[0] : width;
        painter.drawText(i * m_cell.width() + (m_advance[static_cast<std::size_t>(i)] - width) / 2, m_ascent,
                         character);
    }
}

int MeterFigures::tenthsOf(float levelDb)
{
    if (std::isnan(levelDb))
        levelDb = kLowest;
    return static_cast<int>(std::lround(std::clamp(levelDb, kLowest, kHighest) * 10.0F));
}

void MeterFigures::draw(QPainter& painter, int right, int baseline, std::optional<int> tenths) const
{
    // From the right, so that the point stays in its place.
    std::array<int, kMostGlyphs> glyphs{};
    std::size_t count = 0;
    if (tenths) {
        int rest = std::abs(*tenths);
        glyphs[count++] = rest % 10;
        glyphs[count++] = Point;
        do {
            rest /= 10;
            glyphs[count++] = rest % 10;
        } while (rest >= 10);
        if (*tenths < 0)
            glyphs[count++] = Minus;
    } else {
        glyphs = {Dash, Point, Dash, Dash};
        count = 4;
    }
    const qreal ratio = m_glyphs.devicePixelRatioF();
    for (std::size_t i = 0; i < count; ++i) {
        right -= m_advance[static_cast<std::size_t>(glyphs[i])];
        const QRectF source(glyphs[i] * m_cell.width() * ratio, 0, m_cell.width() * ratio,
                            m_cell.height() * ratio);
        painter.drawPixmap(QRectF(QPointF(right, baseline - m_ascent), m_cell), m_glyphs, source);
    }
}
