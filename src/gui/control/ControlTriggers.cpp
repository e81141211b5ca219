#include "gui/control/ControlTriggers.h"

#include "gui/control/FunctionTrigger.h"
#include "gui/style/Icons.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QSlider>
#include <QSpinBox>

namespace ControlTriggers {
namespace {

using TriggerBanks::Trigger;

constexpr int kIconSize = 24;

QIcon iconOf(const QString& name)
{
    const QPalette palette = QApplication::palette();
    return Icons::icon(Icons::path(name), kIconSize, palette.color(QPalette::ButtonText),
                       palette.color(QPalette::Disabled, QPalette::ButtonText));
}

Qt::Key keyOf(QChar character)
{
    // Qt names the keys of digits, letters and the full stop by their upper case characters.
    return static_cast<Qt::Key>(character.toUpper().unicode());
}

void addKey(TriggerList& triggers, QWidget* control, Trigger trigger, Qt::Key key, const QString& text = {})
{
    QObject::connect(trigger.get(), &FunctionTrigger::triggered, control, [control, key, text] {
        if (control->isEnabled())
            sendKey(control, key, Qt::NoModifier, text);
    });
    triggers.push_back(std::move(trigger));
}

void choose(QComboBox& comboBox, int index)
{
    const QModelIndex entry =
        comboBox.model()->index(index, comboBox.modelColumn(), comboBox.rootModelIndex());
    if (!comboBox.isEnabled() || !entry.isValid() || !entry.flags().testFlag(Qt::ItemIsEnabled))
        return;
    // Keys would pass over the entries between, and each of them would be chosen on the way.
    comboBox.setCurrentIndex(index);
    emit comboBox.activated(index);
}

} // namespace

bool isCompatible(const QWidget* control)
{
    return qobject_cast<const QComboBox*>(control) || qobject_cast<const QSlider*>(control)
        || qobject_cast<const QSpinBox*>(control) || qobject_cast<const QDoubleSpinBox*>(control);
}

TriggerList forWidget(QWidget* control)
{
    if (auto* const comboBox = qobject_cast<QComboBox*>(control))
        return forComboBox(comboBox);
    if (auto* const slider = qobject_cast<QSlider*>(control))
        return forSlider(slider);
    if (auto* const spinBox = qobject_cast<QSpinBox*>(control))
        return forSpinBox(spinBox);
    if (auto* const spinBox = qobject_cast<QDoubleSpinBox*>(control))
        return forSpinBox(spinBox);
    return {};
}

TriggerList forComboBox(QComboBox* comboBox)
{
    TriggerList triggers;
    for (int i = 0; i < comboBox->count(); ++i) {
        auto trigger = FunctionTrigger::makeTrigger(comboBox->itemText(i), comboBox->itemIcon(i));
        trigger->setButtonSelected(i == comboBox->currentIndex());
        QObject::connect(trigger.get(), &FunctionTrigger::triggered, comboBox,
                         [comboBox, i] { choose(*comboBox, i); });
        QObject::connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), trigger.get(),
                         [i, shown = trigger.get()](int index) { shown->setButtonSelected(i == index); });
        triggers.push_back(std::move(trigger));
    }
    return triggers;
}

TriggerList forSlider(QSlider* slider)
{
    TriggerList triggers;
    addKey(triggers, slider, FunctionTrigger::makeTrigger(QStringLiteral("Min")), Qt::Key_Home);
    addKey(triggers, slider, FunctionTrigger::makeTrigger(QStringLiteral("Max")), Qt::Key_End);
    return triggers;
}

TriggerList forSpinBox(QSpinBox* spinBox)
{
    TriggerList triggers;
    addNumeric(triggers, spinBox, QStringLiteral("0123456789abcdef").left(spinBox->displayIntegerBase()));
    addBackspace(triggers, spinBox);
    addDelete(triggers, spinBox);
    return triggers;
}

TriggerList forSpinBox(QDoubleSpinBox* spinBox)
{
    TriggerList triggers;
    addNumeric(triggers, spinBox,
               spinBox->decimals() > 0 ? QStringLiteral("0123456789.") : QStringLiteral("0123456789"));
    addBackspace(triggers, spinBox);
    addDelete(triggers, spinBox);
    return triggers;
}

void addNumeric(TriggerList& triggers, QWidget* control, const QString& characters)
{
    for (const QChar character : characters) {
        const QChar typed = character == QLatin1Char('.') ? control->locale().decimalPoint() : character;
        addKey(triggers, control, FunctionTrigger::makeTrigger(QString(character)), keyOf(typed),
               QString(typed));
    }
}

void addBackspace(TriggerList& triggers, QWidget* control)
{
    addKey(triggers, control,
           FunctionTrigger::makeTrigger(QStringLiteral("Backspace"), iconOf(QStringLiteral("backspace"))),
           Qt::Key_Backspace);
}

void addDelete(TriggerList& triggers, QWidget* control)
{
    addKey(triggers, control,
           FunctionTrigger::makeTrigger(QStringLiteral("Delete"), iconOf(QStringLiteral("delete"))),
           Qt::Key_Delete);
}

void sendKey(QObject* receiver, Qt::Key key, Qt::KeyboardModifier modifier, const QString& text)
{
    const QPointer<QObject> guard(receiver);
    QKeyEvent press(QEvent::KeyPress, key, modifier, text);
    QCoreApplication::sendEvent(receiver, &press);
    if (!guard)
        return;
    QKeyEvent release(QEvent::KeyRelease, key, modifier, text);
    QCoreApplication::sendEvent(receiver, &release);
}

} // namespace ControlTriggers
