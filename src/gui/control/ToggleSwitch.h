#pragma once

#include <QAbstractButton>

class WzCustomStyle;

/// A switch between off and on, with "O" and "I" on it.
class ToggleSwitch : public QAbstractButton {
    Q_OBJECT
public:
    explicit ToggleSwitch(const WzCustomStyle& style, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const WzCustomStyle& m_style;
};
