#include "gui/control/FunctionBarBackEvent.h"

FunctionBarBackEvent::FunctionBarBackEvent()
    : QEvent(getEventType())
{
}

QEvent::Type FunctionBarBackEvent::getEventType()
{
    static const QEvent::Type type = registerFunctionBarBackEventType();
    return type;
}

QEvent::Type FunctionBarBackEvent::registerFunctionBarBackEventType()
{
    return static_cast<QEvent::Type>(QEvent::registerEventType());
}
