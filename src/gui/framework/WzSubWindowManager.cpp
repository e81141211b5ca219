#include "gui/framework/WzSubWindowManager.h"

#include "gui/framework/ApplicationState.h"
#include "gui/framework/LayoutNames.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/picture/ScaledPicture.h"
#include "gui/style/WzCustomStyle.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "presets/WzClientPreset.h"

#include <QScopedValueRollback>

#include <algorithm>

WzSubWindowManager::WzSubWindowManager(WzCustomStyle& style, DatacoreGuiConnectionsManager& connections,
                                       WzMdiArea& area, SupportedSubWindows& catalogue, QObject* parent)
    : QObject(parent)
    , m_style(style)
    , m_connections(connections)
    , m_area(area)
    , m_catalogue(catalogue)
    , m_screen(area, [this](const WzSubWindowPreset& preset) { return createFor(preset); })
{
    initialiseLayouts();
    m_area.setSwipeNeighbourName([this](bool previous) { return swipeNeighbourName(previous); });
    connect(&m_catalogue, &SupportedSubWindows::windowRequested, this,
            &WzSubWindowManager::onDefaultWindowRequested);
    connect(&m_area, &WzMdiArea::switchWindowLayout, this, &WzSubWindowManager::onSwitchWindowLayout);
    connect(&m_area, &WzMdiArea::switchFullScreenWindows, &m_area, &WzMdiArea::stepFullScreenWindows);
    connect(&m_area.applicationState(), &ApplicationState::layoutLockChanged, this,
            &WzSubWindowManager::adjustLayoutsOnLayoutLockChanged);
}

// --- The list of layouts

QString WzSubWindowManager::getCurrentLayoutName() const
{
    return m_layouts.isEmpty() ? QString() : m_layouts.current()->getLayoutName();
}

void WzSubWindowManager::setCurrentWindowLayout(int index)
{
    if (!m_layouts.isIndex(index))
        return;
    if (index != m_layouts.currentIndex())
        updateLayoutsFromCurrentSubWindows();
    m_layouts.setCurrentIndex(index);
    switchWindowLayout();
}

std::vector<WzSubWindowManager::LayoutOverview> WzSubWindowManager::getLayoutOverview() const
{
    std::vector<LayoutOverview> overview;
    for (int i = 0; i < m_layouts.count(); ++i) {
        const bool isCurrent = i == m_layouts.currentIndex();
        const int windows =
            isCurrent ? static_cast<int>(getVisibleOpenWindows().size()) : m_layouts.at(i).subWindowCount();
        overview.push_back({m_layouts.at(i).getLayoutName(), windows});
    }
    return overview;
}

const WindowLayoutPreset* WzSubWindowManager::layoutAt(int index) const
{
    return m_layouts.isIndex(index) ? &m_layouts.at(index) : nullptr;
}

QString WzSubWindowManager::getNewLayoutName(const std::vector<LayoutOverview>& overviews,
                                             bool startAtOne) const
{
    QStringList names;
    for (const LayoutOverview& overview : overviews)
        names.append(overview.name);
    return LayoutNames::newName(names, startAtOne);
}

void WzSubWindowManager::renameLayout(int index, const QString& name)
{
    if (m_layouts.rename(index, name))
        emit layoutsChanged();
}

void WzSubWindowManager::moveLayout(int index, bool earlier)
{
    if (m_layouts.move(index, earlier))
        emit layoutsChanged();
}

void WzSubWindowManager::duplicateLayout(int index)
{
    if (index == m_layouts.currentIndex())
        updateLayoutsFromCurrentSubWindows();
    if (m_layouts.duplicate(index))
        emit layoutsChanged();
}

void WzSubWindowManager::addLayoutAtEnd(const QString& name)
{
    m_layouts.addEmpty(LayoutEnd::End, name);
    emit layoutsChanged();
}

void WzSubWindowManager::onDeleteLayout(int index, bool notify)
{
    if (m_area.applicationState().isLayoutLocked() || m_layouts.isEmpty())
        return;
    const int target = index == -1 ? m_layouts.currentIndex() : std::clamp(index, 0, m_layouts.count() - 1);
    const bool meansCurrent = target == m_layouts.currentIndex();
    if (meansCurrent)
        updateLayoutsFromCurrentSubWindows();
    m_deletedLayout = DeletedLayout{target, m_layouts.at(target), m_layouts.count() == 1};
    if (m_layouts.count() == 1) {
        closeAllSubWindows();
        m_screen.forgetLeftOut();
        m_layouts.reset();
    } else {
        m_layouts.remove(target);
        if (meansCurrent)
            switchWindowLayout();
        if (notify)
            notifyCurrentLayout(meansCurrent);
    }
    emit layoutsChanged();
    emit layoutDeleted(deletedLayoutName());
}

