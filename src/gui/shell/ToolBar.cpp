#include "gui/shell/ToolBar.h"

#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/shell/ToolBarAudioMonitorButton.h"
#include "gui/shell/ToolBarHealthAlarmButton.h"
#include "gui/style/WzCustomStyle.h"

#include "presets/WzClientPreset.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QTime>

namespace {

constexpr int kShadow = 10;
constexpr QLatin1String kKeptKey("keptShown", 9);

QString dead()
{
    return QStringLiteral("--");
}

} // namespace

ToolBar::ToolBar(const WzCustomStyle& style, ApplicationState& state, const ConnectionStatus& connection,
                 QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_state(state)
    , m_connection(connection)
{
    setFixedHeight(kHeight + kShadow);
    addItems();
    connect(&m_connection, &ConnectionStatus::changed, this, &ToolBar::showConnection);
    connect(&m_state, &ApplicationState::layoutLockChanged, this, &ToolBar::showLock);
    connect(&m_style, &WzCustomStyle::subWindowSettingsaUpdated, this, [this] {
        showConnection();
        showLock(m_state.isLayoutLocked());
    });
    connect(m_lock, &QAbstractButton::clicked, this,
            [this] { m_state.setLayoutLocked(!m_state.isLayoutLocked()); });
    connect(m_health, &QAbstractButton::clicked, this, &ToolBar::healthRequested);
    connect(m_events, &QAbstractButton::clicked, this, &ToolBar::eventLogRequested);
    connect(m_connectionItem, &QAbstractButton::clicked, this, &ToolBar::connectionRequested);
    connect(m_menu, &QAbstractButton::clicked, this, &ToolBar::menuRequested);
    connect(m_layout, &QAbstractButton::clicked, this, &ToolBar::layoutsRequested);
    showConnection();
    showLock(m_state.isLayoutLocked());
    showClock();
}

template<typename Item>
Item* ToolBar::addItem(Item* item)
{
    layout()->addWidget(item);
    item->installEventFilter(this);
    return item;
}

void ToolBar::addItems()
{
    using Side = ToolBarItem::IconSide;
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, kShadow);
    row->setSpacing(1);
    const auto add = [this](const char* icon, Side side) {
        return addItem(new ToolBarItem(m_style, QString::fromLatin1(icon), side, this));
    };
    m_menu = add("menu", Side::Left);
    m_layout = add("layouts", Side::Left);
    m_signalItem = add("signal", Side::Left);
    row->addStretch(1);
    m_audioMonitor = addItem(new ToolBarAudioMonitorButton(m_style, this));
    m_health = addItem(new ToolBarHealthAlarmButton(m_style, this));
    m_events = add("event-log", Side::Left);
    m_lock = add("unlock", Side::Left);
    m_connectionItem = add("connection-lost", Side::Right);
    m_clock = add("", Side::Left);
    m_menu->setToolTip(tr("Main menu"));
    m_layout->setToolTip(tr("Layouts"));
    m_signalItem->setToolTip(tr("The signal that is measured"));
    m_events->setToolTip(tr("Event log, with the number of entries not seen yet"));
    m_lock->setToolTip(tr("Layout lock"));
}

void ToolBar::setLayout(const QString& name, int index, int count)
{
    m_layout->setLabel(name);
    m_layout->setSecondary(QStringLiteral("%1/%2").arg(QString::number(index + 1), QString::number(count)));
}

void ToolBar::setUnseenEvents(int count)
{
    m_events->setBadge(count);
}

void ToolBar::setKept(bool kept)
{
    if (kept == m_isKept)
        return;
    m_isKept = kept;
    emit keptChanged();
}

void ToolBar::onPopulateClientPreset(WzClientPreset& preset) const
{
    WzToolBarPreset section;
    section.set(kKeptKey, m_isKept);
    preset.setToolBarPresets(section);
}

void ToolBar::onLoadClientPreset(WzClientPreset& preset)
{
    setKept(preset.getToolBarPresets().get(kKeptKey).toBool(m_isKept));
}

