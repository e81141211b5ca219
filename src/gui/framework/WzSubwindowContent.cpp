#include "gui/framework/WzSubwindowContent.h"

#include "gui/control/ButtonRow.h"
#include "gui/control/FocusSweepManager.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/control/SettingList.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/ContentHelpPage.h"
#include "gui/framework/ContentStateOverlay.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/framework/SpotlightManager.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include "presets/SettingsContentPreset.h"

#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QPushButton>
#include <QResizeEvent>

#include <cmath>

namespace {

constexpr QSize kSixteenth(480, 270);
constexpr QSize kSixteenthStretched(960, 270);
constexpr QSize kQuarter(960, 540);
constexpr QSize kFull(1920, 1080);

QSize scaled(const QSize& area, double factor)
{
    return {static_cast<int>(std::lround(area.width() * factor)),
            static_cast<int>(std::lround(area.height() * factor))};
}

} // namespace

WzSubwindowContent::WzSubwindowContent(const QString& className, const QString& iconPath,
                                       WzSubWindow* subWindow, Velmora::Wz::Device device)
    : QWidget(subWindow)
    , m_device(device)
    , m_subWindow(subWindow)
    , m_style(subWindow->getWzStyle())
    , m_className(className)
    , m_icon(Icons::icon(iconPath, 24, m_style->colour(ColourRole::Text),
                         m_style->colour(ColourRole::DisabledText)))
    , m_settings(new SettingList(*m_style, this))
    , m_focusSweep(new FocusSweepManager(this))
{
    grabGesture(Qt::TapAndHoldGesture);
    connect(subWindow, &WzSubWindow::positionSnapped, this, &WzSubwindowContent::onParentWindowSnapped);
    if (subWindow->area().applicationState().isDisplayClient())
        setAllowedWindowSizesSixteenthQuarterFull();
    m_focusSweep->adoptArea(*this);
    setupSettings();
    followConnection();
}

WzSubwindowContent::~WzSubwindowContent() = default;

int WzSubwindowContent::getInstanceNumber() const
{
    return m_subWindow->getInstanceNumber();
}

quint32 WzSubwindowContent::getAnalyserId() const
{
    return m_subWindow->getAnalyserId();
}

SerialisableDataPacket WzSubwindowContent::getWidgetStatesAsPreset()
{
    if (m_presetClassName.size() == 0)
        return WzSubWindowContentPreset();
    SettingsContentPreset preset{QString(m_presetClassName)};
    m_settings->save(preset);
    return preset;
}

void WzSubwindowContent::loadWidgetStatesFromPreset(SerialisableDataPacket& preset)
{
    if (m_presetClassName.size() > 0 && preset.getPacketClassName() == m_presetClassName)
        m_settings->restore(SettingsContentPreset(preset));
}

void WzSubwindowContent::populateContextMenu(WzMenu* menu)
{
    m_settings->addTo(*menu);
}

std::vector<std::shared_ptr<FunctionTrigger>> WzSubwindowContent::functionTriggers()
{
    const auto make = [this](const QString& text, const QString& icon) {
        return FunctionTrigger::makeTrigger(text, m_style->icon(icon));
    };
    const auto freeze = make(tr("Freeze"), QStringLiteral("freeze"));
    freeze->setButtonSelected(isFrozen());
    connect(this, &WzSubwindowContent::frozenChanged, freeze.get(), &FunctionTrigger::setButtonSelected);
    connect(freeze.get(), &FunctionTrigger::triggered, this, [this] { setFrozen(!isFrozen()); });
    const auto help = make(tr("Help"), QStringLiteral("help"));
    connect(help.get(), &FunctionTrigger::triggered, this, &WzSubwindowContent::toggleHelp);
    std::vector<std::shared_ptr<FunctionTrigger>> triggers = m_settings->triggers();
    triggers.insert(triggers.end(), {freeze, help});
    return triggers;
}

QSize WzSubwindowContent::getMinimumWindowSize(const QSize& area) const
{
    return scaled(area, 0.25);
}

QSize WzSubwindowContent::getDefaultWindowSize(const QSize& area) const
{
    return scaled(area, m_subWindow->area().applicationState().isDisplayClient() ? 0.5 : 0.25);
}

