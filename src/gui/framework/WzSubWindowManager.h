#pragma once

#include "gui/framework/ClosedWindows.h"
#include "gui/framework/LayoutList.h"
#include "gui/framework/LayoutScreen.h"
#include "presets/WindowRole.h"

#include <QObject>

#include <deque>
#include <optional>
#include <vector>

class DatacoreGuiConnectionsManager;
class ScaledPicture;
class SupportedSubWindows;
class WzClientPreset;
class WzCustomStyle;
class WzMdiArea;
class WzSubWindow;
struct SupportedSubWindow;

/// Owns the open sub-windows' coming and going and the list of named layouts. It saves the screen into the
/// current layout before it leaves it, and rebuilds the screen from the one that comes.
class WzSubWindowManager : public QObject {
    Q_OBJECT
public:
    /// One row of the overview of layouts.
    struct LayoutOverview {
        QString name;
        int numberOfWindows = 0;
    };

    WzSubWindowManager(WzCustomStyle& style, DatacoreGuiConnectionsManager& connections, WzMdiArea& area,
                       SupportedSubWindows& catalogue, QObject* parent = nullptr);

    int getNumberLayouts() const { return m_layouts.count(); }
    int getCurrentWindowLayout() const { return m_layouts.currentIndex(); }
    QString getCurrentLayoutName() const;
    /// Where a step to the previous (true) or next layout leads; empty when nowhere.
    QString nameOfLayoutBeside(bool previous) const;
    /// Makes the layout current and rebuilds the screen. Another index does nothing.
    void setCurrentWindowLayout(int index);
    /// Whether the screen is being rebuilt, so that what moves is not moved by the user.
    bool getLayoutSwitchInProgress() const { return m_layoutSwitchInProgress; }
    std::vector<LayoutOverview> getLayoutOverview() const;
    /// The layout as it was last stored.
    const WindowLayoutPreset* layoutAt(int index) const;

    QString getNewLayoutName(const std::vector<LayoutOverview>& overviews, bool startAtOne) const;
    void renameLayout(int index, const QString& name);
    void moveLayout(int index, bool earlier);
    void duplicateLayout(int index);
    void addLayoutAtEnd(const QString& name);
    /// -1 stands for the current one; an index beyond the list for the nearest. The sole layout is emptied
    /// instead.
    void onDeleteLayout(int index, bool notify);
    void tidyUpEmptyLayoutsAtEnds(LayoutEnd end);
    /// The layout deleted last comes back, to its place.
    bool canRestoreDeletedLayout() const { return m_deletedLayout.has_value(); }
    QString deletedLayoutName() const;
    void restoreDeletedLayout();

    /// @p update brings the current layout up to date from the screen first.
    std::deque<WindowLayoutPreset> getWindowLayoutPresets(bool update);
    /// Shows the layout of that index where the list has one; else the index that is current stays.
    void loadWindowLayoutPresets(std::deque<WindowLayoutPreset> layouts, int current = -1);
    void initialiseLayouts();
    void resetToDefaults();
    /// Stores the screen into the current layout.
    void updateLayoutsFromCurrentSubWindows();

    void switchToWindow(const QString& title, int instanceNumber);
    void minimiseAllSubWindows();
    void closeAllSubWindows();
    std::vector<WzSubWindow*> getVisibleOpenWindows() const;
    int getInstancesOfWindowCurrentlyOpen(const SupportedSubWindow& kind) const;
    /// The smallest number, from 0, that no open window of the kind has.
    int getNextInstanceNumber(const SupportedSubWindow& kind) const;
    /// Brings the open windows of the kind to the front. False: no further one is to be opened.
    bool restoreExistingSubWindows(const SupportedSubWindow& kind);
    const std::vector<SupportedSubWindow>& getAvailableSubWindows() const;

    void resetLayoutLockFullscreen(WzSubWindow* window);
    /// Tells every content whether its window is the active one.
    void setWindowActiveStates();
    /// The other open windows that show the picture of @p index show copies of @p picture, or their own
    /// again.
    void createPictureCopyConnection(const ScaledPicture* picture, int index, bool connected);

    static void migrateOldWindowTitleToNewWindowTitle(QString& title);
    static void migrateOldWindowContentClassToNewWindowContentClass(QString& contentClass);

public slots:
    void onDefaultWindowRequested(QString title, QString contentClassName, WindowRole role);
    /// True goes to the previous layout, false to the next.
    void onSwitchWindowLayout(bool previous);
    void onSwitchFullScreenWindows(bool previous);
    void adjustLayoutsOnLayoutLockChanged(bool locked);
    void onWindowSizedForLockedLayout(WzSubWindow* window, bool fullScreen);
    void onPopulateClientPreset(WzClientPreset& preset);

signals:
    void windowDecorationDimensionsUpdated();
    void requestPopupButtonUpdate();
    void switchingLockedFullScreenMode();
    void presetLoaded();
    void subWindowInFocus();
    void requestCurrentLayoutNotification(QString name, int index, int count, bool switched);
    /// Windows of the layout that was just shown could not be made. They stay in the layout.
    void windowsLeftOut(QStringList titles);
    /// The list of layouts or the current one has changed.
    void layoutsChanged();
    /// It may be brought back.
    void layoutDeleted(const QString& name);
    /// A picture of @p window is wanted in a file.
    void screenshotRequested(QWidget* window);

private:
    void switchWindowLayout();
    WzSubWindow* createFor(const WzSubWindowPreset& preset);
    WzSubWindow* createWindow(const SupportedSubWindow& kind, int instanceNumber);
    void showDefaultWindow(const SupportedSubWindow& kind);
    void onWindowCloses(WzSubWindow* window);
    bool isLayoutEmpty(int index) const;
    bool mayGrow() const;
    void notifyCurrentLayout(bool switched);
    QString swipeNeighbourName(bool previous) const;

    WzCustomStyle& m_style;
    DatacoreGuiConnectionsManager& m_connections;
    WzMdiArea& m_area;
    SupportedSubWindows& m_catalogue;
    LayoutList m_layouts;
    LayoutScreen m_screen;
    ClosedWindows m_closedInThisLayout;
    bool m_layoutSwitchInProgress = false;
    struct DeletedLayout {
        int index;
        WindowLayoutPreset layout;
        bool wasTheOnlyOne;
    };
    std::optional<DeletedLayout> m_deletedLayout;
};
