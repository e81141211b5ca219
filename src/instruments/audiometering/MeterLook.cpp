#include "instruments/audiometering/MeterLook.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzPalette.h"
#include "instruments/audiometering/MeteringLayout.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

/// Of the colour of data, behind its name.
constexpr int kDataFillAlpha = 38;

QString clipWord()
{
    return QCoreApplication::translate("AudioMetering", "CLIP");
}

int widthOfClipWord()
{
    return QFontMetrics(Fonts::ofPixels(Fonts::kLabelPixels, true)).horizontalAdvance(clipWord()) + 4;
}

QPixmap renderClipLamp(const QSize& size, bool withWord, const QColor& colour, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRect(QPoint(), size), 2, 2);
    painter.setPen(QPen(Qt::black, 2));
    if (withWord) {
        painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels, true));
        painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, clipWord());
    } else if (size.width() > 8) {
        const QPointF middle(size.width() / 2.0, size.height() / 2.0);
        painter.drawLine(middle - QPointF(3, 3), middle + QPointF(3, 3));
        painter.drawLine(middle - QPointF(3, -3), middle + QPointF(3, -3));
    }
    return pixmap;
}

QColor mixedWithBlack(const QColor& colour, int alpha)
{
    return {colour.red() * alpha / 255, colour.green() * alpha / 255, colour.blue() * alpha / 255};
}

ColourBands::Sections sections(const MeterScale& scale, const WzPalette& style, ColourRole green,
                               ColourRole amber, ColourRole red)
{
    return {{scale.lower, style.colour(green)},
            {scale.amberFrom, style.colour(amber)},
            {scale.redFrom, style.colour(red)}};
}

} // namespace

MeterLook::MeterLook(const WzPalette& style, const PairLayout& layout, const MeterScale& meterScale,
                     qreal devicePixelRatio)
    : lit(sections(meterScale, style, ColourRole::Ok, ColourRole::Warning, ColourRole::Error))
    , unlit(sections(meterScale, style, ColourRole::MeterGreenUnlit, ColourRole::MeterAmberUnlit,
                     ColourRole::MeterRedUnlit))
    , font(Fonts::ofPixels(layout.fontPixels))
    , boldFont(Fonts::ofPixels(layout.fontPixels, true))
    , clipWordWidth(widthOfClipWord())
    , background(style.colour(ColourRole::InstrumentBackground))
    , text(style.colour(ColourRole::InstrumentText))
    , secondaryText(style.colour(ColourRole::InstrumentSecondaryText))
    , disabledText(style.colour(ColourRole::InstrumentDisabledText))
    , line(style.colour(ColourRole::InstrumentLine))
    , ok(style.colour(ColourRole::Ok))
    , error(style.colour(ColourRole::Error))
    , data(style.colour(ColourRole::Information))
    , dataFill(mixedWithBlack(data, kDataFillAlpha))
    , staleText(style.colour(ColourRole::StaleText))
    , staleFill(style.colour(ColourRole::StaleFill))
    , accent(style.colour(ColourRole::Accent))
{
    scale = {style.colour(ColourRole::GraticuleMinor), style.colour(ColourRole::GraticuleMajor),
             style.colour(ColourRole::GraticuleLabel), font, boldFont};
    figures = MeterFigures(font, text, devicePixelRatio);
    clippedFigures = MeterFigures(font, error, devicePixelRatio);
    staleFigures = MeterFigures(font, staleText, devicePixelRatio);
    const QSize lamp = layout.litClipLamp(PairLayout::Left, clipWordWidth).size();
    clipLamp = renderClipLamp(lamp, lamp.width() >= clipWordWidth, error, devicePixelRatio);
}
