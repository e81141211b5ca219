#pragma once

#include <QMenu>

/// A menu of a window or of the screen. Its rows are drawn by the style, high enough for a finger.
class WzMenu : public QMenu {
    Q_OBJECT
public:
    using QMenu::QMenu;
};
