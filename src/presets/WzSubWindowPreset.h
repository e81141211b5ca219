#pragma once

#include "presets/PresetPacket.h"
#include "presets/WindowRole.h"

#include <QRect>

/// One sub-window: which instrument, where, and how its content is set.
class WzSubWindowPreset : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"WzSubWindowPreset", 17};

    explicit WzSubWindowPreset(const QString& windowContentClassName = {});

    QString getWindowContentClassName() const;
    void setWindowContentClassName(const QString& name);

    void setWindowTitle(const QString& title);
    bool containsWindowTitle() const;
    QString getWindowTitle() const;

    /// A number that no role has counts as absent.
    void setWindowRole(WindowRole role);
    bool containsWindowRole() const;
    WindowRole getWindowRole() const;

    /// In pixels of the instrument area. Four keys, set and read together.
    void setWindowBounds(const QRect& bounds);
    bool containsWindowBounds() const;
    QRect getWindowBounds() const;

    /// The bounds that the window returns to while the layout lock is on.
    void setWindowLockedDefaultBounds(const QRect& bounds);
    bool containsWindowLockedDefaultBounds() const;
    QRect getWindowLockedDefaultBounds() const;

    /// The window was full screen and had the focus.
    void setWindowFullScreenInFocus(bool fullScreenInFocus);
    bool containsWindowFullScreenInFocus() const;
    bool getWindowFullScreenInFocus() const;

    /// The content's own preset, of whatever class.
    void setWindowContentPreset(const SerialisableDataPacket& preset);
    bool containsWindowContentPreset() const;
    SerialisableDataPacket getWindowContentsPreset() const;

    void setStayOnTopState(bool stayOnTop);
    bool containsStayOnTopState() const;
    bool getStayOnTopState() const;

    /// Counts from 0 among the windows of one instrument.
    void setInstanceNumber(int instanceNumber);
    bool containsInstanceNumber() const;
    int getInstanceNumber() const;

    void setAnalyserId(quint32 analyserId);
    bool containsAnalyserId() const;
    quint32 getAnalyserId() const;

private:
    struct RectKeys;
    static const RectKeys kBoundsKeys;
    static const RectKeys kLockedDefaultBoundsKeys;

    void setRect(const RectKeys& keys, const QRect& rect);
    bool containsRect(const RectKeys& keys) const;
    QRect getRect(const RectKeys& keys) const;
};
