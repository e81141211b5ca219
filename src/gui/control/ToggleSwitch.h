#pragma once

#include <QAbstractButton>

class WzCustomStyle;

/// A switch, 64 by 36 in a row of 56, with the marks "I" and "O" beside its colour.
class ToggleSwitch : public QAbstractButton {
    Q_OBJECT
public:
    ToggleSwitch(const WzCustomStyle& style, QWidget* parent);

    QSize sizeHint() const override { return {72, 56}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const WzCustomStyle& m_style;
};
