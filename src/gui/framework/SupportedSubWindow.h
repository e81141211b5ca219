#pragma once

#include "commands/NumberedCommand.h"
#include "presets/WindowRole.h"
#include "types/Device.h"

#include <QString>

#include <functional>
#include <optional>

class WzMdiArea;
class WzSubWindow;
class WzSubwindowContent;

/// One kind of window that can be opened: a line of the catalogue. A value.
struct SupportedSubWindow {
    /// Makes the content in its sub-window and connects it with its nodes. May return null.
    using Factory = std::function<WzSubwindowContent*(WzSubWindow&)>;

    QString windowTitle;
    QString contentClassName;
    WindowRole role = WindowRole::Instrument;
    QString group; ///< the heading it stands under in menu and launcher
    QString icon; ///< name of the icon
    int maximumInstances = 1;
    Velmora::Wz::Device::Features neededFeatures;
    Factory makeContent;
    std::optional<NumberedCommand> command = {}; ///< that opens it

    bool is(const QString& title, const QString& className, WindowRole windowRole) const;
    bool isKindOf(const WzSubWindow& window) const;
    /// A window with default settings, not yet in the area; null, and an error line, when no content came of
    /// it.
    WzSubWindow* create(WzMdiArea& area, int instanceNumber) const;
};
