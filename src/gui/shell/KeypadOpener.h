#pragma once

#include "gui/control/NumberEntry.h"

#include <QObject>
#include <QPointer>

#include <functional>

class DisplayMainWindow;
class NumberKeypad;
class QAbstractSpinBox;
class Setting;

/// Brings the keypad for a number that is touched where it stands: in a number field or beside a slider, in a
/// menu, a strip or a panel.
class KeypadOpener : public QObject {
    Q_OBJECT
public:
    explicit KeypadOpener(DisplayMainWindow& window);

    bool isOpen() const;
    /// Whether the control holds a number for which there is a keypad.
    static bool hasNumber(QWidget& control);
    void openFor(QWidget& control);
    void openFor(Setting& setting);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void openForSpinBox(QAbstractSpinBox& spinBox);
    /// @p owner: without it there is nothing to set any more.
    NumberKeypad* open(const NumberEntry& number, QObject& owner, const std::function<void(double)>& set);

    DisplayMainWindow& m_window;
    QPointer<NumberKeypad> m_keypad;
};
