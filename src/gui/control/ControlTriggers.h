#pragma once

#include "gui/control/TriggerBanks.h"

#include <QString>
#include <Qt>

class QComboBox;
class QDoubleSpinBox;
class QObject;
class QSlider;
class QSpinBox;
class QWidget;

/// Triggers that do what a user would do at a control: choose an entry, or press keys. They do nothing once
/// the control is gone or disabled.
namespace ControlTriggers {

using TriggerBanks::TriggerList;

/// Whether there are triggers for this kind of control.
bool isCompatible(const QWidget* control);
/// Those for the control by its kind; none for another kind.
TriggerList forWidget(QWidget* control);

/// One for each entry; the current one is selected.
TriggerList forComboBox(QComboBox* comboBox);
/// To the ends of its range.
TriggerList forSlider(QSlider* slider);
/// The digits of its base, and editing.
TriggerList forSpinBox(QSpinBox* spinBox);
/// The digits, the decimal point if it has decimals, and editing.
TriggerList forSpinBox(QDoubleSpinBox* spinBox);

/// One for each of the characters, which may be "0" to "9", "a" to "f" and "."; the last sends the decimal
/// point of the control's language.
void addNumeric(TriggerList& triggers, QWidget* control, const QString& characters);
void addBackspace(TriggerList& triggers, QWidget* control);
void addDelete(TriggerList& triggers, QWidget* control);

/// At once, as if the key had been pressed and let go.
void sendKey(QObject* receiver, Qt::Key key, Qt::KeyboardModifier modifier, const QString& text);

} // namespace ControlTriggers
