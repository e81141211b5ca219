#pragma once

#include "gui/control/ElementState.h"

#include <QWidget>

#include <functional>
#include <vector>

class WzCustomStyle;

/// Rows of a label and a value to read, with a mark where the value is judged. Only whole rows are shown;
/// where there is not enough room for all of them the wheel moves on to the rest.
class ReadOnlyRows : public QWidget {
    Q_OBJECT
public:
    static constexpr int kRowHeight = 28;

    struct Row {
        QString label;
        QString value;
        ElementState::Verdict verdict = ElementState::Verdict::Unknown;
        bool marksValid = false; ///< a valid value has a mark, too

        bool operator==(const Row&) const = default;
    };

    ReadOnlyRows(const WzCustomStyle& style, QWidget* parent);

    void setRows(const std::vector<Row>& rows);
    /// Asked for the tool tip of a row when one is due.
    void setToolTips(std::function<QString(int row)> toolTips) { m_toolTips = std::move(toolTips); }

    int rowHeight() const;
    /// Where a row stands; empty when it is not in sight.
    QRect rowRect(int index) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool isLarge() const;
    int iconSize() const;
    int rowsInSight() const;
    void scrollTo(int first);
    void layOut();
    void paintRow(QPainter& painter, int index) const;
    void paintMark(QPainter& painter, const Row& row, const QRect& area) const;
    void paintPosition(QPainter& painter) const;

    const WzCustomStyle& m_style;
    std::vector<Row> m_rows;
    int m_first = 0;
    int m_valueLeft = 0;
    QFont m_labelFont;
    QFont m_valueFont;
    std::function<QString(int row)> m_toolTips;
};
