#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

class WzCustomStyle;

/// Something is waited for, nobody knows for how long: a block that runs along a groove.
class BusyBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 8;

    BusyBar(const WzCustomStyle& style, QWidget* parent);

    void setBusy(bool busy);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    const WzCustomStyle& m_style;
    QBasicTimer m_timer;
    QElapsedTimer m_since;
};
