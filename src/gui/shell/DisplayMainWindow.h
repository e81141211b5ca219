#pragma once

#include "gui/framework/MainWindowBase.h"

#include <QBasicTimer>

class CommandExecutor;
class DatacoreGuiConnectionsManager;
class FunctionBar;
class KeypadOpener;
class Notice;
class ScreenPanels;
class ScreenTriggers;
class SettingStrip;
class SupportedSubWindows;
class ToolBar;
class WindowMover;
class WzClientPreset;
class WzMdiArea;
class WzSubWindowManager;

/// The screen of the display client: the instrument area, and over it the bars.
class DisplayMainWindow : public MainWindowBase {
    Q_OBJECT
public:
    DisplayMainWindow(ApplicationState& state, const ConnectionStatus& connection, WzCustomStyle& style,
                      DatacoreGuiConnectionsManager& connections, SupportedSubWindows& catalogue);
    ~DisplayMainWindow() override;

    WzMdiArea& area() const { return *m_area; }
    ToolBar& toolBar() const { return *m_toolBar; }
    WindowMover& mover() const { return *m_mover; }
    FunctionBar& functionBar() const { return *m_functionBar; }
    WzSubWindowManager& windows() const { return *m_windows; }
    ScreenPanels& panels() const { return *m_panels; }
    KeypadOpener& keypads() const { return *m_keypads; }
    CommandExecutor& commands() const { return *m_commands; }

    void showNotice(const QString& icon, const QString& text, const QString& detail) override;
    void editSetting(Setting& setting) override;

public slots:
    /// Both come, and go when they have not been used for a while.
    void showBars();
    void hideBars();
    /// Saves a picture of @p widget and says where. Returns its path, empty when it could not be saved.
    QString takeScreenshot(QWidget* widget);
    void pressFunctionButton(quint32 index);
    /// The function bar asks whether the windows of the layout are to go.
    void askBeforeClosingWindows();
    void onPopulateClientPreset(WzClientPreset& preset) const;
    void onLoadClientPreset(WzClientPreset& preset);

signals:
    /// The screen shows something for the first time.
    void firstFramePainted();
    void quitRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void setupToolBar(DatacoreGuiConnectionsManager& connections);
    void setupFunctionBar();
    void setupWindows();
    void setupKeys();
    void updateLayoutInToolBar();
    void placeSettingStrip();

    CommandExecutor* m_commands;
    WzMdiArea* m_area;
    WzSubWindowManager* m_windows;
    ToolBar* m_toolBar;
    FunctionBar* m_functionBar;
    Notice* m_notice;
    SettingStrip* m_settingStrip;
    ScreenPanels* m_panels;
    WindowMover* m_mover;
    KeypadOpener* m_keypads;
    ScreenTriggers* m_triggers = nullptr;
    QBasicTimer m_hideTimer;
};
