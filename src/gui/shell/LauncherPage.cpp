#include "gui/shell/LauncherPage.h"

#include "gui/control/TouchScroll.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/SupportedSubWindow.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/LauncherTile.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kMargin = 32;
constexpr int kTop = 24;
constexpr int kHeadingHeight = 26; ///< from the top of a heading to the tiles
constexpr int kTileGap = 12;
constexpr int kGroupGap = 28; ///< from tiles to the next heading
constexpr int kHeadingLineGap = 20;

constexpr QSize kPitch = LauncherTile::kFace + QSize(kTileGap, kTileGap);

} // namespace

/// Carries the tiles and draws the headings of their groups.
class LauncherPage::Content : public QWidget {
public:
    struct Heading {
        QString text;
        QRect place;
    };

    explicit Content(const WzCustomStyle& style)
        : m_style(style)
    {
    }
    std::vector<Heading> headings;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        painter.fillRect(event->rect(), m_style.colour(ColourRole::PanelBackdrop));
        painter.setFont(Fonts::ofPixels(Fonts::kTitlePixels));
        for (const Heading& heading : headings) {
            painter.setPen(m_style.colour(ColourRole::SecondaryText));
            painter.drawText(heading.place, Qt::AlignTop, heading.text);
            const int words = painter.fontMetrics().horizontalAdvance(heading.text);
            const int middle = heading.place.top() + painter.fontMetrics().height() / 2;
            const int left = heading.place.left() + words + kHeadingLineGap;
            painter.fillRect(left, middle, heading.place.right() - left, 1,
                             m_style.colour(ColourRole::Frame));
        }
    }

private:
    const WzCustomStyle& m_style;
};

LauncherPage::LauncherPage(WzSubWindowManager& windows, Favourites& favourites, const WzCustomStyle& style,
                           QWidget* parent)
    : QScrollArea(parent)
    , m_windows(windows)
    , m_favourites(favourites)
    , m_style(style)
    , m_content(new Content(style))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(m_content);
    TouchScroll::enable(*this);
    addTiles();
    connect(&m_favourites, &Favourites::changed, this, &LauncherPage::updateTiles);
    connect(&m_windows, &WzSubWindowManager::requestPopupButtonUpdate, this, &LauncherPage::updateTiles);
    updateTiles();
}

void LauncherPage::addTiles()
{
    const auto& kinds = m_windows.getAvailableSubWindows();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        auto* const tile = new LauncherTile(m_style, kinds[i].icon, kinds[i].windowTitle, m_content);
        connect(tile, &LauncherTile::focused, this, [this, i, tile] {
            m_current = i;
            ensureWidgetVisible(tile, 0, kGroupGap);
            emit currentChanged();
        });
        connect(tile, &QAbstractButton::clicked, this, [this, i] {
            m_current = i;
            openCurrent();
        });
        connect(tile, &HoldButton::contextMenuWanted, this,
                [this, i](const QPoint& place) { openContextMenu(i, place); });
        m_tiles.push_back(tile);
    }
}

std::vector<LauncherPage::Group> LauncherPage::groups() const
{
    std::vector<Group> groups;
    for (const SupportedSubWindow& kind : m_windows.getAvailableSubWindows()) {
        if (!isFitted(kind))
            continue;
        if (groups.empty() || groups.back().name != kind.group)
            groups.push_back({kind.group, 0});
        ++groups.back().count;
    }
    return groups;
}

/// Each group begins a row, but a small one stands beside the one before it where there is room.
void LauncherPage::layOutTiles()
{
    const int columns = qMax(1, (viewport()->width() - 2 * kMargin + kTileGap) / kPitch.width());
    m_content->headings.clear();
    int top = kTop;
    int column = 0;
    bool isFirst = true;
    const auto tiles = fittedTiles();
    std::size_t index = 0;
    for (const Group& group : groups()) {
        const bool fitsBeside = !isFirst && column > 0 && column + group.count <= columns;
        if (!isFirst && !fitsBeside) {
            top += kHeadingHeight + LauncherTile::kFace.height() + kGroupGap;
            column = 0;
        }
        isFirst = false;
        const int wide = qMin(group.count, columns - column);
        m_content->headings.push_back(
            {group.name,
             {kMargin + column * kPitch.width(), top, wide * kPitch.width() - kTileGap, kHeadingHeight}});
        for (int i = 0; i < group.count; ++i, ++index) {
            if (column == columns) {
                column = 0;
                top += kPitch.height();
            }
            const QPoint face(kMargin + column * kPitch.width(), top + kHeadingHeight);
            const int margin = LauncherTile::kMargin;
            tiles[index]->setGeometry({face - QPoint(margin, margin), tiles[index]->sizeHint()});
            ++column;
        }
    }
    const int bottom = top + kHeadingHeight + LauncherTile::kFace.height() + kTop;
    m_content->resize(viewport()->width(), qMax(bottom, viewport()->height()));
    m_content->update();
}

bool LauncherPage::isFitted(const SupportedSubWindow& kind) const
{
    return m_fitted.supports(kind.neededFeatures);
}

