#include "gui/framework/WzSubWindow.h"

#include "gui/control/SettingList.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/framework/SupportedSubWindow.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/framework/WzTitleLine.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QContextMenuEvent>
#include <QLayout>
#include <QPainter>
#include <QSet>

#include <limits>

namespace {

ScreenGrid::CellRects& sedecimants()
{
    static ScreenGrid::CellRects cells;
    return cells;
}

QSet<quint64>& fullScreenPositionHistory()
{
    static QSet<quint64> positions;
    return positions;
}

quint64 keyOf(const QPoint& position)
{
    return quint64(quint32(position.x())) << 32 | quint32(position.y());
}

} // namespace

WzSubWindow::WzSubWindow(WzMdiArea& area, const SupportedSubWindow& kind, int instanceNumber)
    : QMdiSubWindow(nullptr, Qt::SubWindow | Qt::FramelessWindowHint)
    , m_area(area)
    , m_contentClassName(kind.contentClassName)
    , m_role(kind.role)
    , m_instanceNumber(instanceNumber)
    , m_titleLine(new WzTitleLine(*area.getWzStyle(), this))
{
    populateScreenSedecimants(area.instrumentArea());
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSystemMenu(nullptr);
    setWindowTitle(kind.windowTitle);
    m_titleLine->setTitle(kind.windowTitle);
    m_titleLine->setInstance(kind.maximumInstances > 1 ? instanceNumber + 1 : 0);
    m_titleLine->setIcon(Icons::path(kind.icon));
    connect(m_titleLine, &WzTitleLine::helpRequested, this, [this] {
        if (m_content)
            m_content->toggleHelp();
    });
}

WzSubWindow::~WzSubWindow()
{
    // While it still is a window, also where it dies without being closed.
    SpotlightManager::getInstance().relinquishWindowSpotlight(this);
}

WzSubWindow* WzSubWindow::holding(QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto* const window = qobject_cast<WzSubWindow*>(widget))
            return window;
    }
    return nullptr;
}

WzCustomStyle* WzSubWindow::getWzStyle() const
{
    return m_area.getWzStyle();
}

bool WzSubWindow::setContent(WzSubwindowContent* content)
{
    if (!content)
        return false;
    m_content = content;
    setWidget(content);
    layout()->setContentsMargins(kBorder, kTitleLineHeight, kBorder, kBorder);
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    connect(content, &WzSubwindowContent::titleDetailsChanged, m_titleLine, &WzTitleLine::setDetails);
    m_titleLine->setDetails(content->titleDetails());
    resize(permittedSize(content->getDefaultWindowSize(m_area.instrumentArea().size())));
    return true;
}

void WzSubWindow::setStaysOnTop(bool staysOnTop)
{
    if (staysOnTop == m_staysOnTop)
        return;
    m_staysOnTop = staysOnTop;
    m_area.updateOverlayZOrder();
}

WzSubWindowPreset WzSubWindow::getWindowAndWindowContentStatesAsPreset() const
{
    WzSubWindowPreset preset(m_contentClassName);
    preset.setWindowTitle(windowTitle());
    preset.setWindowRole(m_role);
    preset.setWindowBounds(m_boundsOfLargerArea.isValid() ? m_boundsOfLargerArea : normalBounds());
    if (m_lockedDefaultBounds.isValid())
        preset.setWindowLockedDefaultBounds(m_lockedDefaultBounds);
    preset.setInstanceNumber(m_instanceNumber);
    preset.setAnalyserId(m_analyserId);
    preset.setStayOnTopState(m_staysOnTop);
    if (m_content)
        preset.setWindowContentPreset(m_content->getWidgetStatesAsPreset());
    return preset;
}

bool WzSubWindow::isMeantBy(const WzSubWindowPreset& preset) const
{
    return windowTitle() == preset.getWindowTitle()
        && m_contentClassName == preset.getWindowContentClassName() && m_role == preset.getWindowRole()
        && (!preset.containsInstanceNumber() || m_instanceNumber == preset.getInstanceNumber());
}

