#include "gui/style/WzPalette.h"

WzPalette::WzPalette(Theme theme, bool colourBlind)
{
    setCommonColours();
    if (theme == Theme::Light)
        setLightSurfaces();
    else
        setDarkSurfaces();
    if (colourBlind)
        setColourBlindMeanings();
}

void WzPalette::setCommonColours()
{
    set(ColourRole::InstrumentBackground, 0x000000);
    set(ColourRole::InstrumentText, 0xE6E6E6);
    set(ColourRole::InstrumentSecondaryText, 0xA0A0A0);
    set(ColourRole::InstrumentDisabledText, 0x6A6A6A);
    set(ColourRole::InstrumentLine, 0x3A3A3A);
    set(ColourRole::StaleFill, 0x4E4E4E);
    set(ColourRole::Accent, 0xF0A000);
    set(ColourRole::Ok, 0x2FBF4F);
    set(ColourRole::Warning, 0xF0B000);
    set(ColourRole::Error, 0xFF4B3E);
    set(ColourRole::Information, 0x4FA8FF);
    set(ColourRole::GraticuleMajor, 0x8C6A1E);
    set(ColourRole::GraticuleMinor, 0x4A3A16);
    set(ColourRole::GraticuleLabel, 0xD0A040);
    set(ColourRole::ComponentY, 0xE6E6E6);
    set(ColourRole::ComponentR, 0xFF5A50);
    set(ColourRole::ComponentG, 0x3FD060);
    set(ColourRole::ComponentB, 0x5090FF);
    set(ColourRole::ComponentCb, 0x58B0FF);
    set(ColourRole::ComponentCr, 0xFF70C0);
    set(ColourRole::ComponentAlpha, 0xB0B0B0);
    set(ColourRole::MeterGreenUnlit, 0x0C2112);
    set(ColourRole::MeterAmberUnlit, 0x2A2208);
    set(ColourRole::MeterRedUnlit, 0x2E1210);
}

void WzPalette::setDarkSurfaces()
{
    set(ColourRole::Background, 0x1B1B1B);
    set(ColourRole::PanelBackdrop, 0x0C0C0C);
    set(ColourRole::AlternateRow, 0x0E0E0E);
    set(ColourRole::Raised, 0x2E2E2E);
    set(ColourRole::Pressed, 0x454545);
    set(ColourRole::Selected, 0x3A3A3A);
    set(ColourRole::Border, 0x5A5A5A);
    set(ColourRole::Frame, 0x3A3A3A);
    set(ColourRole::DisabledFill, 0x222222);
    set(ColourRole::Text, 0xE6E6E6);
    set(ColourRole::SecondaryText, 0xA0A0A0);
    set(ColourRole::DisabledText, 0x6A6A6A);
    set(ColourRole::StaleText, 0x7A7A7A);
    set(ColourRole::ErrorFill, 0x2A1614);
    set(ColourRole::ToolTip, 0x383838);
    set(ColourRole::ToolTipBorder, 0x8A8A8A);
}

/// The instruments stay on black, as the pictures that they measure do; what surrounds them turns light.
void WzPalette::setLightSurfaces()
{
    set(ColourRole::Background, 0xE4E4E4);
    set(ColourRole::PanelBackdrop, 0xD2D2D2);
    set(ColourRole::AlternateRow, 0x0E0E0E);
    set(ColourRole::Raised, 0xF4F4F4);
    set(ColourRole::Pressed, 0xC4C4C4);
    set(ColourRole::Selected, 0xFFFFFF);
    set(ColourRole::Border, 0x9A9A9A);
    set(ColourRole::Frame, 0xB0B0B0);
    set(ColourRole::DisabledFill, 0xDCDCDC);
    set(ColourRole::Text, 0x1A1A1A);
    set(ColourRole::SecondaryText, 0x505050);
    set(ColourRole::DisabledText, 0x989898);
    set(ColourRole::StaleText, 0x7A7A7A);
    set(ColourRole::Accent, 0xB87400);
    // Dark enough to be read on what is light.
    set(ColourRole::Ok, 0x1B7F36);
    set(ColourRole::Warning, 0x9A6200);
    set(ColourRole::Error, 0xC02418);
    set(ColourRole::Information, 0x1B68B8);
    set(ColourRole::ErrorFill, 0xFFE2DE);
    set(ColourRole::ToolTip, 0xFFFFFF);
    set(ColourRole::ToolTipBorder, 0x707070);
}

void WzPalette::setColourBlindMeanings()
{
    // The same hues, darker where they stand on what is light.
    const bool isLight = colour(ColourRole::Background).lightness() > 127;
    set(ColourRole::Ok, isLight ? 0x00755A : 0x009E73);
    set(ColourRole::Warning, isLight ? 0x7A6F00 : 0xF0E442);
    set(ColourRole::Error, isLight ? 0xA84800 : 0xD55E00);
    set(ColourRole::Information, isLight ? 0x1F6F9E : 0x56B4E9);
}

QPalette WzPalette::widgetPalette() const
{
    QPalette palette;
    palette.setColor(QPalette::Window, colour(ColourRole::Background));
    palette.setColor(QPalette::WindowText, colour(ColourRole::Text));
    palette.setColor(QPalette::Base, colour(ColourRole::Background));
    palette.setColor(QPalette::AlternateBase, colour(ColourRole::DisabledFill));
    palette.setColor(QPalette::Text, colour(ColourRole::Text));
    palette.setColor(QPalette::PlaceholderText, colour(ColourRole::SecondaryText));
    palette.setColor(QPalette::Button, colour(ColourRole::Raised));
    palette.setColor(QPalette::Midlight, colour(ColourRole::Pressed));
    palette.setColor(QPalette::Mid, colour(ColourRole::Border));
    // No text is a visited link: it stands in for the accent, which this version of Qt has no role for.
    palette.setColor(QPalette::LinkVisited, colour(ColourRole::Accent));
    palette.setColor(QPalette::ButtonText, colour(ColourRole::Text));
    palette.setColor(QPalette::BrightText, colour(ColourRole::Error));
    palette.setColor(QPalette::Highlight, colour(ColourRole::Selected));
    palette.setColor(QPalette::HighlightedText, colour(ColourRole::Text));
    palette.setColor(QPalette::ToolTipBase, colour(ColourRole::ToolTip));
    palette.setColor(QPalette::ToolTipText, colour(ColourRole::Text));
    palette.setColor(QPalette::Link, colour(ColourRole::Information));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colour(ColourRole::DisabledText));
    palette.setColor(QPalette::Disabled, QPalette::Button, colour(ColourRole::DisabledFill));
    return palette;
}