std::vector<LauncherTile*> LauncherPage::fittedTiles() const
{
    std::vector<LauncherTile*> tiles;
    const auto& kinds = m_windows.getAvailableSubWindows();
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        if (isFitted(kinds[i]))
            tiles.push_back(m_tiles[i]);
    }
    return tiles;
}

void LauncherPage::fromStatusCoreFittedFeaturesUpdated(QStringList values, QStringList, bool active)
{
    // An instrument that does not tell has everything.
    const auto fitted = active ? Velmora::Wz::Device::ofFeatureNames(values) : Velmora::Wz::Device::full();
    if (fitted == m_fitted)
        return;
    m_fitted = fitted;
    const auto& kinds = m_windows.getAvailableSubWindows();
    for (std::size_t i = 0; i < m_tiles.size(); ++i)
        m_tiles[i]->setVisible(isFitted(kinds[i]));
    layOutTiles();
    emit groupsChanged();
}

void LauncherPage::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    layOutTiles();
}

void LauncherPage::updateTiles()
{
    const auto& kinds = m_windows.getAvailableSubWindows();
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        m_tiles[i]->setOpenCount(openCount(kinds[i]));
        m_tiles[i]->setPinned(m_favourites.contains(favouriteOf(kinds[i])));
    }
    emit currentChanged();
}

int LauncherPage::openCount(const SupportedSubWindow& kind) const
{
    const auto windows = m_windows.getVisibleOpenWindows();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [&kind](const WzSubWindow* window) {
        return kind.isKindOf(*window);
    }));
}

LauncherTile* LauncherPage::tile(const QString& windowTitle) const
{
    const auto found = std::find_if(m_tiles.begin(), m_tiles.end(), [&windowTitle](const LauncherTile* tile) {
        return tile->text() == windowTitle;
    });
    return found == m_tiles.end() ? nullptr : *found;
}

const SupportedSubWindow* LauncherPage::current() const
{
    const auto& kinds = m_windows.getAvailableSubWindows();
    return m_current < kinds.size() ? &kinds[m_current] : nullptr;
}

void LauncherPage::focusCurrentTile()
{
    if (m_current < m_tiles.size())
        m_tiles[m_current]->setFocus(Qt::TabFocusReason);
}

void LauncherPage::showGroup(const QString& name)
{
    const auto& kinds = m_windows.getAvailableSubWindows();
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const SupportedSubWindow& kind) {
        return kind.group == name && isFitted(kind);
    });
    if (found == kinds.end())
        return;
    m_current = static_cast<std::size_t>(found - kinds.begin());
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    focusCurrentTile();
}

// --- What can be done with a kind

Favourite LauncherPage::favouriteOf(const SupportedSubWindow& kind)
{
    return {Favourite::Kind::Window, kind.windowTitle, kind.contentClassName, kind.role};
}

bool LauncherPage::isCurrentOpen() const
{
    return current() && openCount(*current()) > 0;
}

bool LauncherPage::mayOpenNewOfCurrent() const
{
    return current() && m_windows.getInstancesOfWindowCurrentlyOpen(*current()) < current()->maximumInstances;
}

bool LauncherPage::isCurrentPinned() const
{
    return current() && m_favourites.contains(favouriteOf(*current()));
}

void LauncherPage::openCurrent()
{
    if (!isCurrentOpen()) {
        openNewOfCurrent();
        return;
    }
    m_windows.restoreExistingSubWindows(*current());
    emit windowOpened();
}

void LauncherPage::openNewOfCurrent()
{
    if (!current())
        return;
    m_windows.onDefaultWindowRequested(current()->windowTitle, current()->contentClassName, current()->role);
    emit windowOpened();
}

void LauncherPage::closeOneOfCurrent()
{
    const auto windows = m_windows.getVisibleOpenWindows();
    const auto last = std::find_if(windows.rbegin(), windows.rend(), [this](const WzSubWindow* window) {
        return current() && current()->isKindOf(*window);
    });
    if (last == windows.rend())
        return;
    (*last)->close();
    updateTiles();
}

void LauncherPage::togglePinOfCurrent()
{
    if (!current())
        return;
    if (isCurrentPinned())
        m_favourites.unpin(favouriteOf(*current()));
    else
        m_favourites.pin(favouriteOf(*current()));
}

void LauncherPage::openContextMenu(std::size_t index, const QPoint& globalPosition)
{
    m_current = index;
    auto* const menu = new WzMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const QString& text, bool enabled, void (LauncherPage::*act)()) {
        QAction* const action = menu->addAction(text);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, act);
    };
    add(isCurrentOpen() ? tr("Bring to Front") : tr("Open"), true, &LauncherPage::openCurrent);
    add(tr("Open New"), mayOpenNewOfCurrent(), &LauncherPage::openNewOfCurrent);
    add(tr("Close"), isCurrentOpen(), &LauncherPage::closeOneOfCurrent);
    menu->addSeparator();
    add(isCurrentPinned() ? tr("Remove from Favourites") : tr("Add to Favourites"),
        isCurrentPinned() || !m_favourites.isFull(), &LauncherPage::togglePinOfCurrent);
    menu->popup(globalPosition);
}
