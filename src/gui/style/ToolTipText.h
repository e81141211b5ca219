#pragma once

#include <QString>

namespace ToolTipText {

/// The text for a tool tip, each line of it at most as long as can be read at a glance. What looks like rich
/// text in it stays text: much of it comes from the instrument.
QString of(const QString& text);

} // namespace ToolTipText
