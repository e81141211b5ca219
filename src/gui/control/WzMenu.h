#pragma once

#include <QMenu>

class FocusSweepManager;

/// A menu of a window or of the screen. Its rows are drawn by the style, high enough for a finger; rows with
/// controls are reached by arrow keys and knob like all others.
class WzMenu : public QMenu {
    Q_OBJECT
public:
    explicit WzMenu(QWidget* parent = nullptr);
    explicit WzMenu(const QString& title, QWidget* parent = nullptr);

    /// Appends a row with controls, which the menu owns from now on.
    QAction* addRow(QWidget* row, const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool filterKey(QKeyEvent& event);
    void watch(QWidget* widget);

    FocusSweepManager* const m_sweep;
};