void ToolBar::fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList, bool active)
{
    m_signal = active ? values.value(0) : QString();
    showSignal();
}

void ToolBar::fromStatusCoreAudioChannelsUpdated(QStringList values, QStringList, bool active)
{
    m_channels = active ? values.value(0) : QString();
    showSignal();
}

void ToolBar::fromStatusCoreCurrentPresetSytemModeUpdated(QStringList values, QStringList, bool active)
{
    m_health->setSystemMode(active && isConnected() ? values.value(0) : QString());
}

bool ToolBar::isConnected() const
{
    return m_connection.state() != ConnectionStatus::State::NotConnected;
}

void ToolBar::showSignal()
{
    const bool known = isConnected() && !m_signal.isEmpty();
    m_signalItem->setLabel(known ? m_signal : dead());
    m_signalItem->setIconColour(m_style.colour(known ? ColourRole::Ok : ColourRole::SecondaryText));
    m_signalItem->setSecondary(known && !m_channels.isEmpty() ? tr("%1 ch").arg(m_channels) : QString());
}

void ToolBar::showConnection()
{
    using State = ConnectionStatus::State;
    const State state = m_connection.state();
    m_connectionItem->setLabel(m_connection.text());
    m_connectionItem->setEmphasised(state == State::NotConnected);
    m_connectionItem->setIconName(state == State::Connected        ? QStringLiteral("connection-ok")
                                      : state == State::Connecting ? QStringLiteral("waiting")
                                                                   : QStringLiteral("connection-lost"));
    m_connectionItem->setIconColour(m_style.colour(state == State::Connected        ? ColourRole::Ok
                                                       : state == State::Connecting ? ColourRole::Information
                                                                                    : ColourRole::Error));
    const QString last = m_connection.lastSuccess().isValid()
        ? m_connection.lastSuccess().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
        : tr("never");
    m_connectionItem->setToolTip(
        tr("Instrument at %1, last connected %2, %3 attempts since")
            .arg(m_connection.address(), last, QString::number(m_connection.retries())));
    if (state == State::NotConnected) {
        m_signal.clear();
        m_channels.clear();
    }
    m_health->setConnected(isConnected());
    m_audioMonitor->setConnected(isConnected());
    showSignal();
}

void ToolBar::showLock(bool locked)
{
    m_lock->setIconName(locked ? QStringLiteral("lock") : QStringLiteral("unlock"));
    m_lock->setIconColour(m_style.colour(locked ? ColourRole::Accent : ColourRole::SecondaryText));
    m_lock->setLabel(locked ? tr("Locked") : QString());
}

void ToolBar::showClock()
{
    const QTime now = QTime::currentTime();
    m_clock->setLabel(now.toString(QStringLiteral("HH:mm:ss")));
    if (m_connection.state() == ConnectionStatus::State::NotConnected)
        m_connectionItem->setLabel(m_connection.text());
    // The next wake-up is at the next full second, so that the clock neither drifts nor skips one.
    m_clockTimer.start(1000 - now.msec() + 1, Qt::PreciseTimer, this);
}

void ToolBar::timerEvent(QTimerEvent*)
{
    showClock();
    emit clockTicked();
}

bool ToolBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        emit used();
    // The lines between the items move with them.
    if (event->type() == QEvent::Move)
        update();
    return QWidget::eventFilter(watched, event);
}

void ToolBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(0, 0, width(), kHeight - 1, m_style.colour(ColourRole::Background));
    painter.fillRect(0, kHeight - 1, width(), 1, m_style.colour(ColourRole::Pressed));
    QLinearGradient shadow(0, kHeight, 0, kHeight + kShadow);
    shadow.setColorAt(0, QColor(0, 0, 0, 160));
    shadow.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(0, kHeight, width(), kShadow, shadow);
    const QColor line = m_style.colour(ColourRole::Selected);
    for (const ToolBarItem* const item : findChildren<ToolBarItem*>())
        painter.fillRect(item->x() - 1, 14, 1, kHeight - 29, line);
}
