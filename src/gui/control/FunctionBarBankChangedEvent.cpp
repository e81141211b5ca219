#include "gui/control/FunctionBarBankChangedEvent.h"

FunctionBarBankChangedEvent::FunctionBarBankChangedEvent(quint32 bank)
    : QEvent(getEventType())
    , m_bank(bank)
{
}

QEvent::Type FunctionBarBankChangedEvent::getEventType()
{
    static const QEvent::Type type = registerFunctionBarBankChangedEventType();
    return type;
}

QEvent::Type FunctionBarBankChangedEvent::registerFunctionBarBankChangedEventType()
{
    return static_cast<QEvent::Type>(QEvent::registerEventType());
}
