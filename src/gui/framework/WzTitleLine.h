#pragma once

#include <QWidget>

class WzCustomStyle;

/// The title line of a window: icon, title, instance, what the content adds, and the "?" that opens its help.
class WzTitleLine : public QWidget {
    Q_OBJECT
public:
    /// A finger hits this much of the corner of the window.
    static constexpr int kHelpReach = 56;

    WzTitleLine(const WzCustomStyle& style, QWidget* parent);

    /// The resource path of an icon.
    void setIcon(const QString& path);
    /// Counts from 1; 0 shows none.
    void setInstance(int instance);
    void setTitle(const QString& title);
    /// Secondary text at the right: how the instrument is set, and its input.
    void setDetails(const QString& details);

signals:
    void helpRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRect helpArea() const;

    const WzCustomStyle& m_style;
    QString m_iconPath;
    QString m_title;
    int m_instance = 0;
    QString m_details;
    bool m_helpPressed = false;
};
