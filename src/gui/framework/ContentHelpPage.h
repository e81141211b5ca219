#pragma once

#include <QTextBrowser>

class WzCustomStyle;

/// The help of one window, over its content until it is touched or closed.
class ContentHelpPage : public QTextBrowser {
    Q_OBJECT
public:
    ContentHelpPage(const QString& text, const WzCustomStyle& style, QWidget* parent);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
