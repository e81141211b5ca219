#pragma once

#include "instruments/audiometering/ColourBands.h"
#include "instruments/audiometering/FixedScale.h"
#include "instruments/audiometering/MeterFigures.h"

#include <QPixmap>

class WzPalette;
struct PairLayout;

/// What all pairs of a window are painted with, made ready once for its size, scale and style.
struct MeterLook {
    MeterLook(const WzPalette& style, const PairLayout& layout, const MeterScale& meterScale,
              qreal devicePixelRatio);

    FixedScale::Look scale;
    ColourBands::Sections lit; ///< by reading
    ColourBands::Sections unlit;
    QFont font;
    QFont boldFont;
    MeterFigures figures;
    MeterFigures clippedFigures;
    MeterFigures staleFigures;
    int clipWordWidth; ///< of the lit lamp
    QPixmap clipLamp;

    QColor background;
    QColor text;
    QColor secondaryText;
    QColor disabledText;
    QColor line;
    QColor ok;
    QColor error;
    QColor data; ///< of a pair that carries data
    QColor dataFill;
    QColor staleText;
    QColor staleFill;
    QColor accent;
};
