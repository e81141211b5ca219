#include "instruments/audiolevels/MeterBackdrop.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

using Detail = MeterLayout::Detail;

constexpr int kLabelGap = 9; ///< between a label and its ticks
constexpr int kMajorTick = 8;
constexpr int kMinorTick = 4;
constexpr int kTickGap = 2; ///< between ticks and graticule
constexpr int kNotPresentMargin = 2;

QString text(const char* words)
{
    return QCoreApplication::translate("AudioLevels", words);
}

class Backdrop {
public:
    Backdrop(QPainter& painter, const MeterLayout& layout, const WzCustomStyle& style)
        : m_painter(painter)
        , m_layout(layout)
        , m_style(style)
        , m_isNarrow(layout.detail == Detail::Narrow)
    {
    }

    void paint(const MeterPairs& present) const
    {
        paintGraticule();
        paintTicks();
        paintLabels();
        if (!m_isNarrow)
            paintRowNames();
        for (int pair = 0; pair < MeterLayout::kPairs; ++pair)
            paintPair(pair, present.test(static_cast<std::size_t>(pair)));
    }

private:
    QColor colour(ColourRole role) const { return m_style.colour(role); }
    QFont font(bool bold = false) const { return Fonts::ofPixels(m_layout.scale.fontPixels, bold); }

    static bool isThreshold(int levelDb)
    {
        return levelDb == MeterScale::kAmberFromDb || levelDb == MeterScale::kRedFromDb;
    }

    void paintGraticule() const
    {
        for (int level = 0; level > MeterScale::kLowestDb; level -= m_layout.scale.labelStepDb()) {
            const bool isMajor = isThreshold(level) && !m_isNarrow;
            m_painter.fillRect(m_layout.left, m_layout.scale.rowOfDb(level), m_layout.right() - m_layout.left,
                               1, colour(isMajor ? ColourRole::GraticuleMajor : ColourRole::GraticuleMinor));
        }
    }

    void paintTicks() const
    {
        const QColor tick = colour(ColourRole::GraticuleMajor);
        for (int level = 0; level > MeterScale::kLowestDb; level -= m_layout.scale.tickStepDb()) {
            const int row = m_layout.scale.rowOfDb(level);
            const bool isMajor = level % m_layout.scale.labelStepDb() == 0 && !m_isNarrow;
            const int length = isMajor ? kMajorTick : kMinorTick;
            m_painter.fillRect(m_layout.left - kTickGap - length, row, length, 1, tick);
            if (!m_isNarrow)
                m_painter.fillRect(m_layout.right() + kTickGap, row, length, 1, tick);
        }
    }

