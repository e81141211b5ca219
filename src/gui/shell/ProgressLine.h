#pragma once

#include <QWidget>

class WzCustomStyle;

/// How far something is, as a line.
class ProgressLine : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 8;

    ProgressLine(const WzCustomStyle& style, QWidget* parent);

    /// From 0 to 1.
    void setValue(double value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const WzCustomStyle& m_style;
    double m_value = 0;
};
