#pragma once

#include <QEvent>

/// Tells the owner of a context on the function bar that the user went back out of it.
class FunctionBarBackEvent : public QEvent {
public:
    FunctionBarBackEvent();

    /// The type, which Qt gives out at run time, once.
    static QEvent::Type getEventType();

private:
    static QEvent::Type registerFunctionBarBackEventType();
};
