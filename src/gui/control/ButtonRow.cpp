#include "gui/control/ButtonRow.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr int kEdge = 12;
constexpr int kGap = 8;
constexpr int kIconSize = 24;
constexpr int kHeight = 56;

} // namespace

ButtonRow::ButtonRow(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kEdge, kGap, kEdge, kGap);
    row->setSpacing(kGap);
    setFocusPolicy(Qt::StrongFocus);
}

QPushButton* ButtonRow::add(const QString& icon, const QString& text)
{
    auto* const button = new QPushButton(m_style.icon(icon), text, this);
    button->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    button->setFixedHeight(kHeight);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout()->addWidget(button);
    if (!focusProxy())
        setFocusProxy(button);
    return button;
}
