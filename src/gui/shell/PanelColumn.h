#pragma once

#include "gui/style/WzPalette.h"

#include <QScrollArea>

class ListRow;
class QVBoxLayout;
class WzCustomStyle;

/// A column of rows in a panel, which scrolls when there are too many.
class PanelColumn : public QScrollArea {
    Q_OBJECT
public:
    PanelColumn(const WzCustomStyle& style, ColourRole background, QWidget* parent);

    ListRow* addRow(const QString& iconName, const QString& text);
    void addSeparator();
    /// Secondary text over the rows that follow.
    void addHeading(const QString& text);
    /// Takes all rows away. One whose click led here lives until the event loop is back.
    void clear();
    std::vector<ListRow*> rows() const { return m_rows; }
    /// With all rows in sight.
    int contentHeight() const;

private:
    void addWidget(QWidget* widget);
    void applyTheme();

    const WzCustomStyle& m_style;
    const ColourRole m_background;
    QVBoxLayout* m_layout;
    std::vector<ListRow*> m_rows;
};
