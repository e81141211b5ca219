#pragma once

#include "gui/framework/ScreenGrid.h"
#include "presets/WzSubWindowPreset.h"

#include <QMdiSubWindow>

#include <memory>
#include <vector>

struct SupportedSubWindow;
class ContentStateOverlay;
class WzCustomStyle;
class WzMdiArea;
class WzMenu;
class WzSubwindowContent;
class WzTitleLine;

/// The frame around one instrument: a slim title line, a border that tells the active window, and the rules
/// of where the window may stand and how large it may be. Bounds are in pixels of the instrument area.
class WzSubWindow : public QMdiSubWindow {
    Q_OBJECT
public:
    using WindowRole = ::WindowRole;

    static constexpr int kTitleLineHeight = 30;
    /// Room for the border of the active window, which is 2 wide; it is kept by all, so that nothing moves.
    static constexpr int kBorder = 2;

    WzSubWindow(WzMdiArea& area, const SupportedSubWindow& kind, int instanceNumber);
    ~WzSubWindow() override;

    /// The window that @p widget is or lies in; null when it lies in none.
    static WzSubWindow* holding(QWidget* widget);

    WzCustomStyle* getWzStyle() const;
    WzMdiArea& area() const { return m_area; }

    /// Takes the content, which is to be made with this window as its parent. False when it is null.
    bool setContent(WzSubwindowContent* content);
    WzSubwindowContent* content() const { return m_content; }

    QString getContentClassName() const { return m_contentClassName; }
    WindowRole getWindowRole() const { return m_role; }
    /// Counts from 0.
    int getInstanceNumber() const { return m_instanceNumber; }
    quint32 getAnalyserId() const { return m_analyserId; }
    void setAnalyserId(quint32 analyserId) { m_analyserId = analyserId; }
    bool staysOnTop() const { return m_staysOnTop; }
    void setStaysOnTop(bool staysOnTop);

    WzSubWindowPreset getWindowAndWindowContentStatesAsPreset() const;
    /// Whether it is the window that the preset is of. One without a number is of any instance.
    bool isMeantBy(const WzSubWindowPreset& preset) const;
    /// Place, size and number.
    void loadWindowStatesFromPreset(const WzSubWindowPreset& preset);
    /// What the content keeps, and whether the window stays on top.
    void loadWindowContentStatesFromPreset(const WzSubWindowPreset& preset);

    /// Moves and sizes the window within the area: to the nearest size that the content allows, snapped.
    void setBounds(const QRect& bounds);
    /// The nearest size that the content allows.
    QSize permittedSize(const QSize& wanted) const;
    /// The bounds to which setBounds() would bring it.
    QRect permittedBounds(const QRect& bounds) const;
    /// Where it stands when it is not full screen.
    QRect normalBounds() const { return m_fullScreen ? m_normalBounds : geometry(); }

    bool isSubWindowFullScreen() const { return m_fullScreen; }
    void setSubWindowFullScreen(bool fullScreen);
    void toggleFullScreen() { setSubWindowFullScreen(!m_fullScreen); }

    void setLayoutLocked(bool locked);
    QRect lockedDefaultBounds() const { return m_lockedDefaultBounds; }

    /// Gives a window that was just added to the area its first place.
    void placeInArea();
    /// Follows a change of the area's size.
    void onAreaResized();

    /// Whether the border shows the active window.
    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);

    /// The sixteen cells, as they were when the last sub-window was made or the area changed its size.
    static const ScreenGrid::CellRects& screenSedecimants();
    static void populateScreenSedecimants(const QRect& area);
    /// Whether a full-screen window has stood at the place of @p requested.
    static bool clashesWithFullScreenPositionHistory(const QRect& requested);
    /// What the other visible windows occupy; a full-screen one counts with the place that it returns to.
    std::vector<QRect> getUsedScreenAreas() const;

    /// Where a finger hits the "?"; empty while there is no title line.
    QRect helpReach() const;

    /// The entries of the content and of the window.
    void populateContextMenu(WzMenu* menu);
    void openContextMenu(const QPoint& globalPosition);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {}; }

signals:
    void positionSnapped();
    void windowResizedForLockedLayout(WzSubWindow* window, bool fullScreen);
    /// The window is about to close; its state may still be read.
    void clientPresetSaveRequest();
    void windowSizeHighlightChanged();
    void subWindowInFocus();
    /// For the bars, which give way to a full-screen window.
    void fullScreenChanged(bool fullScreen);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // The window manager of Qt would move and size the window by its own rules: WindowDrag does it.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void addOwnSettings(WzMenu& menu);
    void updateWindowFlags();
    void placeAsStored(const QRect& bounds);
    void moveTo(const QRect& bounds);
    QRect freePlaceFor(const QRect& requested) const;

    WzMdiArea& m_area;
    const QString m_contentClassName;
    const WindowRole m_role;
    int m_instanceNumber;
    quint32 m_analyserId = 0;
    bool m_staysOnTop = false;
    bool m_fullScreen = false;
    bool m_layoutLocked = false;
    bool m_highlighted = false;
    QRect m_normalBounds;
    /// Where it stands on a screen that has the room, until somebody moves it on this one.
    QRect m_boundsOfLargerArea;
    QRect m_lockedDefaultBounds;
    WzTitleLine* const m_titleLine;
    WzSubwindowContent* m_content = nullptr;
};
