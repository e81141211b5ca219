#pragma once

#include "gui/control/ElementState.h"
#include "gui/shell/Favourites.h"
#include "gui/shell/ShellPanel.h"

#include <QStringList>

class LauncherPage;
class ListRow;
class PanelColumn;
class ScreenPanels;

/// The main menu: its sections, what the chosen one has, and for the instruments the launcher beside them.
class MainMenu : public ShellPanel {
    Q_OBJECT
public:
    enum class Section { Instruments, Layouts, Presets, Inputs, System, Help, About };

    explicit MainMenu(ScreenPanels& panels);

    void showSection(Section section);
    LauncherPage& launcher() const { return *m_launcher; }
    /// The row of the first or second column with that text; null when there is none.
    ListRow* row(const QString& text) const;

public slots:
    void fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreSignalSourceAvailableNamesUpdated(QStringList values, QStringList reasons,
                                                         bool active);

signals:
    void toConfigCoreSignalSourceName(QString name);

protected:
    TriggerList functionTriggers() override;

private:
    void setupColumns();
    void addSections();
    ListRow* addSection(Section section, const QString& iconName, const QString& text);
    void showFavourites();
    void openFavouriteMenu(const Favourite& favourite, const QPoint& globalPosition);
    void fillEntries();
    void addGroups();
    void addLayouts();
    void addPresets();
    void addInputs();
    void addCommands(const QStringList& ids);
    void refreshCommands();
    void offerPin(ListRow* row, const Favourite& favourite);
    /// The menu goes, then @p action is done.
    void closeAndDo(const std::function<void()>& action);
    TriggerList launcherTriggers();

    ScreenPanels& m_panels;
    Section m_section = Section::Instruments;
    PanelColumn* m_sections = nullptr;
    PanelColumn* m_favourites = nullptr;
    PanelColumn* m_entries = nullptr;
    LauncherPage* m_launcher = nullptr;
    std::vector<std::pair<Section, ListRow*>> m_sectionRows;
    std::vector<std::pair<QString, ListRow*>> m_commandRows;
    ElementState m_input;
    QStringList m_inputNames;
};
