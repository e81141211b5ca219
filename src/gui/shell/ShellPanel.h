#pragma once

#include "gui/control/TriggerBanks.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class FocusSweepManager;
class MainWindowBase;
class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;
class WzCustomStyle;

/// Base of what the shell lays over the instrument area: menu, launcher, dialogs. The measurement goes on
/// behind it. It has the function bar while it is open, and is left by its close button, Escape, the back
/// arrow, or a tap beside it; it deletes itself then.
class ShellPanel : public QWidget {
    Q_OBJECT
public:
    /// Where the card with the contents stands.
    enum class Place {
        Middle, ///< as large as its contents
        Left, ///< as high as the area and as wide as it is told
        Right,
        Full,
    };

    ShellPanel(MainWindowBase& window, const QString& iconName, const QString& title,
               Place place = Place::Middle);
    ~ShellPanel() override;

    /// Shows it between the bars, and gives it the focus and the function bar.
    void open();
    /// Closes it without giving the focus back: who had it may be dying.
    void abandon();
    /// Whether a tap at that place, in the coordinates of the panel, is one beside it.
    bool isBeside(const QPoint& position) const;

    static constexpr int kPadding = 16; ///< from the card's edge to text
    static constexpr int kGroupGap = 24;
    static constexpr int kGap = 8; ///< between what can be touched

protected:
    using Trigger = TriggerBanks::Trigger;
    using TriggerList = TriggerBanks::TriggerList;

    MainWindowBase& mainWindow() const { return m_mainWindow; }
    WzCustomStyle& wzStyle() const;
    FocusSweepManager& sweep() const { return *m_sweep; }
    QWidget& card() const { return *m_card; }
    /// Below the title line.
    QVBoxLayout& contents() const { return *m_contents; }
    void setCardWidth(int width);
    /// Secondary text behind the title.
    void setTitleDetail(const QString& detail);
    void hideTitleLine();

    /// What the function bar offers: the panel's commands that can be given now.
    virtual TriggerList functionTriggers();
    void updateFunctionTriggers();
    Trigger makeTrigger(const QString& text, const QString& iconName, std::function<void()> action) const;
    /// A button in the row at the foot of the card, which the function bar offers, too.
    QPushButton* addCommand(const QString& text, const QString& iconName);
    /// The icon takes the colours of every theme that comes.
    void setIcon(QAbstractButton* button, const QString& iconName);
    /// Who gets the focus when the panel opens; else its first control. @p isSelected: arrows and knob are
    /// the control's own at once.
    void setFirstFocus(QWidget* widget, bool isSelected = false);
    /// What Escape does.
    virtual void leave() { close(); }
    /// The colours of the theme have changed.
    virtual void onThemeChanged() { }

    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setupTitleLine(const QString& iconName, const QString& title);
    void placePanel();
    void placeCard();
    void applyTheme();
    void takeKeys();
    void giveKeysBack();

    MainWindowBase& m_mainWindow;
    const Place m_place;
    QWidget* m_card;
    QWidget* m_titleLine;
    QLabel* m_titleDetail = nullptr;
    FocusSweepManager* const m_sweep;
    QVBoxLayout* m_contents;
    QHBoxLayout* m_commands = nullptr;
    std::vector<QPushButton*> m_commandButtons;
    QPointer<QWidget> m_firstFocus;
    bool m_firstFocusIsSelected = false;
    QPointer<QWidget> m_focusBefore;
    /// Whose keys they were before: those of a window, or of another panel below.
    QPointer<FocusSweepManager> m_sweepBefore;
    QPointer<FocusSweepManager> m_previousBefore;
    int m_cardWidth = 0;
};
