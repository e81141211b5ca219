#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>

class OneFingerGesture;
class WzCustomStyle;

/// Lets the screen follow the finger while the user swipes to the next or previous layout: a still picture of
/// it, and beside it the name of the layout that is coming.
class SwipeFollower : public QWidget {
    Q_OBJECT
public:
    /// The name of the previous (true) or next layout; empty when the swipe ends where it is.
    using NeighbourName = std::function<QString(bool previous)>;

    SwipeFollower(const WzCustomStyle& style, QWidget* area);

    void setNeighbourName(NeighbourName name) { m_neighbourName = std::move(name); }

    bool isInProgress() const { return isVisible(); }
    void follow(const OneFingerGesture& gesture);
    void release(const OneFingerGesture& gesture);
    void cancel();

    /// Whether a swipe that far, and taking that long, turns the page of a screen of that width.
    static bool isFarEnough(qreal way, qint64 milliseconds, int width);

signals:
    /// The swipe was far enough.
    void swiped(bool previous);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void moveTo(int offset);
    void slideTo(int offset, bool turnsPage);

    const WzCustomStyle& m_style;
    NeighbourName m_neighbourName;
    QPixmap m_screen;
    QVariantAnimation m_slide;
    QMetaObject::Connection m_afterSlide;
    int m_offset = 0;
};
