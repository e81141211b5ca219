#pragma once

#include <QAbstractButton>
#include <QColor>

class WzCustomStyle;

/// One cell of the tool bar: an icon, text, secondary text and a badge, any of which may be missing. The
/// whole cell can be touched.
class ToolBarItem : public QAbstractButton {
    Q_OBJECT
public:
    /// Where the icon stands.
    enum class IconSide { Left, Right };

    ToolBarItem(const WzCustomStyle& style, const QString& iconName, IconSide side = IconSide::Left,
                QWidget* parent = nullptr);

    void setIconName(const QString& name);
    /// Invalid: that of the text.
    void setIconColour(const QColor& colour);
    void setLabel(const QString& label);
    /// Before (Left) or behind (Right) the label, in the secondary colour.
    void setSecondary(const QString& text);
    QString label() const { return m_label; }
    void setEmphasised(bool emphasised);
    /// 0 shows none.
    void setBadge(int count);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int textWidth() const;
    QString badgeText() const;
    void paintBadge(QPainter& painter, int left) const;

    const WzCustomStyle& m_style;
    QString m_iconName;
    const IconSide m_iconSide;
    QColor m_iconColour;
    QString m_label;
    QString m_secondary;
    bool m_emphasised = false;
    int m_badge = 0;
};
