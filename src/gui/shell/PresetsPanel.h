#pragma once

#include "gui/shell/ShellPanel.h"

#include <QPointer>

class ProgressBar;
class PresetList;
class PresetRequests;
class QGridLayout;
class QLabel;
class ScreenPanels;

/// The presets on the instrument, in the user's order, and what can be done with the one that is selected.
class PresetsPanel : public ShellPanel {
    Q_OBJECT
public:
    static constexpr int kWidth = 620;
    /// While a name is entered, so that the keys on the screen have their size.
    static constexpr int kEntryWidth = 960;

    explicit PresetsPanel(ScreenPanels& panels);

    PresetList& list() const { return *m_list; }
    /// Asks under which name the screen is to be kept.
    void askForName();

protected:
    TriggerList functionTriggers() override;
    void onThemeChanged() override;

private:
    void setupStatus();
    void setupCommands();
    QPushButton* addButton(QGridLayout& grid, const QString& text, const char* icon,
                           void (PresetsPanel::*act)());
    void refresh();
    void fillList();
    void updateCommands();
    void showStatus();

    void loadSelected();
    void askBeforeOverwriting();
    void askBeforeOverwriting(const QString& name);
    void askForNewName();
    void askBeforeDeleting();
    void moveUp();
    void moveDown();
    void exportSelected();
    void openImport();
    void openContextMenu(const QPoint& globalPosition);

    void ask(const QString& question, const QString& loss, const QString& destroy, const char* icon,
             std::function<void()> action);
    void enterName(const QString& proposed, std::function<void(const QString&)> action);
    QRect placeOfQuestion(int height) const;
    void endQuestion();
    QString selected() const;

    ScreenPanels& m_panels;
    PresetRequests& m_presets;
    PresetList* m_list;
    QLabel* m_status = nullptr;
    QLabel* m_failed = nullptr;
    ProgressBar* m_busy = nullptr;
    std::vector<QPushButton*> m_buttons;
    QPushButton* m_load = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_overwrite = nullptr;
    QPushButton* m_rename = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_import = nullptr;
    QPointer<QWidget> m_question; ///< a strip or an entry over the commands
};