QString WzSubWindowManager::deletedLayoutName() const
{
    return m_deletedLayout ? m_deletedLayout->layout.getLayoutName() : QString();
}

void WzSubWindowManager::restoreDeletedLayout()
{
    if (!m_deletedLayout || m_area.applicationState().isLayoutLocked())
        return;
    updateLayoutsFromCurrentSubWindows();
    const DeletedLayout deleted = *std::exchange(m_deletedLayout, std::nullopt);
    // The empty one that has stood in for it goes.
    const bool replaces = deleted.wasTheOnlyOne && m_layouts.count() == 1 && isLayoutEmpty(0);
    m_layouts.setCurrentIndex(m_layouts.insert(deleted.index, deleted.layout));
    if (replaces)
        m_layouts.remove(1);
    switchWindowLayout();
    notifyCurrentLayout(true);
}

void WzSubWindowManager::tidyUpEmptyLayoutsAtEnds(LayoutEnd end)
{
    updateLayoutsFromCurrentSubWindows();
    const bool currentMayGo = isLayoutEmpty(m_layouts.currentIndex());
    if (!m_layouts.tidyEnds(end, [this](int index) { return isLayoutEmpty(index); }))
        return;
    // Another layout may be current now: an empty screen must not be stored into it.
    if (currentMayGo)
        switchWindowLayout();
    notifyCurrentLayout(false);
    emit layoutsChanged();
}

bool WzSubWindowManager::isLayoutEmpty(int index) const
{
    return index == m_layouts.currentIndex()
        ? getVisibleOpenWindows().empty() && m_screen.leftOutTitles().isEmpty()
        : m_layouts.at(index).subWindowCount() == 0;
}

void WzSubWindowManager::notifyCurrentLayout(bool switched)
{
    emit requestCurrentLayoutNotification(getCurrentLayoutName(), m_layouts.currentIndex(), m_layouts.count(),
                                          switched);
}

std::deque<WindowLayoutPreset> WzSubWindowManager::getWindowLayoutPresets(bool update)
{
    if (update)
        updateLayoutsFromCurrentSubWindows();
    return m_layouts.layouts();
}

void WzSubWindowManager::loadWindowLayoutPresets(std::deque<WindowLayoutPreset> layouts, int current)
{
    if (layouts.size() > LayoutList::kMost) {
        Velmora::log()->warn("A preset holds {} layouts: only the first {} are taken", layouts.size(),
                             LayoutList::kMost);
        layouts.resize(LayoutList::kMost);
    }
    m_layouts.replace(std::move(layouts));
    m_layouts.setCurrentIndex(current);
    if (m_layouts.isEmpty())
        m_layouts.reset();
    m_deletedLayout.reset();
    switchWindowLayout();
    m_area.updateOverlayZOrder();
    emit presetLoaded();
}

void WzSubWindowManager::initialiseLayouts()
{
    m_layouts.reset();
    emit layoutsChanged();
}

void WzSubWindowManager::resetToDefaults()
{
    initialiseLayouts();
    switchWindowLayout();
}

void WzSubWindowManager::onPopulateClientPreset(WzClientPreset& preset)
{
    preset.setWindowLayoutPresets(getWindowLayoutPresets(true));
}

// --- Swiping

bool WzSubWindowManager::mayGrow() const
{
    return !m_area.applicationState().isLayoutLocked() && !getVisibleOpenWindows().empty()
        && m_layouts.count() < LayoutList::kMaximumBySwiping;
}

QString WzSubWindowManager::nameOfLayoutBeside(bool previous) const
{
    const int target = m_layouts.currentIndex() + (previous ? -1 : 1);
    if (m_layouts.isIndex(target))
        return m_layouts.at(target).getLayoutName();
    return mayGrow() ? tr("New layout") : QString();
}

/// Under the lock a swipe goes through the windows at full screen instead.
QString WzSubWindowManager::swipeNeighbourName(bool previous) const
{
    if (!m_area.applicationState().isLayoutLocked())
        return nameOfLayoutBeside(previous);
    if (!m_area.canStepFullScreenWindows())
        return {};
    return previous ? tr("Previous window") : tr("Next window");
}

void WzSubWindowManager::onSwitchWindowLayout(bool previous)
{
    if (m_layouts.isEmpty())
        return;
    int target = m_layouts.currentIndex() + (previous ? -1 : 1);
    const bool leavesTheList = !m_layouts.isIndex(target);
    if (leavesTheList && !mayGrow())
        return;
    updateLayoutsFromCurrentSubWindows();
    if (leavesTheList) {
        m_layouts.addEmpty(previous ? LayoutEnd::Start : LayoutEnd::End,
                           getNewLayoutName(getLayoutOverview(), false));
        target = previous ? 0 : m_layouts.count() - 1;
    }
    m_layouts.setCurrentIndex(target);
    switchWindowLayout();
    // The layout just reached stays, or a fresh empty one would vanish at once.
    m_layouts.tidyEnds(
        LayoutEnd::Both, [this](int index) { return isLayoutEmpty(index); }, m_layouts.currentIndex());
    notifyCurrentLayout(true);
    emit layoutsChanged();
}

