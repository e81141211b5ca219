#pragma once

#include <QString>

#include <functional>
#include <vector>

/// What can be asked of the screen by name: from the menu, or as a favourite. A value.
struct ScreenCommand {
    QString id; ///< as favourites save it
    QString text;
    QString icon;
    std::function<void()> run;
    /// Why it cannot be given now; empty when it can. May be missing.
    std::function<QString()> whyNot = {};
    /// What it has been set to: "On". May be missing.
    std::function<QString()> state = {};

    bool canRun() const { return !whyNot || whyNot().isEmpty(); }
};

/// The commands of the screen, in the order of the menu.
class ScreenCommands {
public:
    void add(ScreenCommand command) { m_all.push_back(std::move(command)); }
    const std::vector<ScreenCommand>& all() const { return m_all; }
    /// Null when there is none.
    const ScreenCommand* find(const QString& id) const;

private:
    std::vector<ScreenCommand> m_all;
};
