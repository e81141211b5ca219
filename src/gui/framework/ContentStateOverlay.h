#pragma once

#include <QWidget>

class WzSubwindowContent;

/// Draws over a window what state it is in, wherever that is not live: each state in a shape and words of its
/// own. It exists only while there is something to draw.
class ContentStateOverlay : public QWidget {
    Q_OBJECT
public:
    ContentStateOverlay(const WzSubwindowContent& content, QWidget* window);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintFrame(QPainter& painter) const;
    void paintHatchedFrame(QPainter& painter) const;
    void paintWords(QPainter& painter, const QString& words, int pixels) const;
    void paintProgress(QPainter& painter) const;
    void paintFrozenLabel(QPainter& painter) const;
    void paintLostBadge(QPainter& painter) const;
    QRect contentArea() const;
    QRect badgeArea() const;

    const WzSubwindowContent& m_content;
};
