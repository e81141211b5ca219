#pragma once

#include <QAbstractButton>

class WzCustomStyle;

/// One soft button: a label, an icon or both, a superscript above the label and marks below it. It draws
/// itself inside a margin, so that buttons that stand side by side leave a gap that a finger cannot hit.
class FunctionButton : public QAbstractButton {
    Q_OBJECT
public:
    static constexpr int kMargin = 4;

    FunctionButton(const WzCustomStyle& style, QWidget* parent);

    QString label() const { return m_label; }
    QString superscript() const { return m_superscript; }
    int marks() const { return m_marks; }
    bool isSelected() const { return m_selected; }
    /// Whether there is nothing on it; then it cannot be pressed either.
    bool isBlank() const { return m_label.isEmpty() && icon().isNull(); }

    void setFace(const QString& label, const QIcon& icon);
    void setSuperscript(const QString& text);
    void setWordWrap(bool wrap);
    void setPointSize(int points);
    void setSelected(bool selected);
    /// @p keepRoom keeps the label clear of the place of the marks, also where there are none, so that labels
    /// side by side stand alike.
    void setMarks(int count, bool keepRoom);

    /// Looks pressed for a moment, when a key did it.
    void flash();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    QRect face() const;
    void layOutLabel();
    void paintFace(QPainter& painter) const;
    void paintLabel(QPainter& painter, const QColor& colour);
    void paintMarks(QPainter& painter, const QColor& colour) const;
    const QPixmap& tintedIcon(const QColor& colour);

    const WzCustomStyle& m_style;
    QString m_label;
    QString m_superscript;
    QFont m_font;
    QFont m_superscriptFont;
    int m_pointSize = 0;
    int m_marks = 0;
    bool m_keepRoom = false;
    bool m_wordWrap = true;
    bool m_selected = false;
    /// The label as it is drawn.
    QStringList m_lines;
    int m_labelWidth = 0;
    QPixmap m_tinted;
    QColor m_tint;
};
