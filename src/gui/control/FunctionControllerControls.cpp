// What FunctionController offers for single controls; the rest of it is in FunctionController.cpp.

#include "gui/control/FunctionController.h"

#include "gui/control/ControlTriggers.h"
#include "gui/control/ValidatableSpinBox.h"

void FunctionController::registerTriggersFromWidget(QWidget* control, QObject* owner)
{
    if (isWidgetTriggerCompatible(control))
        registerTriggers(ControlTriggers::forWidget(control), owner);
}

void FunctionController::registerTriggersFromComboBox(QComboBox* comboBox, QObject* owner)
{
    registerTriggers(ControlTriggers::forComboBox(comboBox), owner);
}

void FunctionController::registerTriggersFromSlider(QSlider* slider, QObject* owner)
{
    registerTriggers(ControlTriggers::forSlider(slider), owner);
}

void FunctionController::registerTriggersFromSpinbox(QSpinBox* spinBox, QObject* owner)
{
    registerTriggers(ControlTriggers::forSpinBox(spinBox), owner);
}

void FunctionController::registerTriggersFromSpinbox(ValidatableSpinBox* spinBox, QObject* owner)
{
    registerTriggersFromSpinbox(static_cast<QSpinBox*>(spinBox), owner);
}

void FunctionController::registerTriggersFromSpinbox(QDoubleSpinBox* spinBox, QObject* owner)
{
    registerTriggers(ControlTriggers::forSpinBox(spinBox), owner);
}

bool FunctionController::isWidgetTriggerCompatible(QWidget* control)
{
    return ControlTriggers::isCompatible(control);
}

void FunctionController::addNumericTriggersToVector(TriggerList& triggers, QWidget* control,
                                                    const QString& characters)
{
    ControlTriggers::addNumeric(triggers, control, characters);
}

void FunctionController::addBackspaceTriggerToVector(TriggerList& triggers, QWidget* control)
{
    ControlTriggers::addBackspace(triggers, control);
}

void FunctionController::addDeleteTriggerToVector(TriggerList& triggers, QWidget* control)
{
    ControlTriggers::addDelete(triggers, control);
}

void FunctionController::sendKeyPressReleaseEvents(QObject* receiver, Qt::Key key,
                                                   Qt::KeyboardModifier modifier, const QString& text)
{
    ControlTriggers::sendKey(receiver, key, modifier, text);
}
