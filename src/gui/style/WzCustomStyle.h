#pragma once

#include "gui/style/WzPalette.h"

#include <QIcon>
#include <QProxyStyle>
#include <QSize>

class WzClientPreset;

/// The look that all windows share: theme and colours, measures, and the grid that sub-windows snap to.
class WzCustomStyle : public QProxyStyle {
    Q_OBJECT
public:
    WzCustomStyle();

    const WzPalette& wzPalette() const { return m_palette; }
    QColor colour(ColourRole role) const { return m_palette.colour(role); }
    /// The icon of that name in the colours of the theme, for controls.
    QIcon icon(const QString& name) const;
    /// For what stands on the black of an instrument, which stays black in every theme.
    WzPalette instrumentPalette() const { return WzPalette(WzPalette::Theme::Dark, m_colourBlind); }

    WzPalette::Theme theme() const { return m_theme; }
    bool isColourBlind() const { return m_colourBlind; }
    void setTheme(WzPalette::Theme theme);
    void setColourBlind(bool colourBlind);

    /// The point size of the application's font.
    virtual int applicationFontPointSize() const { return kBodyPoints; }
    /// The point size of a label on a function button.
    virtual int functionButtonPointSize() const { return kTitlePoints; }

    /// What positions and sizes of sub-windows are multiples of, in x and y; -1 where they are free.
    QSize subWindowSnapSteps() const { return m_snapSteps; }
    void setSubWindowSnapSteps(const QSize& steps);

    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

public slots:
    void onPopulateClientPreset(WzClientPreset& preset) const;
    void onLoadClientPreset(WzClientPreset& preset);

signals:
    /// Something about the look or the grid of sub-windows has changed. Spelt so deliberately.
    void subWindowSettingsaUpdated();

private:
    static constexpr int kBodyPoints = 15;
    static constexpr int kTitlePoints = 13;

    void applyTheme();

    WzPalette::Theme m_theme = WzPalette::Theme::Dark;
    bool m_colourBlind = false;
    WzPalette m_palette;
    QSize m_snapSteps{kSnapStep, kSnapStep};

    /// A thirtieth of the smallest window in x, and a divisor of all listed sizes.
    static constexpr int kSnapStep = 10;
};
