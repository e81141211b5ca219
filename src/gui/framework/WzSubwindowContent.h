#pragma once

#include "types/Device.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QIcon>
#include <QWidget>

#include <memory>
#include <vector>

class ContentHelpPage;
class ContentStateOverlay;
class FocusSweepManager;
class FunctionTrigger;
class SerialisableDataPacket;
class Setting;
class SettingList;
class WzCustomStyle;
class WzMenu;
class WzSubWindow;

/// Base of every instrument: a widget that lives in one WzSubWindow. It names its class and icon, says which
/// sizes it accepts, saves and restores what it keeps, and shows the states that all instruments share.
class WzSubwindowContent : public QWidget {
    Q_OBJECT
public:
    /// @p iconPath is the path of an icon resource.
    WzSubwindowContent(const QString& className, const QString& iconPath, WzSubWindow* subWindow,
                       Velmora::Wz::Device device);
    ~WzSubwindowContent() override;

    QString getClass() const { return m_className; }
    QIcon getIcon() const { return m_icon; }
    WzCustomStyle* getWzStyle() const { return m_style; }
    WzSubWindow* getSubWindow() const { return m_subWindow; }
    int getInstanceNumber() const;
    quint32 getAnalyserId() const;

    /// The content's saved state, of a class of its own; of the base class when it keeps nothing. By default
    /// its settings.
    virtual SerialisableDataPacket getWidgetStatesAsPreset();
    /// Takes a saved state. One of another class is left alone.
    virtual void loadWidgetStatesFromPreset(SerialisableDataPacket& preset);
    /// Adds the content's entries to the window's context menu: by default its settings.
    virtual void populateContextMenu(WzMenu* menu);
    /// What the function bar offers while the window is active: the settings, and what every window has.
    virtual std::vector<std::shared_ptr<FunctionTrigger>> functionTriggers();
    /// Limits and first size of the window in an instrument area of that size.
    virtual QSize getMinimumWindowSize(const QSize& area) const;
    virtual QSize getDefaultWindowSize(const QSize& area) const;
    virtual QSize getMaximumWindowSize(const QSize& area) const;
    /// Whether its window is the active one.
    virtual void setActive(bool active);
    /// Sizes the rows of its settings in the menu, for fingers or for a mouse.
    virtual void recalculateActionWidgetWidths(bool touchLayout);
    void initialiseTouchCompatibleMenus();

    /// What of the window can be set, each declared once.
    SettingList& settings() const { return *m_settings; }

    /// The controls that arrow keys and knob reach: all that can have the focus.
    FocusSweepManager& focusSweep() const { return *m_focusSweep; }

    /// The sizes of window that it accepts; empty when it takes any between its limits.
    std::vector<QSize> getAllowedWindowSizes() const { return m_allowedWindowSizes; }
    bool isScalable() const { return m_allowedWindowSizes.empty(); }
    void setAllowedWindowSizes(const std::vector<QSize>& sizes);
    void setAllowedWindowSizesSixteenthOnly();
    void setAllowedWindowSizesSixteenthAndQuarter();
    void setAllowedWindowSizesSixteenthQuarterFull();
    void setAllowedWindowSizesSixteenthAndSixteenthStretched();

    /// Secondary text for the title line.
    QString titleDetails() const { return m_titleDetails; }

    /// Whether a press there is the content's own although an edge of the window is near, which it would
    /// size otherwise: a handle that is dragged to the edge has to be dragged away again.
    virtual bool ownsPressAt(const QPoint&) const { return false; }

    /// Gives up the spotlight and closes the window. False when the window stays.
    bool requestWindowClose();

    /// The window's first size.
    QSize sizeHint() const override;

    /// Whether any of it can be seen. While it cannot, it is to cost nothing.
    bool isExposed() const { return m_exposed; }
    void setExposed(bool exposed);

    bool isFrozen() const { return m_frozenSince.isValid(); }
    QDateTime frozenSince() const { return m_frozenSince; }
    void setFrozen(bool frozen);

    /// What the "?" in the title shows; as rich text.
    virtual QString helpText() const;
    void toggleHelp();

    /// Freeze, help and screenshot, which every window has.
    void addCommonActions(WzMenu& menu);
    /// Keeps what lies over the content in its place.
    void layOverlays();

public slots:
    void onParentWindowSnapped();

signals:
    void windowSizeChanged(QSize size);
    void windowPositionChanged(QPoint globalPosition);
    void titleDetailsChanged(const QString& details);
    void frozenChanged(bool frozen);
    /// A picture of the window is wanted in a file.
    void screenshotRequested(QWidget* window);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;

    /// Follow and give up what the content receives, as it becomes visible or not.
    virtual void onExposedChanged(bool exposed);
    /// Hold, and let go, the picture that is shown.
    virtual void onFrozenChanged(bool frozen);
    /// The connection to the instrument came or went; values from before mean nothing any more.
    virtual void onConnectionChanged(bool connected);
    /// Values are overdue, for so many whole seconds; 0 when they come again.
    virtual void onStaleChanged(int seconds);

    /// Saves the settings that have a key in a preset of that class.
    void setPresetClassName(QLatin1String className) { m_presetClassName = className; }

    /// What the title line says at its right; also before there is one.
    void setTitleDetails(const QString& details);
    /// A value has come: the content is live.
    void noteDataArrived();
    /// Whether values are due all the time, so that their absence for a second is to be shown.
    void setUpdatesDue(bool due);
    int staleSeconds() const { return m_staleSeconds; }
    bool isConnected() const { return m_connected; }
    void setNoSignal(bool noSignal);
    /// How many packets were lost on their way since the content subscribed.
    void setLostCount(int lost);
    int lostCount() const { return m_lostCount; }

    const Velmora::Wz::Device m_device;

private:
    friend class ContentStateOverlay;

    void setupSettings();
    void followConnection();
    void onConnectionStatusChanged();
    void onTick();
    void setStaleSeconds(int seconds);
    void updateOverlay();
    bool isLive() const;

    WzSubWindow* const m_subWindow;
    WzCustomStyle* const m_style;
    const QString m_className;
    const QIcon m_icon;
    std::vector<QSize> m_allowedWindowSizes;

    QString m_titleDetails;
    SettingList* const m_settings;
    FocusSweepManager* const m_focusSweep;
    QLatin1String m_presetClassName;

    bool m_exposed = false;
    bool m_connected = false;
    bool m_hasData = false;
    bool m_updatesDue = false;
    bool m_noSignal = false;
    int m_lostCount = 0;
    int m_staleSeconds = 0;
    QElapsedTimer m_sinceData;
    QDateTime m_frozenSince;
    ContentStateOverlay* m_overlay = nullptr;
    ContentHelpPage* m_helpPage = nullptr;
};
