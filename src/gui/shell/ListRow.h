#pragma once

#include "gui/shell/HoldButton.h"

class WzCustomStyle;

/// A row of a menu or a list: icon, text, secondary text below it, a detail at the right, and a chevron where
/// more follows. The one that is checked is marked as selected.
class ListRow : public HoldButton {
    Q_OBJECT
public:
    static constexpr int kHeight = 64;

    ListRow(const WzCustomStyle& style, const QString& iconName, const QString& text,
            QWidget* parent = nullptr);

    void setIconName(const QString& name);
    void setSecondary(const QString& text);
    void setDetail(const QString& text);
    void setChevron(bool shown);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintTexts(QPainter& painter) const;

    const WzCustomStyle& m_style;
    QString m_iconName;
    QString m_secondary;
    QString m_detail;
    bool m_chevron = false;
};
