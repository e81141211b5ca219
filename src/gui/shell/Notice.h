#pragma once

#include <QBasicTimer>
#include <QWidget>

class WzCustomStyle;

/// A short message over the windows: "Layout 2   2 of 5". It goes by itself, or at a touch.
class Notice : public QWidget {
    Q_OBJECT
public:
    static constexpr int kShownMs = 2500;

    Notice(const WzCustomStyle& style, QWidget* parent);

    void showMessage(const QString& iconName, const QString& text, const QString& detail);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const WzCustomStyle& m_style;
    QString m_iconName;
    QString m_text;
    QString m_detail;
    QBasicTimer m_timer;
};