void WzSubWindow::loadWindowStatesFromPreset(const WzSubWindowPreset& preset)
{
    if (m_fullScreen)
        setSubWindowFullScreen(false);
    if (preset.containsAnalyserId())
        m_analyserId = preset.getAnalyserId();
    if (preset.containsWindowBounds())
        placeAsStored(preset.getWindowBounds());
    if (m_layoutLocked)
        m_lockedDefaultBounds = preset.containsWindowLockedDefaultBounds()
            ? permittedBounds(preset.getWindowLockedDefaultBounds())
            : normalBounds();
    if (preset.containsWindowFullScreenInFocus() && preset.getWindowFullScreenInFocus())
        setSubWindowFullScreen(true);
}

void WzSubWindow::loadWindowContentStatesFromPreset(const WzSubWindowPreset& preset)
{
    if (preset.containsStayOnTopState())
        m_staysOnTop = preset.getStayOnTopState();
    if (!preset.containsWindowContentPreset() || !m_content)
        return;
    SerialisableDataPacket contentPreset = preset.getWindowContentsPreset();
    m_content->loadWidgetStatesFromPreset(contentPreset);
}

QSize WzSubWindow::permittedSize(const QSize& wanted) const
{
    const QSize area = m_area.instrumentArea().size();
    if (!m_content)
        return wanted.boundedTo(area);
    if (m_content->isScalable()) {
        const QSize largest = m_content->getMaximumWindowSize(area).boundedTo(area);
        return wanted.expandedTo(m_content->getMinimumWindowSize(area)).boundedTo(largest);
    }
    QSize nearest;
    int smallestDistance = std::numeric_limits<int>::max();
    for (const QSize& size : m_content->getAllowedWindowSizes()) {
        const int distance = qAbs(size.width() - wanted.width()) + qAbs(size.height() - wanted.height());
        if (distance < smallestDistance) {
            smallestDistance = distance;
            nearest = size;
        }
    }
    return nearest.boundedTo(area);
}

QRect WzSubWindow::permittedBounds(const QRect& bounds) const
{
    const QRect area = m_area.instrumentArea();
    const QSize steps = getWzStyle()->subWindowSnapSteps();
    const QSize size = permittedSize(bounds.size().boundedTo(area.size()));
    // An area of odd size: what snapping moves out of it comes back unsnapped.
    QRect permitted =
        ScreenGrid::getSnappedRectConstrainedToMdiArea(QRect(bounds.topLeft(), size), area, steps);
    permitted.setSize(permittedSize(permitted.size()));
    return ScreenGrid::constrainedTo(area, permitted);
}

void WzSubWindow::setBounds(const QRect& bounds)
{
    m_boundsOfLargerArea = {};
    moveTo(bounds);
}

/// As far as the area has room for them; they are kept for when it has.
void WzSubWindow::placeAsStored(const QRect& bounds)
{
    m_boundsOfLargerArea = m_area.instrumentArea().contains(bounds) ? QRect() : bounds;
    moveTo(bounds);
}

void WzSubWindow::moveTo(const QRect& bounds)
{
    const QRect old = geometry();
    const QRect permitted = permittedBounds(bounds);
    if (m_fullScreen)
        m_normalBounds = permitted;
    else
        setGeometry(permitted);
    emit positionSnapped();
    m_area.frameMoved(old, geometry(), this);
}

void WzSubWindow::setSubWindowFullScreen(bool fullScreen)
{
    if (fullScreen == m_fullScreen)
        return;
    m_area.cancelDrag();
    const QRect old = geometry();
    if (fullScreen) {
        m_normalBounds = old;
        fullScreenPositionHistory().insert(keyOf(m_area.instrumentArea().topLeft()));
    }
    m_fullScreen = fullScreen;
    updateWindowFlags();
    if (fullScreen) {
        setGeometry(m_area.instrumentArea());
        m_area.setActiveSubWindow(this);
        raise();
    } else {
        setGeometry(permittedBounds(m_normalBounds));
    }
    emit positionSnapped();
    m_area.frameMoved(old, geometry(), this);
    if (m_layoutLocked)
        emit windowResizedForLockedLayout(this, fullScreen);
    emit fullScreenChanged(fullScreen);
}

