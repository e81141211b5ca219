#pragma once

#include <QEvent>

/// Tells the owner of the context on the function bar that another of its banks is shown.
class FunctionBarBankChangedEvent : public QEvent {
public:
    explicit FunctionBarBankChangedEvent(quint32 bank);

    quint32 getBank() const { return m_bank; }

    /// The type, which Qt gives out at run time, once.
    static QEvent::Type getEventType();

private:
    static QEvent::Type registerFunctionBarBankChangedEventType();

    const quint32 m_bank;
};
