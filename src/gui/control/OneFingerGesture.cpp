#include "gui/control/OneFingerGesture.h"

#include <QMouseEvent>
#include <QTouchEvent>

#include <cmath>

OneFingerRecognizer::OneFingerRecognizer(Qt::Orientation axis)
    : m_axis(axis)
{
}

Qt::GestureType OneFingerRecognizer::swipeType()
{
    static const Qt::GestureType type = registerRecognizer(new OneFingerRecognizer(Qt::Horizontal));
    return type;
}

Qt::GestureType OneFingerRecognizer::scrollType()
{
    static const Qt::GestureType type = registerRecognizer(new OneFingerRecognizer(Qt::Vertical));
    return type;
}

QGesture* OneFingerRecognizer::create(QObject*)
{
    return new OneFingerGesture;
}

QGestureRecognizer::Result OneFingerRecognizer::recognize(QGesture* gesture, QObject*, QEvent* event)
{
    auto& drag = *static_cast<OneFingerGesture*>(gesture);
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return recognizeTouch(drag, *static_cast<QTouchEvent*>(event));
    case QEvent::TouchCancel:
        return CancelGesture;
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return recognizeMouse(drag, *static_cast<QMouseEvent*>(event));
    default:
        return Ignore;
    }
}

QGestureRecognizer::Result OneFingerRecognizer::recognizeTouch(OneFingerGesture& gesture,
                                                               const QTouchEvent& event) const
{
    if (event.touchPoints().size() != 1)
        return CancelGesture;
    const QPointF position = event.touchPoints().constFirst().screenPos();
    const auto time = static_cast<qint64>(event.timestamp());
    if (event.type() == QEvent::TouchBegin)
        return begin(gesture, position, time);
    return event.type() == QEvent::TouchUpdate ? follow(gesture, position, time) : end(gesture);
}

QGestureRecognizer::Result OneFingerRecognizer::recognizeMouse(OneFingerGesture& gesture,
                                                               const QMouseEvent& event) const
{
    // Mouse events that Qt makes of touches repeat what is known already.
    if (event.source() != Qt::MouseEventNotSynthesized && !gesture.m_pressed)
        return Ignore;
    const auto time = static_cast<qint64>(event.timestamp());
    if (event.type() == QEvent::MouseButtonPress)
        return event.button() == Qt::LeftButton ? begin(gesture, event.screenPos(), time) : Ignore;
    if (event.type() == QEvent::MouseMove)
        return event.buttons().testFlag(Qt::LeftButton) ? follow(gesture, event.screenPos(), time) : Ignore;
    return end(gesture);
}

QGestureRecognizer::Result OneFingerRecognizer::begin(OneFingerGesture& gesture, const QPointF& position,
                                                      qint64 time) const
{
    gesture.m_start = position;
    gesture.m_position = position;
    gesture.m_begin = time;
    gesture.m_now = time;
    gesture.m_pressed = true;
    // Without a hot spot the gesture goes straight to the widget that grabbed it, wherever on it the finger
    // is.
    return MayBeGesture;
}

QGestureRecognizer::Result OneFingerRecognizer::follow(OneFingerGesture& gesture, const QPointF& position,
                                                       qint64 time) const
{
    if (!gesture.m_pressed)
        return Ignore;
    gesture.m_position = position;
    gesture.m_now = time;
    if (gesture.state() != Qt::NoGesture)
        return TriggerGesture;
    const QPointF delta = gesture.delta();
    const bool isHorizontal = m_axis == Qt::Horizontal;
    const qreal along = std::abs(isHorizontal ? delta.x() : delta.y());
    const qreal across = std::abs(isHorizontal ? delta.y() : delta.x());
    if (across >= kStartDistance && across > along)
        return CancelGesture;
    return along >= kStartDistance && along > 2 * across ? TriggerGesture : MayBeGesture;
}

QGestureRecognizer::Result OneFingerRecognizer::end(OneFingerGesture& gesture)
{
    gesture.m_pressed = false;
    return gesture.state() == Qt::NoGesture ? CancelGesture : FinishGesture;
}

void OneFingerRecognizer::reset(QGesture* gesture)
{
    static_cast<OneFingerGesture*>(gesture)->m_pressed = false;
    QGestureRecognizer::reset(gesture);
}
