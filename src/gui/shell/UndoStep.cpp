#include "gui/shell/UndoStep.h"

#include <utility>

void UndoStep::offer(const QString& what, std::function<void()> undo, std::function<bool()> isPossible)
{
    m_what = what;
    m_undo = std::move(undo);
    m_isPossible = std::move(isPossible);
    emit offered(what);
}

void UndoStep::undo()
{
    if (!isPossible())
        return;
    // What is taken back may itself offer a step.
    const auto undo = std::exchange(m_undo, nullptr);
    m_what.clear();
    undo();
    emit undone();
}
