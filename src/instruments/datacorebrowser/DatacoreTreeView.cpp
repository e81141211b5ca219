#include "instruments/datacorebrowser/DatacoreTreeView.h"

#include "instruments/datacorebrowser/DatacoreRowDelegate.h"
#include "instruments/datacorebrowser/DatacoreTreeModel.h"

#include "datacore/DatacoreTree.h"
#include "gui/control/TouchScroll.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace {

constexpr int kBranchIconSize = 20;
constexpr int kSelectedBarWidth = 4;
constexpr int kHeaderHeight = 36;
constexpr int kLargeWidth = 900;
constexpr int kFullWidth = 1800;
/// More matches are not unfolded at once.
constexpr int kMostUnfolded = 2000;

/// Measures for a width of the window.
struct Measures {
    int rowHeight;
    int indentation;
    int validityWidth;
    int classWidth;
};
constexpr Measures kSmall{28, 24, 36, 0};
constexpr Measures kLarge{40, 28, 120, 160};
/// For fingers; there is room for it.
constexpr Measures kFull{56, 32, 150, 340};

const Measures& measuresFor(int width)
{
    return width >= kFullWidth ? kFull : width >= kLargeWidth ? kLarge : kSmall;
}

} // namespace

DatacoreTreeView::DatacoreTreeView(const WzCustomStyle& style, DatacoreTreeModel& model, QWidget* parent)
    : QTreeView(parent)
    , m_style(style)
    , m_model(model)
    , m_delegate(new DatacoreRowDelegate(style, model, this))
{
    setModel(&model);
    setItemDelegate(m_delegate);
    setFrameShape(QFrame::NoFrame);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setExpandsOnDoubleClick(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(DoubleClicked | SelectedClicked | EditKeyPressed);
    header()->setSectionsClickable(false);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setStretchLastSection(false);
    header()->setFixedHeight(kHeaderHeight);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header()->setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    TouchScroll::enable(*this);
    for (const auto tree : {0, 1, 2, 3, 4})
        m_expandedPaths.insert(QString(*ServerCommon::rootName(ServerCommon::DatacoreTree(tree))));

    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        if (m_model.rowCount() > 0 && m_model.filter().isEmpty())
            m_scrollPosition = verticalScrollBar()->value();
    });
    connect(&model, &QAbstractItemModel::modelReset, this, &DatacoreTreeView::restore);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) { onToggled(index, true); });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) { onToggled(index, false); });
    connect(this, &QAbstractItemView::clicked, this, &DatacoreTreeView::onClicked);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (!m_restoring && current.isValid())
            m_selectedPath = m_model.pathOf(current);
    });
    updateColours();
}

std::vector<QModelIndex> DatacoreTreeView::rowsInSight() const
{
    std::vector<QModelIndex> rows;
    const int bottom = viewport()->height();
    QModelIndex row = indexAt(QPoint(0, 0));
    for (int y = visualRect(row).top(); row.isValid() && y < bottom; y += m_rowHeight) {
        rows.push_back(row);
        row = indexBelow(row);
    }
    return rows;
}

bool DatacoreTreeView::showChanges()
{
    return m_model.showChanges(rowsInSight());
}

QStringList DatacoreTreeView::expandedPaths() const
{
    QStringList paths(m_expandedPaths.begin(), m_expandedPaths.end());
    paths.sort();
    return paths;
}

void DatacoreTreeView::setRemembered(const QStringList& expandedPaths, const QString& selectedPath)
{
    m_expandedPaths = QSet<QString>(expandedPaths.begin(), expandedPaths.end());
    m_selectedPath = selectedPath;
    {
        const QScopedValueRollback restoring(m_restoring, true);
        collapseAll();
    }
    restore();
}

/// Unfolds what was unfolded; under a filter, all that leads to what was looked for.
void DatacoreTreeView::restore()
{
    const QScopedValueRollback restoring(m_restoring, true);
    if (m_model.filter().isEmpty()) {
        for (const QString& path : std::as_const(m_expandedPaths))
            setExpanded(m_model.indexOfPath(path), true);
    } else if (m_model.matchCount() <= kMostUnfolded) {
        expandAll();
    }
    executeDelayedItemsLayout();
    const QModelIndex selected = m_model.indexOfPath(m_selectedPath);
    if (selected.isValid())
        setCurrentIndex(selected);
    if (m_model.filter().isEmpty())
        verticalScrollBar()->setValue(m_scrollPosition);
}

