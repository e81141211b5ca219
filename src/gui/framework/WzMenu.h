#pragma once

#include <QMenu>

/// A menu with rows high enough for a finger.
class WzMenu : public QMenu {
    Q_OBJECT
public:
    static constexpr int kRowHeight = 56;

    using QMenu::QMenu;
};
