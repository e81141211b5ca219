#pragma once

#include <QWidget>

class QPushButton;
class WzCustomStyle;

/// Buttons of equal width side by side, as at the foot of a menu or panel.
class ButtonRow : public QWidget {
    Q_OBJECT
public:
    ButtonRow(const WzCustomStyle& style, QWidget* parent);

    QPushButton* add(const QString& icon, const QString& text);

private:
    const WzCustomStyle& m_style;
};