void WzSubWindowManager::onSwitchFullScreenWindows(bool previous)
{
    if (m_area.applicationState().isLayoutLocked())
        emit m_area.switchFullScreenWindows(previous);
}

// --- The screen

void WzSubWindowManager::updateLayoutsFromCurrentSubWindows()
{
    WindowLayoutPreset* const current = m_layouts.current();
    if (current && !m_layoutSwitchInProgress)
        *current = m_screen.capture(current->getLayoutName());
}

void WzSubWindowManager::switchWindowLayout()
{
    const QScopedValueRollback inProgress(m_layoutSwitchInProgress, true);
    m_closedInThisLayout.clear();
    // No half-built screen is seen.
    m_area.viewport()->setUpdatesEnabled(false);
    if (const WindowLayoutPreset* const layout = m_layouts.current())
        m_screen.rebuild(*layout);
    m_area.viewport()->setUpdatesEnabled(true);
    setWindowActiveStates();
    emit m_area.updateWindowFocusSweep();
    emit requestPopupButtonUpdate();
    emit layoutsChanged();
    if (const QStringList titles = m_screen.leftOutTitles(); !titles.isEmpty())
        emit windowsLeftOut(titles);
}

WzSubWindow* WzSubWindowManager::createFor(const WzSubWindowPreset& preset)
{
    const SupportedSubWindow* const kind =
        m_catalogue.find(preset.getWindowTitle(), preset.getWindowContentClassName(), preset.getWindowRole());
    if (!kind) {
        Velmora::log()->warn("Unknown window \"{}\" ({}) in a layout: left out", preset.getWindowTitle(),
                             preset.getWindowContentClassName());
        return nullptr;
    }
    if (getInstancesOfWindowCurrentlyOpen(*kind) >= kind->maximumInstances) {
        Velmora::log()->warn("Too many windows \"{}\" in a layout: left out", preset.getWindowTitle());
        return nullptr;
    }
    const int wanted = preset.containsInstanceNumber() ? preset.getInstanceNumber() : -1;
    return createWindow(*kind, wanted >= 0 ? wanted : getNextInstanceNumber(*kind));
}

// --- Windows

void WzSubWindowManager::onDefaultWindowRequested(QString title, QString contentClassName, WindowRole role)
{
    for (const SupportedSubWindow& kind : m_catalogue.getAvailableSubWindows()) {
        if (!kind.is(title, contentClassName, role))
            continue;
        const bool isFull = getInstancesOfWindowCurrentlyOpen(kind) >= kind.maximumInstances;
        if (!isFull || restoreExistingSubWindows(kind))
            showDefaultWindow(kind);
    }
    emit m_area.updateWindowFocusSweep();
}

void WzSubWindowManager::showDefaultWindow(const SupportedSubWindow& kind)
{
    WzSubWindow* const window = createWindow(kind, getNextInstanceNumber(kind));
    if (!window)
        return;
    m_closedInThisLayout.loadContent(*window, m_layouts.current());
    window->placeInArea();
    window->show();
    m_area.setActiveSubWindow(window);
    m_area.updateOverlayZOrder();
    emit requestPopupButtonUpdate();
}

WzSubWindow* WzSubWindowManager::createWindow(const SupportedSubWindow& kind, int instanceNumber)
{
    WzSubWindow* const window = kind.create(m_area, instanceNumber);
    if (!window)
        return nullptr;
    connect(&m_style, &WzCustomStyle::subWindowSettingsaUpdated, window, qOverload<>(&QWidget::update));
    connect(window, &WzSubWindow::windowResizedForLockedLayout, this,
            &WzSubWindowManager::onWindowSizedForLockedLayout);
    connect(window, &WzSubWindow::clientPresetSaveRequest, this, [this, window] { onWindowCloses(window); });
    connect(window, &WzSubWindow::windowSizeHighlightChanged, this,
            &WzSubWindowManager::setWindowActiveStates);
    connect(window, &WzSubWindow::subWindowInFocus, this, &WzSubWindowManager::subWindowInFocus);
    connect(window->content(), &WzSubwindowContent::screenshotRequested, this,
            &WzSubWindowManager::screenshotRequested);
    window->content()->initialiseTouchCompatibleMenus();
    m_area.addWzSubWindow(window);
    window->setLayoutLocked(m_area.applicationState().isLayoutLocked());
    return window;
}

