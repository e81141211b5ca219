#pragma once

#include <QWidget>

class Setting;
class WzCustomStyle;

/// The options of a setting side by side, for one finger: segments of equal width, the chosen ones marked.
class OptionRow : public QWidget {
    Q_OBJECT
public:
    OptionRow(Setting& setting, const WzCustomStyle& style, QWidget* parent);

    /// How wide the row has to be for its texts.
    static int neededWidth(const Setting& setting);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QRectF segment(int index) const;
    int segmentAt(const QPoint& position) const;
    void choose(int index);
    void paintSegment(QPainter& painter, int index) const;

    Setting& m_setting;
    const WzCustomStyle& m_style;
    int m_pressed = -1;
    int m_focused = 0; ///< where the keyboard is, in a row of several choices
};
