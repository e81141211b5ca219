#pragma once

#include "instruments/datacorebrowser/DatacoreTreeModel.h"

#include "gui/style/WzPalette.h"

#include <QFont>
#include <QPixmap>
#include <QStyledItemDelegate>

#include <array>

class WzCustomStyle;

/// Paints the rows of a DatacoreTreeModel. What can be written stands in a field, which is dashed until the
/// instrument has confirmed what was written.
class DatacoreRowDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    DatacoreRowDelegate(const WzCustomStyle& style, const DatacoreTreeModel& model, QObject* parent);

    void updateColours(qreal devicePixelRatio);
    void setRowHeight(int height);
    /// Whether the validity has room for a word beside its icon.
    void setShowsWords(bool shows) { m_showsWords = shows; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

private:
    enum IconId {
        OkIcon,
        InformationIcon,
        WarningIcon,
        ErrorIcon,
        InactiveIcon,
        WaitingIcon,
        OverdueIcon,
        IconCount,
    };

    void paintValue(QPainter& painter, const QRect& cell, const QString& text,
                    const DatacoreTreeModel::Look& look) const;
    void paintValidity(QPainter& painter, const QRect& cell, const DatacoreTreeModel::Look& look) const;
    void paintText(QPainter& painter, const QRect& room, const QString& text, const QFont& font,
                   const QColor& colour) const;
    void paintIcon(QPainter& painter, const QRect& cell, int left, IconId icon) const;
    static std::pair<IconId, QString> statusOf(const DatacoreTreeModel::Look& look);

    const WzCustomStyle& m_style;
    const DatacoreTreeModel& m_model;
    int m_rowHeight = 28;
    bool m_showsWords = false;
    WzPalette m_colours;
    QFont m_font;
    QFont m_smallFont;
    std::array<QPixmap, IconCount> m_icons;
};