void WzSubWindow::setLayoutLocked(bool locked)
{
    if (locked == m_layoutLocked)
        return;
    m_layoutLocked = locked;
    m_lockedDefaultBounds = locked ? normalBounds() : QRect();
    updateWindowFlags();
}

/// Under the layout lock a window has the fixed-size hint, and a full-screen one shows nothing but its
/// content.
void WzSubWindow::updateWindowFlags()
{
    const bool bare = m_layoutLocked && m_fullScreen;
    if (layout() && m_content) {
        const int border = bare ? 0 : kBorder;
        layout()->setContentsMargins(border, bare ? 0 : kTitleLineHeight, border, border);
    }
    m_titleLine->setVisible(!bare);
    // setWindowFlags() of the base would drop the hint, for the window is without Qt's frame.
    overrideWindowFlags(windowFlags().setFlag(Qt::MSWindowsFixedSizeDialogHint, m_layoutLocked));
}

void WzSubWindow::placeInArea()
{
    const QRect requested = geometry();
    const QRect free = clashesWithFullScreenPositionHistory(requested) ? freePlaceFor(requested) : QRect();
    if (!free.isEmpty() && free.topLeft() != requested.topLeft()) {
        Velmora::log()->info("info: changing new window position from ({}x{}) to ({},{}:{}x{})",
                             requested.x(), requested.y(), free.x(), free.y(), free.width(), free.height());
        setBounds(free);
    } else {
        setBounds(requested);
    }
}

QRect WzSubWindow::freePlaceFor(const QRect& requested) const
{
    static QPoint lastPosition(-1, -1);
    const QSize hint = m_content ? m_content->sizeHint() : requested.size();
    const QRect place = ScreenGrid::getPositionForNewWindow(
        screenSedecimants(), QRect(requested.topLeft(), hint),
        ScreenGrid::findFreeAreas(screenSedecimants(), getUsedScreenAreas()), lastPosition,
        m_area.instrumentArea());
    if (!place.isEmpty())
        lastPosition = place.topLeft();
    return place;
}

void WzSubWindow::onAreaResized()
{
    if (m_fullScreen)
        setGeometry(m_area.instrumentArea());
    placeAsStored(m_boundsOfLargerArea.isValid() ? m_boundsOfLargerArea : normalBounds());
}

void WzSubWindow::setHighlighted(bool highlighted)
{
    if (highlighted == m_highlighted)
        return;
    m_highlighted = highlighted;
    update();
    emit windowSizeHighlightChanged();
}

const ScreenGrid::CellRects& WzSubWindow::screenSedecimants()
{
    return sedecimants();
}

void WzSubWindow::populateScreenSedecimants(const QRect& area)
{
    sedecimants() = ScreenGrid::screenSedecimantsOf(area.size());
}

bool WzSubWindow::clashesWithFullScreenPositionHistory(const QRect& requested)
{
    return fullScreenPositionHistory().contains(keyOf(requested.topLeft()));
}

std::vector<QRect> WzSubWindow::getUsedScreenAreas() const
{
    std::vector<QRect> used;
    for (const WzSubWindow* window : m_area.wzSubWindows()) {
        if (window != this && window->isVisible())
            used.push_back(window->normalBounds());
    }
    return used;
}

QRect WzSubWindow::helpReach() const
{
    constexpr int kReach = WzTitleLine::kHelpReach;
    return m_titleLine->isHidden() ? QRect() : QRect(width() - kBorder - kReach, kBorder, kReach, kReach);
}