void DatacoreTreeView::onToggled(const QModelIndex& index, bool expanded)
{
    if (m_restoring || !m_model.filter().isEmpty())
        return;
    if (expanded)
        m_expandedPaths.insert(m_model.pathOf(index));
    else
        m_expandedPaths.remove(m_model.pathOf(index));
}

/// The whole row unfolds: the arrow alone is too small for a finger.
void DatacoreTreeView::onClicked(const QModelIndex& index)
{
    const QModelIndex row = index.sibling(index.row(), DatacoreTreeModel::Name);
    if (m_model.hasChildren(row))
        setExpanded(row, !isExpanded(row));
}

bool DatacoreTreeView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    const bool wanted = trigger == AllEditTriggers || editTriggers().testFlag(trigger);
    if (!wanted || !m_model.flags(index).testFlag(Qt::ItemIsEditable) || !m_model.isBool(index))
        return QTreeView::edit(index, trigger, event);
    // A second press of the two of a double click comes here as well.
    if (trigger != SelectedClicked)
        emit choiceRequested(index);
    return true;
}

void DatacoreTreeView::setLayoutFor(int width)
{
    const Measures& measures = measuresFor(width);
    const bool large = measures.rowHeight > kSmall.rowHeight;
    m_rowHeight = measures.rowHeight;
    m_delegate->setRowHeight(measures.rowHeight);
    m_delegate->setShowsWords(large);
    setIndentation(measures.indentation);
    setHeaderHidden(!large);
    setColumnHidden(DatacoreTreeModel::Class, measures.classWidth == 0);
    const int scrollBar = verticalScrollBar()->sizeHint().width();
    const int rest = qMax(0, width - scrollBar - measures.validityWidth - measures.classWidth);
    setColumnWidth(DatacoreTreeModel::Name, rest / 2);
    setColumnWidth(DatacoreTreeModel::Value, rest - rest / 2);
    setColumnWidth(DatacoreTreeModel::Validity, measures.validityWidth);
    setColumnWidth(DatacoreTreeModel::Class, measures.classWidth);
    scheduleDelayedItemsLayout();
}

void DatacoreTreeView::updateColours()
{
    m_colours = m_style.instrumentPalette();
    QPalette palette = m_colours.widgetPalette();
    palette.setColor(QPalette::Base, m_colours.colour(ColourRole::InstrumentBackground));
    palette.setColor(QPalette::AlternateBase, m_colours.colour(ColourRole::AlternateRow));
    setPalette(palette);
    header()->setStyleSheet(
        QStringLiteral("QHeaderView::section { background: %1; color: %2; border: none; padding-left: 8px; }")
            .arg(m_colours.colour(ColourRole::Background).name(),
                 m_colours.colour(ColourRole::SecondaryText).name()));
    m_delegate->updateColours(devicePixelRatioF());
    const auto icon = [this](const char* name) {
        return Icons::pixmap(Icons::path(QString::fromLatin1(name)), kBranchIconSize,
                             m_colours.colour(ColourRole::SecondaryText), devicePixelRatioF());
    };
    m_closedIcon = icon("right");
    m_openIcon = icon("down");
    viewport()->update();
}

void DatacoreTreeView::setEmptyText(const QString& text)
{
    if (text == m_emptyText)
        return;
    m_emptyText = text;
    viewport()->update();
}

void DatacoreTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_model.rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    painter.setPen(m_colours.colour(ColourRole::SecondaryText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, m_emptyText);
}

void DatacoreTreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                               const QModelIndex& index) const
{
    QTreeView::drawRow(painter, options, index);
    if (selectionModel()->isSelected(index))
        painter->fillRect(0, options.rect.top(), kSelectedBarWidth, options.rect.height(),
                          m_colours.colour(ColourRole::Accent));
}

void DatacoreTreeView::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const
{
    if (selectionModel()->isSelected(index))
        painter->fillRect(rect, m_colours.colour(ColourRole::Selected));
    if (!m_model.hasChildren(index))
        return;
    const int left = rect.right() + 1 - indentation() / 2 - kBranchIconSize / 2;
    const int top = rect.top() + (rect.height() - kBranchIconSize) / 2;
    painter->drawPixmap(left, top, isExpanded(index) ? m_openIcon : m_closedIcon);
}
