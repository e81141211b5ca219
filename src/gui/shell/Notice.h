#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <functional>

class QPushButton;
class WzCustomStyle;

/// A short message over the windows: "Layout 2   2 of 5". It goes by itself, or at a touch.
class Notice : public QWidget {
    Q_OBJECT
public:
    static constexpr int kShownMs = 2500;
    static constexpr int kOfferedMs = 8000;

    Notice(const WzCustomStyle& style, QWidget* parent);

    void showMessage(const QString& iconName, const QString& text, const QString& detail);
    /// A message with a button that does something about it, for a while longer.
    void offer(const QString& iconName, const QString& text, const QString& actionText,
               std::function<void()> action);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void appear(int words, int milliseconds);

    const WzCustomStyle& m_style;
    QString m_iconName;
    QString m_text;
    QString m_detail;
    QPushButton* m_button;
    std::function<void()> m_action;
    QBasicTimer m_timer;
};
