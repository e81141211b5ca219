#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

#include <optional>

class WzCustomStyle;

/// How far something is. While nobody knows how long it takes, a block runs along the groove.
class ProgressBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 8;

    ProgressBar(const WzCustomStyle& style, QWidget* parent);

    void setBusy(bool busy);
    /// From 0 to 1.
    void setValue(double value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    const WzCustomStyle& m_style;
    QBasicTimer m_timer;
    QElapsedTimer m_since;
    std::optional<double> m_value;
};
