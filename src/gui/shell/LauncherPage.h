#pragma once

#include "gui/shell/Favourites.h"
#include "types/Device.h"

#include <QScrollArea>

#include <vector>

class LauncherTile;
class WzCustomStyle;
class WzSubWindowManager;
struct SupportedSubWindow;

/// The kinds of window as tiles, by group. A tile opens a window, or brings those of its kind to the front.
class LauncherPage : public QScrollArea {
    Q_OBJECT
public:
    struct Group {
        QString name;
        int count = 0;
    };

    LauncherPage(WzSubWindowManager& windows, Favourites& favourites, const WzCustomStyle& style,
                 QWidget* parent);

    std::vector<Group> groups() const;
    LauncherTile* tile(const QString& windowTitle) const;
    /// The tile that had the focus last, or the first one; null when there is none.
    const SupportedSubWindow* current() const;
    void focusCurrentTile();
    /// Gives the focus to its first tile.
    void showGroup(const QString& name);

    void openCurrent();
    void openNewOfCurrent();
    void closeOneOfCurrent();
    void togglePinOfCurrent();
    bool isCurrentPinned() const;
    bool mayOpenNewOfCurrent() const;
    bool isCurrentOpen() const;

    static Favourite favouriteOf(const SupportedSubWindow& kind);

public slots:
    /// Tiles of what the instrument is not fitted with go.
    void fromStatusCoreFittedFeaturesUpdated(QStringList values, QStringList reasons, bool active);

signals:
    /// The tiles that there are have changed.
    void groupsChanged();
    /// A window was opened or brought to the front.
    void windowOpened();
    void currentChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Entry;
    class Content;

    void addTiles();
    void layOutTiles();
    void updateTiles();
    void openContextMenu(std::size_t index, const QPoint& globalPosition);
    std::vector<LauncherTile*> fittedTiles() const;
    bool isFitted(const SupportedSubWindow& kind) const;
    int openCount(const SupportedSubWindow& kind) const;

    WzSubWindowManager& m_windows;
    Favourites& m_favourites;
    const WzCustomStyle& m_style;
    Content* m_content;
    std::vector<LauncherTile*> m_tiles; ///< in the order of the catalogue
    std::size_t m_current = 0;
    Velmora::Wz::Device m_fitted = Velmora::Wz::Device::full();
};