    void paintLabels() const
    {
        m_painter.setPen(colour(ColourRole::GraticuleLabel));
        const int tick = kTickGap + (m_isNarrow ? kMinorTick : kMajorTick);
        for (int level = 0; level > MeterScale::kLowestDb; level -= m_layout.scale.labelStepDb()) {
            m_painter.setFont(font(level == 0 || isThreshold(level)));
            const QString label = level == 0 ? QStringLiteral("0") : QChar(0x2212) + QString::number(-level);
            const int half = m_layout.scale.fontPixels;
            const QRect row(0, m_layout.scale.rowOfDb(level) - half, m_layout.left - tick - 3, 2 * half);
            m_painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, label);
            if (m_isNarrow)
                continue;
            const QRect mirrored(m_layout.right() + tick, row.top(), m_layout.left - tick - kLabelGap - 3,
                                 row.height());
            m_painter.drawText(mirrored, Qt::AlignRight | Qt::AlignVCenter, label);
        }
    }

    void paintRowNames() const
    {
        m_painter.setFont(font());
        m_painter.setPen(colour(ColourRole::InstrumentSecondaryText));
        const auto name = [this](int middle, const QString& words) {
            const int half = m_layout.scale.fontPixels;
            m_painter.drawText(QRect(0, middle - half, m_layout.left - kLabelGap - 2, 2 * half),
                               Qt::AlignRight | Qt::AlignVCenter, words);
        };
        name(m_layout.levelBaseline - m_layout.scale.fontPixels * 2 / 5, text("Level"));
        name(m_layout.phaseTop + m_layout.phaseHeight / 2, text("Phase"));
        name(m_layout.lampTop + m_layout.lampHeight / 2, text("Clip"));
    }

    void paintPair(int pair, bool present) const
    {
        const QRect cell = m_layout.cell(pair);
        if (!m_isNarrow && pair > 0)
            m_painter.fillRect(cell.left(), 4, 1, m_layout.lampTop + m_layout.lampHeight - 2,
                               colour(ColourRole::InstrumentLine));
        const QString pattern = m_isNarrow ? QStringLiteral("%1\u00B7%2") : QStringLiteral("%1 \u00B7 %2");
        m_painter.setFont(font());
        m_painter.setPen(colour(present ? ColourRole::InstrumentText : ColourRole::InstrumentDisabledText));
        m_painter.drawText(QRect(cell.left(), m_layout.titleBaseline - 2 * m_layout.scale.fontPixels,
                                 cell.width(),
                                 2 * m_layout.scale.fontPixels + m_painter.fontMetrics().descent()),
                           Qt::AlignHCenter | Qt::AlignBottom,
                           pattern.arg(QString::number(2 * pair + 1), QString::number(2 * pair + 2)));
        if (present)
            paintUnlit(pair);
        else
            paintNotPresent(pair);
    }

    void paintUnlit(int pair) const
    {
        const MeterScale& scale = m_layout.scale;
        const int red = scale.rowOfDb(MeterScale::kRedFromDb);
        const int amber = scale.rowOfDb(MeterScale::kAmberFromDb);
        const QRect bars = m_layout.bar(2 * pair) | m_layout.bar(2 * pair + 1);
        // The lines of the scale end beside the bars.
        m_painter.fillRect(bars.adjusted(-4, -1, 4, 1), colour(ColourRole::InstrumentBackground));
        for (const int channel : {2 * pair, 2 * pair + 1}) {
            const QRect bar = m_layout.bar(channel);
            const auto zone = [&](int from, int to, ColourRole role) {
                m_painter.fillRect(bar.left(), from, bar.width(), to - from, colour(role));
            };
            zone(scale.top, red, ColourRole::MeterRedUnlit);
            zone(red, amber, ColourRole::MeterAmberUnlit);
            zone(amber, scale.bottom(), ColourRole::MeterGreenUnlit);
            m_painter.setPen(colour(ColourRole::InstrumentLine));
            m_painter.drawRect(m_layout.clipLamp(channel).adjusted(0, 0, -1, -1));
        }
        m_painter.fillRect(m_layout.phaseTrack(pair), colour(ColourRole::InstrumentLine));
    }

    void paintNotPresent(int pair) const
    {
        const QRect bars = m_layout.bar(2 * pair) | m_layout.bar(2 * pair + 1);
        m_painter.fillRect(bars.adjusted(-4, -1, 4, 1), colour(ColourRole::InstrumentBackground));
        QPen pen(colour(ColourRole::InstrumentLine));
        pen.setDashPattern({4, 4});
        m_painter.setPen(pen);
        m_painter.drawRect(bars.adjusted(0, 0, -1, -1));
        m_painter.save();
        m_painter.setPen(colour(ColourRole::InstrumentSecondaryText));
        m_painter.translate(bars.center());
        m_painter.rotate(-90);
        const int half = bars.height() / 2 - kNotPresentMargin;
        m_painter.drawText(QRect(-half, -m_layout.barWidth, 2 * half, 2 * m_layout.barWidth), Qt::AlignCenter,
                           text("Not present"));
        m_painter.restore();
    }

    QPainter& m_painter;
    const MeterLayout& m_layout;
    const WzCustomStyle& m_style;
    const bool m_isNarrow;
};

} // namespace

QPixmap renderMeterBackdrop(const MeterLayout& layout, const QSize& size, const MeterPairs& present,
                            const WzCustomStyle& style, qreal devicePixelRatio)
{
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(style.colour(ColourRole::InstrumentBackground));
    QPainter painter(&pixmap);
    Backdrop(painter, layout, style).paint(present);
    return pixmap;
}
