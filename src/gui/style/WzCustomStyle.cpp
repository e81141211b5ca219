#include "gui/style/WzCustomStyle.h"

#include "gui/style/Icons.h"

#include "presets/WzClientPreset.h"

#include <QApplication>
#include <QStyleFactory>

namespace {

constexpr QLatin1String kThemeKey("theme", 5);
constexpr QLatin1String kLightTheme("light", 5);
constexpr QLatin1String kDarkTheme("dark", 4);
constexpr QLatin1String kColourBlindKey("colourBlindPalette", 18);

} // namespace

WzCustomStyle::WzCustomStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

QIcon WzCustomStyle::icon(const QString& name) const
{
    constexpr int kSize = 24;
    return Icons::icon(Icons::path(name), kSize, colour(ColourRole::Text), colour(ColourRole::DisabledText));
}

void WzCustomStyle::setTheme(WzPalette::Theme theme)
{
    if (theme == m_theme)
        return;
    m_theme = theme;
    applyTheme();
}

void WzCustomStyle::setColourBlind(bool colourBlind)
{
    if (colourBlind == m_colourBlind)
        return;
    m_colourBlind = colourBlind;
    applyTheme();
}

void WzCustomStyle::setSubWindowSnapSteps(const QSize& steps)
{
    if (steps == m_snapSteps)
        return;
    m_snapSteps = steps;
    emit subWindowSettingsaUpdated();
}

void WzCustomStyle::polish(QPalette& palette)
{
    palette = m_palette.widgetPalette();
}

void WzCustomStyle::applyTheme()
{
    m_palette = WzPalette(m_theme, m_colourBlind);
    QApplication::setPalette(m_palette.widgetPalette());
    emit subWindowSettingsaUpdated();
}

void WzCustomStyle::onPopulateClientPreset(WzClientPreset& preset) const
{
    WzCustomStylePreset section;
    section.set(kThemeKey, QString(m_theme == WzPalette::Theme::Light ? kLightTheme : kDarkTheme));
    section.set(kColourBlindKey, m_colourBlind);
    preset.setWzCustomStylePreset(section);
}

void WzCustomStyle::onLoadClientPreset(WzClientPreset& preset)
{
    if (!preset.containsWzCustomStylePreset())
        return;
    const WzCustomStylePreset section = preset.getWzCustomStylePreset();
    const QString theme = section.get(kThemeKey).toString();
    if (theme == kLightTheme || theme == kDarkTheme)
        setTheme(theme == kLightTheme ? WzPalette::Theme::Light : WzPalette::Theme::Dark);
    setColourBlind(section.get(kColourBlindKey).toBool(m_colourBlind));
}