QSize WzSubwindowContent::getMaximumWindowSize(const QSize& area) const
{
    return m_subWindow->area().applicationState().isDisplayClient() ? area : scaled(area, 0.5);
}

void WzSubwindowContent::setActive(bool)
{
}

void WzSubwindowContent::recalculateActionWidgetWidths(bool touchLayout)
{
    m_settings->fitActions(touchLayout);
}

void WzSubwindowContent::initialiseTouchCompatibleMenus()
{
    recalculateActionWidgetWidths(m_subWindow->area().applicationState().isDisplayClient());
}

void WzSubwindowContent::setAllowedWindowSizes(const std::vector<QSize>& sizes)
{
    if (&sizes != &m_allowedWindowSizes)
        m_allowedWindowSizes = sizes;
}

void WzSubwindowContent::setAllowedWindowSizesSixteenthOnly()
{
    setAllowedWindowSizes({kSixteenth});
}

void WzSubwindowContent::setAllowedWindowSizesSixteenthAndQuarter()
{
    setAllowedWindowSizes({kSixteenth, kQuarter});
}

void WzSubwindowContent::setAllowedWindowSizesSixteenthQuarterFull()
{
    setAllowedWindowSizes({kSixteenth, kQuarter, kFull});
}

void WzSubwindowContent::setAllowedWindowSizesSixteenthAndSixteenthStretched()
{
    setAllowedWindowSizes({kSixteenth, kSixteenthStretched});
}

bool WzSubwindowContent::requestWindowClose()
{
    SpotlightManager::getInstance().relinquishWindowSpotlight(m_subWindow);
    return m_subWindow->close();
}

QSize WzSubwindowContent::sizeHint() const
{
    return getDefaultWindowSize(m_subWindow->area().instrumentArea().size());
}

void WzSubwindowContent::setExposed(bool exposed)
{
    if (exposed == m_exposed)
        return;
    m_exposed = exposed;
    m_sinceData.restart();
    onExposedChanged(exposed);
}

void WzSubwindowContent::setFrozen(bool frozen)
{
    if (frozen == isFrozen())
        return;
    m_frozenSince = frozen ? QDateTime::currentDateTime() : QDateTime();
    onFrozenChanged(frozen);
    updateOverlay();
    emit frozenChanged(frozen);
}

QString WzSubwindowContent::helpText() const
{
    return tr("<h3>%1</h3><p>There is no help for this window yet.</p>").arg(m_subWindow->windowTitle());
}

void WzSubwindowContent::toggleHelp()
{
    if (!m_helpPage) {
        m_helpPage = new ContentHelpPage(helpText(), *m_style, this);
        m_helpPage->hide();
    }
    m_helpPage->setVisible(!m_helpPage->isVisible());
    layOverlays();
    if (m_helpPage->isVisible())
        m_helpPage->setFocus();
}

void WzSubwindowContent::addCommonActions(WzMenu& menu)
{
    auto* const buttons = new ButtonRow(*m_style, &menu);
    const auto add = [this, &menu, buttons](const QString& icon, const QString& text, auto action) {
        QPushButton* const button = buttons->add(icon, text);
        connect(button, &QPushButton::clicked, this, [&menu, action] {
            menu.close();
            action();
        });
        return button;
    };
    QPushButton* const freeze =
        add(QStringLiteral("freeze"), tr("Freeze"), [this] { setFrozen(!isFrozen()); });
    freeze->setCheckable(true);
    freeze->setChecked(isFrozen());
    // The menu is to be gone from the picture.
    add(QStringLiteral("screenshot"), tr("Screenshot"), [this] {
        QMetaObject::invokeMethod(
            this, [this] { emit screenshotRequested(m_subWindow); }, Qt::QueuedConnection);
    });
    add(QStringLiteral("help"), tr("Help"), [this] { toggleHelp(); });
    menu.addRow(buttons, tr("Freeze, Screenshot, Help"));
}

void WzSubwindowContent::layOverlays()
{
    if (m_helpPage) {
        m_helpPage->setGeometry(rect());
        m_helpPage->raise();
    }
    if (m_overlay) {
        m_overlay->setGeometry(m_subWindow->rect());
        m_overlay->raise();
    }
}

void WzSubwindowContent::onParentWindowSnapped()
{
    emit windowPositionChanged(mapToGlobal(QPoint(0, 0)));
}

