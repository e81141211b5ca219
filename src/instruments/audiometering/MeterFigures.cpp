#include "instruments/audiometering/MeterFigures.h"

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

int MeterFigures::numberOf(float reading, int decimals)
{
    if (std::isnan(reading))
        reading = kLowest;
    const float unit = decimals == 2 ? 100.0F : 10.0F;
    return static_cast<int>(std::lround(std::clamp(reading, kLowest, kHighest) * unit));
}

void MeterFigures::draw(QPainter& painter, const QPoint& end, std::optional<int> number, int decimals) const
{
    // From the right, so that the point stays in its place.
    std::array<int, kMostGlyphs> glyphs{};
    std::size_t count = 0;
    if (number) {
        int rest = std::abs(*number);
        for (int place = 0; place <= decimals || rest > 0; ++place, rest /= 10) {
            if (place == decimals)
                glyphs[count++] = Point;
            glyphs[count++] = rest % 10;
        }
        if (*number < 0)
            glyphs[count++] = Minus;
    } else {
        glyphs = {Dash, Point, Dash, Dash};
        count = 4;
    }
    int right = end.x();
    const qreal ratio = m_glyphs.devicePixelRatioF();
    for (std::size_t i = 0; i < count; ++i) {
        right -= m_advance[static_cast<std::size_t>(glyphs[i])];
        const QRectF source(glyphs[i] * m_cell.width() * ratio, 0, m_cell.width() * ratio,
                            m_cell.height() * ratio);
        painter.drawPixmap(QRectF(QPointF(right, end.y() - m_ascent), m_cell), m_glyphs, source);
    }
}
