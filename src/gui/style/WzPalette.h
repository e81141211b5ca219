#pragma once

#include <QColor>
#include <QPalette>

#include <array>

/// What a colour means. Greys are neutral, so that the surround does not bias the eye; the others each carry
/// one meaning and never stand without a shape or a word.
enum class ColourRole {
    InstrumentBackground,
    InstrumentText, ///< text on the instrument background, which no theme changes
    InstrumentSecondaryText,
    InstrumentDisabledText,
    InstrumentLine, ///< frames and tracks on the instrument background
    Background, ///< of windows, bars and panels
    PanelBackdrop, ///< behind the tiles and cards of a panel that covers the screen
    AlternateRow,
    Raised, ///< buttons and other raised controls
    Pressed,
    Selected, ///< the fill of what is selected
    Border,
    Frame, ///< of a window
    DisabledFill,
    Text,
    SecondaryText,
    DisabledText,
    StaleText,
    StaleFill, ///< of a bar whose level is overdue
    Accent, ///< selection, focus, the active window
    Ok,
    Warning,
    Error,
    ErrorFill, ///< behind what asks before it destroys
    Information,
    ToolTip,
    ToolTipBorder,
    GraticuleMajor,
    GraticuleMinor,
    GraticuleLabel,
    ComponentY,
    ComponentR,
    ComponentG,
    ComponentB,
    ComponentCb,
    ComponentCr,
    ComponentAlpha,
    MeterGreenUnlit,
    MeterAmberUnlit,
    MeterRedUnlit,
    Count,
};

/// The colours of the screen by meaning. A value.
class WzPalette {
public:
    enum class Theme { Dark, Light };

    /// @p colourBlind takes the colours of meaning from Okabe and Ito's set, which all kinds of colour vision
    /// tell apart.
    explicit WzPalette(Theme theme = Theme::Dark, bool colourBlind = false);

    QColor colour(ColourRole role) const { return m_colours[static_cast<std::size_t>(role)]; }
    /// The same for Qt's own widgets.
    QPalette widgetPalette() const;

private:
    void set(ColourRole role, QRgb rgb) { m_colours[static_cast<std::size_t>(role)] = QColor(rgb); }
    void setCommonColours();
    void setDarkSurfaces();
    void setLightSurfaces();
    void setColourBlindMeanings();

    std::array<QColor, static_cast<std::size_t>(ColourRole::Count)> m_colours;
};