void WzSubWindowManager::onWindowCloses(WzSubWindow* window)
{
    emit m_area.windowClosed();
    WindowLayoutPreset* const current = m_layouts.current();
    if (current && !m_layoutSwitchInProgress)
        m_closedInThisLayout.note(*window, *current);
}

void WzSubWindowManager::switchToWindow(const QString& title, int instanceNumber)
{
    for (WzSubWindow* const window : m_area.wzSubWindows()) {
        if (window->windowTitle() == title && window->getInstanceNumber() == instanceNumber) {
            window->show();
            m_area.setActiveSubWindow(window);
            return;
        }
    }
}

void WzSubWindowManager::minimiseAllSubWindows()
{
    for (WzSubWindow* const window : m_area.wzSubWindows())
        window->hide();
    emit m_area.updateWindowFocusSweep();
    emit requestPopupButtonUpdate();
}

void WzSubWindowManager::closeAllSubWindows()
{
    for (WzSubWindow* const window : m_area.wzSubWindows())
        window->close();
    emit requestPopupButtonUpdate();
}

std::vector<WzSubWindow*> WzSubWindowManager::getVisibleOpenWindows() const
{
    return m_screen.windows();
}

int WzSubWindowManager::getInstancesOfWindowCurrentlyOpen(const SupportedSubWindow& kind) const
{
    const auto windows = m_area.wzSubWindows();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [&kind](const WzSubWindow* window) {
        return kind.isKindOf(*window);
    }));
}

int WzSubWindowManager::getNextInstanceNumber(const SupportedSubWindow& kind) const
{
    std::vector<int> taken;
    for (const WzSubWindow* const window : m_area.wzSubWindows()) {
        if (kind.isKindOf(*window))
            taken.push_back(window->getInstanceNumber());
    }
    int number = 0;
    while (std::find(taken.begin(), taken.end(), number) != taken.end())
        ++number;
    return number;
}

bool WzSubWindowManager::restoreExistingSubWindows(const SupportedSubWindow& kind)
{
    for (WzSubWindow* const window : m_area.wzSubWindows()) {
        if (!kind.isKindOf(*window))
            continue;
        window->show();
        m_area.setActiveSubWindow(window);
    }
    return false;
}

const std::vector<SupportedSubWindow>& WzSubWindowManager::getAvailableSubWindows() const
{
    return m_catalogue.getAvailableSubWindows();
}

void WzSubWindowManager::setWindowActiveStates()
{
    for (WzSubWindow* const window : m_area.wzSubWindows()) {
        if (window->content())
            window->content()->setActive(window->isHighlighted());
    }
}

void WzSubWindowManager::createPictureCopyConnection(const ScaledPicture* picture, int index, bool connected)
{
    if (!picture)
        return;
    for (const WzSubWindow* const window : m_area.wzSubWindows()) {
        for (ScaledPicture* const other : window->findChildren<ScaledPicture*>()) {
            if (other == picture || other->index() != index)
                continue;
            if (connected) {
                connect(picture, &ScaledPicture::shown, other, &ScaledPicture::showCopy,
                        Qt::UniqueConnection);
            } else {
                disconnect(picture, &ScaledPicture::shown, other, &ScaledPicture::showCopy);
                other->showCopy({});
            }
        }
    }
}

// --- Layout lock

void WzSubWindowManager::adjustLayoutsOnLayoutLockChanged(bool locked)
{
    m_area.cancelDrag();
    m_area.viewport()->setUpdatesEnabled(false);
    for (WzSubWindow* const window : m_area.wzSubWindows())
        window->setLayoutLocked(locked);
    m_area.viewport()->setUpdatesEnabled(true);
    emit windowDecorationDimensionsUpdated();
}

void WzSubWindowManager::onWindowSizedForLockedLayout(WzSubWindow* window, bool fullScreen)
{
    if (fullScreen) {
        for (WzSubWindow* const other : m_area.wzSubWindows()) {
            if (other != window && other->isSubWindowFullScreen())
                other->setSubWindowFullScreen(false);
        }
    } else {
        resetLayoutLockFullscreen(window);
    }
    emit switchingLockedFullScreenMode();
}

void WzSubWindowManager::resetLayoutLockFullscreen(WzSubWindow* window)
{
    if (window && window->lockedDefaultBounds().isValid())
        window->setBounds(window->lockedDefaultBounds());
}

void WzSubWindowManager::migrateOldWindowTitleToNewWindowTitle(QString& title)
{
    LayoutNames::migrateOldWindowTitleToNewWindowTitle(title);
}

void WzSubWindowManager::migrateOldWindowContentClassToNewWindowContentClass(QString& contentClass)
{
    LayoutNames::migrateOldWindowContentClassToNewWindowContentClass(contentClass);
}
