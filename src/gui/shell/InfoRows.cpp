#include "gui/shell/InfoRows.h"

#include "gui/style/Fonts.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int kRowHeight = 36;
constexpr int kLabelWidth = 190;
constexpr int kGap = 16;

} // namespace

InfoRows::InfoRows(QWidget* parent)
    : QWidget(parent)
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(kGap);
    m_grid->setVerticalSpacing(0);
    m_grid->setColumnStretch(1, 1);
}

QLabel* InfoRows::addRow(const QString& label, const QString& value)
{
    const int row = m_grid->rowCount();
    auto* const name = new QLabel(label, this);
    name->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    name->setForegroundRole(QPalette::PlaceholderText);
    name->setMinimumSize(kLabelWidth, kRowHeight);
    auto* const text = new QLabel(value, this);
    text->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    m_grid->addWidget(name, row, 0, Qt::AlignTop);
    m_grid->addWidget(text, row, 1, Qt::AlignVCenter);
    return text;
}

void InfoRows::clear()
{
    while (QLayoutItem* const item = m_grid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
}
