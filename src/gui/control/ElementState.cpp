#include "gui/control/ElementState.h"

#include "datacore/ClientDatacore.h"

#include <algorithm>

ElementState::Verdict ElementState::verdict() const
{
    if (!active)
        return Verdict::Inactive;
    bool hasError = false;
    bool hasWarning = false;
    ClientDatacore::makeToolTip(reasons, &hasError, &hasWarning);
    if (hasError)
        return Verdict::Error;
    if (hasWarning)
        return Verdict::Warning;
    const bool isEmpty =
        std::all_of(values.begin(), values.end(), [](const QString& value) { return value.isEmpty(); });
    return isEmpty ? Verdict::Unknown : Verdict::Valid;
}

QString ElementState::toolTip() const
{
    return ClientDatacore::makeToolTip(reasons, nullptr, nullptr);
}
