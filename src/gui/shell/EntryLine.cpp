#include "gui/shell/EntryLine.h"

#include "gui/control/FunctionController.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

namespace {

constexpr int kMargin = 12;

} // namespace

EntryLine::EntryLine(const WzCustomStyle& style, const QString& text, QWidget* parent)
    : QLineEdit(text, parent)
    , m_style(style)
{
    setFont(Fonts::ofPixels(Fonts::kReadOutPixels));
    setTextMargins(kMargin, 0, kMargin, 0);
    setMinimumHeight(kHeight);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, &EntryLine::applyTheme);
    applyTheme();
}

EntryLine::~EntryLine()
{
    FunctionController::getInstance().clearTriggersForObject(this);
}

void EntryLine::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (m_characters.isEmpty())
        return;
    FunctionController::TriggerList keys;
    FunctionController::addNumericTriggersToVector(keys, this, m_characters);
    FunctionController::addBackspaceTriggerToVector(keys, this);
    FunctionController::addDeleteTriggerToVector(keys, this);
    FunctionController::getInstance().registerTriggers(keys, this);
}

void EntryLine::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (!m_characters.isEmpty())
        FunctionController::getInstance().clearTriggersForObject(this);
}

QColor EntryLine::fieldColour(const WzCustomStyle& style)
{
    const bool isDark = style.theme() == WzPalette::Theme::Dark;
    return style.colour(isDark ? ColourRole::InstrumentBackground : ColourRole::Selected);
}

void EntryLine::applyTheme()
{
    QPalette colours = palette();
    colours.setColor(QPalette::Base, fieldColour(m_style));
    colours.setColor(QPalette::Text, m_style.colour(ColourRole::Text));
    colours.setColor(QPalette::Highlight, m_style.colour(ColourRole::Pressed));
    setPalette(colours);
}