void WzSubWindow::populateContextMenu(WzMenu* menu)
{
    if (m_content) {
        m_content->populateContextMenu(menu);
        if (!menu->isEmpty())
            menu->addSeparator();
    }
    addOwnSettings(*menu);
    if (m_content)
        m_content->addCommonActions(*menu);
}

void WzSubWindow::addOwnSettings(WzMenu& menu)
{
    auto* const settings = new SettingList(*getWzStyle(), &menu);
    const auto addToggle = [this, settings](const QString& title, bool on, auto set) {
        Setting* const toggle = settings->addToggle(title);
        toggle->initialise({on ? QStringLiteral("true") : QStringLiteral("false")});
        connect(toggle, &Setting::changed, this, [toggle, set] { set(toggle->isOn()); });
    };
    addToggle(tr("Full Screen"), m_fullScreen, [this](bool on) { setSubWindowFullScreen(on); });
    if (!m_layoutLocked)
        addToggle(tr("Stay on Top"), m_staysOnTop, [this](bool on) { setStaysOnTop(on); });
    settings->addTo(menu);
    QAction* const shut = menu.addAction(tr("Close Window"));
    shut->setEnabled(!m_layoutLocked);
    connect(shut, &QAction::triggered, this,
            [this] { m_content ? m_content->requestWindowClose() : close(); });
}

void WzSubWindow::openContextMenu(const QPoint& globalPosition)
{
    auto* const menu = new WzMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_content)
        m_content->initialiseTouchCompatibleMenus();
    populateContextMenu(menu);
    menu->popup(globalPosition);
}

QSize WzSubWindow::sizeHint() const
{
    return m_content ? permittedSize(m_content->sizeHint()) : QMdiSubWindow::sizeHint();
}

void WzSubWindow::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const WzCustomStyle& style = *getWzStyle();
    const QColor inside = style.colour(ColourRole::InstrumentBackground);
    if (m_layoutLocked && m_fullScreen) {
        painter.fillRect(event->rect(), inside);
        return;
    }
    const QColor frame = style.colour(m_highlighted ? ColourRole::Accent : ColourRole::Frame);
    const int line = m_highlighted ? kBorder : 1;
    const QRect room = rect().adjusted(line, line, -line, -line);
    for (const QRect& border : QRegion(rect()).subtracted(room).intersected(event->region()))
        painter.fillRect(border, frame);
    // Between a thin border and the content, and where there is no content yet.
    painter.fillRect(room.intersected(event->rect()), inside);
}

void WzSubWindow::resizeEvent(QResizeEvent* event)
{
    QMdiSubWindow::resizeEvent(event);
    m_titleLine->setGeometry(kBorder, kBorder, width() - 2 * kBorder, kTitleLineHeight - kBorder);
    if (m_content)
        m_content->layOverlays();
}

void WzSubWindow::moveEvent(QMoveEvent* event)
{
    QMdiSubWindow::moveEvent(event);
    m_area.scheduleExposureUpdate();
}

void WzSubWindow::showEvent(QShowEvent* event)
{
    QMdiSubWindow::showEvent(event);
    m_area.scheduleExposureUpdate();
}

void WzSubWindow::hideEvent(QHideEvent* event)
{
    QMdiSubWindow::hideEvent(event);
    m_area.scheduleExposureUpdate();
}

void WzSubWindow::closeEvent(QCloseEvent* event)
{
    emit clientPresetSaveRequest();
    QMdiSubWindow::closeEvent(event);
}

void WzSubWindow::focusInEvent(QFocusEvent* event)
{
    QMdiSubWindow::focusInEvent(event);
    emit subWindowInFocus();
}

void WzSubWindow::contextMenuEvent(QContextMenuEvent* event)
{
    openContextMenu(event->globalPos());
    event->accept();
}

void WzSubWindow::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

void WzSubWindow::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void WzSubWindow::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void WzSubWindow::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
}

void WzSubWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    toggleFullScreen();
    event->accept();
}
