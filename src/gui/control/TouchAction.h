#pragma once

#include <QWidget>

class Setting;
class WzCustomStyle;

/// The row of one setting in a menu or panel: its title, and the control that its kind wants. What waits for
/// the instrument, or is wrong, is framed.
///
/// It does not outlive its setting. The knob acts on it through wheel events, and through the list of its
/// combo box where its focus proxy is one.
class TouchAction : public QWidget {
    Q_OBJECT
public:
    /// Many options are shown as a combo box instead of a row when @p width is too narrow for them.
    TouchAction(Setting& setting, const WzCustomStyle& style, int width, QWidget* parent);

    Setting& setting() const { return m_setting; }
    /// The control in it; null for a button without one.
    QWidget* control() const { return focusProxy(); }

    /// Where the value of a slider stands; empty for others.
    QRect figures() const;

    /// Whether all options have room side by side.
    static bool fitsSideBySide(const Setting& setting, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    QWidget* makeControl(int width);
    QWidget* makeComboBox();
    QWidget* makeSlider();
    QWidget* makeNumber();
    void showState();
    bool hasCaption() const;
    QRect controlArea() const;
    void paintValue(QPainter& painter) const;
    void paintVerdict(QPainter& painter) const;

    Setting& m_setting;
    const WzCustomStyle& m_style;
};
