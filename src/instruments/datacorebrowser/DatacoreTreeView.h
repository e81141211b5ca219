#pragma once

#include "gui/style/WzPalette.h"

#include <QPixmap>
#include <QSet>
#include <QTreeView>

class DatacoreRowDelegate;
class DatacoreTreeModel;
class WzCustomStyle;

/// The rows of a DatacoreTreeModel. What is expanded and selected is remembered by its path, so that it comes
/// back with the nodes after a reconnection.
class DatacoreTreeView : public QTreeView {
    Q_OBJECT
public:
    DatacoreTreeView(const WzCustomStyle& style, DatacoreTreeModel& model, QWidget* parent);

    /// Shows what has changed of the rows in sight. True when it has to be called again.
    bool showChanges();

    using QTreeView::edit;

    QStringList expandedPaths() const;
    QString selectedPath() const { return m_selectedPath; }
    void setRemembered(const QStringList& expandedPaths, const QString& selectedPath);

    /// Fits rows and columns to the width of the window.
    void setLayoutFor(int width);
    void updateColours();
    /// What stands in place of rows where there are none.
    void setEmptyText(const QString& text);

signals:
    /// A value that is true or false is to be written.
    void choiceRequested(const QModelIndex& index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

private:
    std::vector<QModelIndex> rowsInSight() const;
    void restore();
    void onToggled(const QModelIndex& index, bool expanded);
    void onClicked(const QModelIndex& index);

    const WzCustomStyle& m_style;
    DatacoreTreeModel& m_model;
    DatacoreRowDelegate* const m_delegate;
    QSet<QString> m_expandedPaths;
    QString m_selectedPath;
    int m_scrollPosition = 0;
    bool m_restoring = false;
    int m_rowHeight = 28;
    QString m_emptyText;
    WzPalette m_colours;
    QPixmap m_closedIcon;
    QPixmap m_openIcon;
};
