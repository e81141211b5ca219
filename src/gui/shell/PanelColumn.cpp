#include "gui/shell/PanelColumn.h"

#include "gui/control/TouchScroll.h"
#include "gui/shell/ListRow.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kHeadingHeight = 40;
constexpr int kSeparatorHeight = 17;
constexpr int kMargin = 24;

} // namespace

PanelColumn::PanelColumn(const WzCustomStyle& style, ColourRole background, QWidget* parent)
    : QScrollArea(parent)
    , m_style(style)
    , m_background(background)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a finger or the focus moves it
    setWidgetResizable(true);
    auto* const content = new QWidget;
    m_layout = new QVBoxLayout(content);
    m_layout->setContentsMargins(0, 8, 0, 8);
    m_layout->setSpacing(0);
    m_layout->addStretch(1);
    setWidget(content);
    TouchScroll::enable(*this);
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, &PanelColumn::applyTheme);
    applyTheme();
}

void PanelColumn::applyTheme()
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, m_style.colour(m_background));
    setPalette(colours);
    viewport()->setAutoFillBackground(true);
    for (ListRow* const row : m_rows)
        row->update();
}

void PanelColumn::addWidget(QWidget* widget)
{
    m_layout->insertWidget(m_layout->count() - 1, widget);
    // Now, since the height of all is asked for at once.
    widget->show();
}

ListRow* PanelColumn::addRow(const QString& iconName, const QString& text)
{
    auto* const row = new ListRow(m_style, iconName, text);
    addWidget(row);
    m_rows.push_back(row);
    return row;
}

void PanelColumn::addSeparator()
{
    auto* const space = new QWidget;
    space->setFixedHeight(kSeparatorHeight);
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Midlight);
    auto* const inset = new QVBoxLayout(space);
    inset->setContentsMargins(kMargin - 4, 0, kMargin - 4, 0);
    inset->addWidget(line);
    addWidget(space);
}

void PanelColumn::addHeading(const QString& text)
{
    auto* const heading = new QLabel(text);
    heading->setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    heading->setIndent(kMargin);
    heading->setFixedHeight(kHeadingHeight);
    heading->setForegroundRole(QPalette::PlaceholderText);
    addWidget(heading);
}

void PanelColumn::clear()
{
    m_rows.clear();
    while (m_layout->count() > 1) {
        QLayoutItem* const item = m_layout->takeAt(0);
        if (QWidget* const gone = item->widget()) {
            gone->hide();
            gone->deleteLater();
        }
        delete item;
    }
}

int PanelColumn::contentHeight() const
{
    return widget()->sizeHint().height();
}
