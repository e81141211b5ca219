#pragma once

#include "gui/shell/ShellPanel.h"

#include <QPointer>

class ConfirmationStrip;
class LayoutCard;
class QLabel;
class QScrollArea;
class ScreenPanels;
class WzSubWindowManager;

/// The overview of the layouts: a sketch of each, and what can be done with the one that is selected.
class LayoutsPanel : public ShellPanel {
    Q_OBJECT
public:
    static constexpr int kWidth = 1300;

    explicit LayoutsPanel(ScreenPanels& panels);

    int selected() const { return m_selected; }
    const std::vector<LayoutCard*>& cards() const { return m_cards; }
    /// Asks for another name of the selected layout.
    void rename();

protected:
    TriggerList functionTriggers() override;

private:
    void setupCommands();
    void setupDeletedLine();
    void refresh();
    void makeCards();
    void fillCards();
    void placeCards();
    void select(int index);
    void updateCommands();
    void openSelected();
    void addLayout();
    void duplicate();
    void move(bool earlier);
    void askBeforeDeleting();
    void deleteSelected();
    void bringBack();
    void openContextMenu(int index, const QPoint& globalPosition);
    void layOverCommands(QWidget* question);
    void endQuestion();
    bool isLocked() const;
    WzSubWindowManager& windows() const;

    ScreenPanels& m_panels;
    QScrollArea* m_scroll;
    QWidget* m_grid;
    LayoutCard* m_vacant = nullptr; ///< behind the last one
    QPushButton* m_add = nullptr;
    QPushButton* m_rename = nullptr;
    QPushButton* m_duplicate = nullptr;
    QPushButton* m_earlier = nullptr;
    QPushButton* m_later = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_bringBack = nullptr;
    QLabel* m_deletedText = nullptr;
    QPointer<QWidget> m_question; ///< a strip or an entry over the commands
    std::vector<LayoutCard*> m_cards;
    int m_selected = 0;
};
