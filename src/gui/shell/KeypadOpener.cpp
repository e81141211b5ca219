#include "gui/shell/KeypadOpener.h"

#include "gui/control/Setting.h"
#include "gui/control/TouchAction.h"
#include "gui/control/ValidatableSpinBox.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/NumberKeypad.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>

namespace {

/// The setting that a control changes; null when it is none with a number.
Setting* settingOf(QWidget* control)
{
    for (; control && !control->isWindow(); control = control->parentWidget()) {
        if (const auto* const action = qobject_cast<TouchAction*>(control))
            return action->setting().isNumeric() ? &action->setting() : nullptr;
    }
    return nullptr;
}

/// What a tap at that place means: a spin box, or a row whose figures it hits; null for anything else.
QWidget* touchedNumber(QWidget* widget, const QPoint& position)
{
    if (const auto* const action = qobject_cast<TouchAction*>(widget))
        return action->figures().contains(position) ? widget : nullptr;
    if (!qobject_cast<QLineEdit*>(widget) || !widget->rect().contains(position))
        return nullptr;
    auto* const spinBox = qobject_cast<QAbstractSpinBox*>(widget->parentWidget());
    return spinBox && !spinBox->isReadOnly() && KeypadOpener::hasNumber(*spinBox) ? spinBox : nullptr;
}

template<typename SpinBox>
NumberEntry numberOf(const SpinBox& spinBox)
{
    NumberEntry number;
    number.title = spinBox.accessibleName();
    number.value = spinBox.value();
    number.minimum = spinBox.minimum();
    number.maximum = spinBox.maximum();
    number.step = spinBox.singleStep();
    number.unit = spinBox.suffix().trimmed();
    number.minimumText = spinBox.specialValueText();
    return number;
}

} // namespace

KeypadOpener::KeypadOpener(DisplayMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    qApp->installEventFilter(this);
}

bool KeypadOpener::isOpen() const
{
    return m_keypad && m_keypad->isVisible();
}

bool KeypadOpener::hasNumber(QWidget& control)
{
    return settingOf(&control) || qobject_cast<QSpinBox*>(&control)
        || qobject_cast<QDoubleSpinBox*>(&control);
}

bool KeypadOpener::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease || !watched->isWidgetType())
        return false;
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    if (mouse.button() != Qt::LeftButton)
        return false;
    if (QWidget* const number = touchedNumber(static_cast<QWidget*>(watched), mouse.pos()))
        // It may go with the menu that it stands in, which closes for the keypad.
        QMetaObject::invokeMethod(
            this,
            [this, number = QPointer<QWidget>(number)] {
                if (number && number->isEnabled())
                    openFor(*number);
            },
            Qt::QueuedConnection);
    return false;
}

void KeypadOpener::openFor(QWidget& control)
{
    if (Setting* const setting = settingOf(&control))
        openFor(*setting);
    else if (auto* const spinBox = qobject_cast<QAbstractSpinBox*>(&control))
        openForSpinBox(*spinBox);
}

void KeypadOpener::openFor(Setting& setting)
{
    while (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    const int decimals = setting.range().decimals;
    NumberKeypad* const keypad = open(NumberEntry::of(setting), setting, [&setting, decimals](double number) {
        setting.choose(QString::number(number, 'f', decimals));
    });
    connect(&setting, &Setting::changed, keypad, [keypad, &setting] {
        if (!setting.isUsable())
            keypad->close();
    });
}

void KeypadOpener::openForSpinBox(QAbstractSpinBox& spinBox)
{
    if (auto* const whole = qobject_cast<QSpinBox*>(&spinBox)) {
        NumberEntry number = numberOf(*whole);
        number.base = whole->displayIntegerBase();
        if (const auto* const validatable = qobject_cast<ValidatableSpinBox*>(whole))
            number.isValid = [validatable](double each) {
                return validatable->isValid(static_cast<int>(each));
            };
        open(number, *whole, [whole](double each) { whole->setValue(static_cast<int>(each)); });
    } else if (auto* const field = qobject_cast<QDoubleSpinBox*>(&spinBox)) {
        NumberEntry number = numberOf(*field);
        number.decimals = field->decimals();
        open(number, *field, [field](double each) { field->setValue(each); });
    }
}

NumberKeypad* KeypadOpener::open(const NumberEntry& number, QObject& owner,
                                 const std::function<void(double)>& set)
{
    if (isOpen())
        m_keypad->close();
    auto* const keypad = new NumberKeypad(m_window, number);
    m_keypad = keypad;
    connect(&owner, &QObject::destroyed, keypad, &ShellPanel::abandon);
    connect(keypad, &NumberKeypad::chosen, &owner, set);
    keypad->open();
    m_window.showBars();
    return keypad;
}