void WzSubwindowContent::resizeEvent(QResizeEvent* event)
{
    emit windowSizeChanged(event->size());
    QWidget::resizeEvent(event);
    layOverlays();
}

void WzSubwindowContent::contextMenuEvent(QContextMenuEvent* event)
{
    m_subWindow->openContextMenu(event->globalPos());
    event->accept();
}

bool WzSubwindowContent::event(QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && m_lostCount > 0)
        setLostCount(0);
    return QWidget::event(event);
}

void WzSubwindowContent::onExposedChanged(bool)
{
}

void WzSubwindowContent::onFrozenChanged(bool)
{
}

void WzSubwindowContent::onConnectionChanged(bool)
{
}

void WzSubwindowContent::onStaleChanged(int)
{
}

void WzSubwindowContent::setTitleDetails(const QString& details)
{
    if (details == m_titleDetails)
        return;
    m_titleDetails = details;
    emit titleDetailsChanged(details);
}

void WzSubwindowContent::noteDataArrived()
{
    m_sinceData.start();
    setStaleSeconds(0);
    if (!m_hasData) {
        m_hasData = true;
        updateOverlay();
    }
}

void WzSubwindowContent::setUpdatesDue(bool due)
{
    if (due == m_updatesDue)
        return;
    m_updatesDue = due;
    m_sinceData.restart();
    WzMdiArea& area = m_subWindow->area();
    if (due)
        connect(&area, &WzMdiArea::staleTick, this, &WzSubwindowContent::onTick);
    else
        disconnect(&area, &WzMdiArea::staleTick, this, &WzSubwindowContent::onTick);
    area.updateStaleTick();
    setStaleSeconds(0);
}

void WzSubwindowContent::setNoSignal(bool noSignal)
{
    if (noSignal == m_noSignal)
        return;
    m_noSignal = noSignal;
    updateOverlay();
}

void WzSubwindowContent::setLostCount(int lost)
{
    if (lost == m_lostCount)
        return;
    m_lostCount = lost;
    updateOverlay();
}

void WzSubwindowContent::setupSettings()
{
    connect(m_settings, &SettingList::editorWanted, this,
            [this](Setting* setting) { m_subWindow->area().mainWindow()->editSetting(*setting); });
    connect(m_settings, &SettingList::refused, this, [this](Setting* setting) {
        m_subWindow->area().mainWindow()->showNotice(QStringLiteral("status-information"), setting->title(),
                                                     setting->toolTip());
    });
}

void WzSubwindowContent::followConnection()
{
    const ConnectionStatus& connection = m_subWindow->area().connectionStatus();
    connect(&connection, &ConnectionStatus::changed, this, &WzSubwindowContent::onConnectionStatusChanged);
    onConnectionStatusChanged();
}

void WzSubwindowContent::onConnectionStatusChanged()
{
    const bool connected =
        m_subWindow->area().connectionStatus().state() != ConnectionStatus::State::NotConnected;
    if (connected != m_connected) {
        m_connected = connected;
        m_hasData = false;
        setStaleSeconds(0);
        m_lostCount = 0;
        if (!connected)
            m_settings->forgetBound();
        onConnectionChanged(connected);
    }
    updateOverlay();
}

void WzSubwindowContent::onTick()
{
    const bool counts = m_exposed && m_connected && m_hasData && !isFrozen() && !m_noSignal;
    const int seconds = counts && m_sinceData.isValid() ? static_cast<int>(m_sinceData.elapsed() / 1000) : 0;
    setStaleSeconds(seconds);
}

void WzSubwindowContent::setStaleSeconds(int seconds)
{
    if (seconds == m_staleSeconds)
        return;
    m_staleSeconds = seconds;
    onStaleChanged(seconds);
}

bool WzSubwindowContent::isLive() const
{
    return m_connected && m_hasData && !isFrozen() && !m_noSignal && m_lostCount == 0;
}

void WzSubwindowContent::updateOverlay()
{
    if (isLive()) {
        delete m_overlay;
        m_overlay = nullptr;
        return;
    }
    if (!m_overlay) {
        m_overlay = new ContentStateOverlay(*this, m_subWindow);
        m_overlay->show();
    }
    m_overlay->raise();
    m_overlay->update();
}
