#include "gui/control/ValidatableSpinBox.h"

namespace {

/// How far to look for a valid value. A range of all whole numbers is not searched to its end.
constexpr int kMostStepsLookedAt = 100'000;

} // namespace

void ValidatableSpinBox::stepBy(int steps)
{
    // 64 bits, since the range may reach to the limits of an int.
    const qint64 step = steps < 0 ? -singleStep() : singleStep();
    qint64 target = qBound<qint64>(minimum(), value() + qint64(steps) * singleStep(), maximum());
    for (int i = 0; i < kMostStepsLookedAt && target >= minimum() && target <= maximum(); ++i) {
        if (isValid(static_cast<int>(target)))
            return setValue(static_cast<int>(target));
        target += step;
    }
}

QValidator::State ValidatableSpinBox::validate(QString& text, int& position) const
{
    const QValidator::State state = QSpinBox::validate(text, position);
    // More digits may make it valid, so it may stand while it is typed, but does not become the value.
    return state == QValidator::Acceptable && !isValid(valueFromText(text)) ? QValidator::Intermediate
                                                                            : state;
}
