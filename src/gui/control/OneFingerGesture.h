#pragma once

#include <QGesture>
#include <QGestureRecognizer>
#include <QPointF>

/// A drag by one finger, or by the mouse with its left button.
class OneFingerGesture : public QGesture {
    Q_OBJECT
public:
    using QGesture::QGesture;

    /// Global pixels since it began; to the right and down are positive.
    QPointF delta() const { return m_position - m_start; }
    QPointF start() const { return m_start; }
    /// Milliseconds since it began.
    qint64 age() const { return m_now - m_begin; }

private:
    friend class OneFingerRecognizer;

    QPointF m_start;
    QPointF m_position;
    qint64 m_begin = 0;
    qint64 m_now = 0;
    bool m_pressed = false;
};

/// Recognises a drag along one axis. A second finger ends it.
class OneFingerRecognizer : public QGestureRecognizer {
public:
    /// The way after which the axis is decided.
    static constexpr int kStartDistance = 40;

    explicit OneFingerRecognizer(Qt::Orientation axis);

    /// The type of the swipe (horizontal) and of the scroll (vertical), registered when first asked for.
    static Qt::GestureType swipeType();
    static Qt::GestureType scrollType();

    QGesture* create(QObject* target) override;
    Result recognize(QGesture* gesture, QObject* watched, QEvent* event) override;
    void reset(QGesture* gesture) override;

private:
    Result begin(OneFingerGesture& gesture, const QPointF& position, qint64 time) const;
    Result follow(OneFingerGesture& gesture, const QPointF& position, qint64 time) const;
    static Result end(OneFingerGesture& gesture);
    Result recognizeTouch(OneFingerGesture& gesture, const QTouchEvent& event) const;
    Result recognizeMouse(OneFingerGesture& gesture, const QMouseEvent& event) const;

    const Qt::Orientation m_axis;
};
