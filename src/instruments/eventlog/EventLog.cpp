#include "instruments/eventlog/EventLog.h"

#include "instruments/eventlog/EventLogContentPreset.h"
#include "instruments/eventlog/EventLogList.h"
#include "instruments/eventlog/EventLogModel.h"

#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzMenu.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QResizeEvent>

namespace {

constexpr int kTouchTarget = 56;
constexpr int kButtonWidth = 160;
constexpr int kGap = 8;
constexpr int kIconSize = 24;
/// From this width on there is room for buttons and large rows.
constexpr int kLargeWidth = 900;

} // namespace

EventLog::EventLog(WzSubWindow* subWindow, Velmora::Wz::Device device, EventLogModel& model)
    : WzSubwindowContent(QString(kClassName), Icons::path(QString(kIconName)), subWindow, device)
    , m_model(model)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_buttons = makeButtonRow();
    m_list = new EventLogList(model, *getWzStyle(), this);
    column->addWidget(m_buttons);
    column->addWidget(m_list);
    setFocusProxy(m_list);

    m_jump = addButton(this, QStringLiteral("up"), tr("Newest"));
    m_jump->setToolTip(tr("To the newest entry"));
    m_jump->hide();
    connect(m_jump, &QPushButton::clicked, m_list, &EventLogList::jumpToNewest);
    connect(m_list, &EventLogList::rowsAboveChanged, this, &EventLog::placeJumpButton);
    connect(m_list, &EventLogList::used, &model, &EventLogModel::markAllSeen);
    connect(&model, &EventLogModel::changed, this, &EventLog::onLogChanged);
    connect(getWzStyle(), &WzCustomStyle::subWindowSettingsaUpdated, this, &EventLog::updateColours);
    connect(&subWindow->area().connectionStatus(), &ConnectionStatus::changed, this,
            &EventLog::showConnection);
    updateColours();
    setFilter({});
}

QWidget* EventLog::makeButtonRow()
{
    auto* const row = new QWidget(this);
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins(kGap, kGap, kGap, kGap);
    line->setSpacing(kGap);
    m_kinds = addButton(row, QStringLiteral("event-log"), {});
    m_pause = addButton(row, QStringLiteral("freeze"), {});
    m_pause->setCheckable(true);
    QPushButton* const exports = addButton(row, QStringLiteral("save"), tr("Export"));
    for (QPushButton* const button : {m_kinds, m_pause, exports})
        line->addWidget(button);
    line->addStretch(1);
    const auto popUp = [this](QPushButton* button, auto fill) {
        connect(button, &QPushButton::clicked, this, [this, button, fill] {
            auto* const menu = new WzMenu(this);
            menu->setAttribute(Qt::WA_DeleteOnClose);
            (this->*fill)(*menu);
            menu->popup(button->mapToGlobal(QPoint(0, button->height())));
        });
    };
    popUp(m_kinds, &EventLog::addKinds);
    popUp(exports, &EventLog::addExports);
    connect(m_pause, &QPushButton::clicked, this, &EventLog::setFrozen);
    return row;
}

QPushButton* EventLog::addButton(QWidget* row, const QString& icon, const QString& text)
{
    const WzPalette colours = getWzStyle()->instrumentPalette();
    auto* const button =
        new QPushButton(Icons::icon(Icons::path(icon), kIconSize, colours.colour(ColourRole::Text),
                                    colours.colour(ColourRole::DisabledText)),
                        text, row);
    button->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    button->setIconSize(QSize(kIconSize, kIconSize));
    button->setFixedHeight(kTouchTarget);
    button->setMinimumWidth(kButtonWidth);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QString EventLog::helpText() const
{
    return tr(
        "<h3>Event Log</h3>"
        "<p>What the instrument has told since this program runs, the newest entry first, up to 100,000 "
        "entries. The log goes on while no window shows it. A white bar marks entries that nobody has "
        "looked at; the tool bar counts them. Touch the list, or turn the wheel, and they count as seen.</p>"
        "<p><b>Kinds</b>: the context menu chooses the kinds of event that are shown; none chosen shows "
        "all.</p>"
        "<p><b>Pause</b> (Freeze): holds the list as it is. Nothing is lost: the log goes on, and shows "
        "when the pause ends.</p>"
        "<p><b>Newest</b>: appears while older entries are shown, which stay in their place when new ones "
        "come. Home and End go to the newest and the oldest.</p>"
        "<p><b>Export</b>: writes the entries shown, the oldest first, as text or CSV to a file in your "
        "documents.</p>"
        "<p>Hold, or point at, an entry for its date, kind and whole text. Icons: ring with a tick ok, "
        "triangle warning, cross error, \"i\" information.</p>");
}

SerialisableDataPacket EventLog::getWidgetStatesAsPreset()
{
    EventLogContentPreset preset;
    preset.setKinds(m_list->rows().filter());
    return preset;
}

void EventLog::loadWidgetStatesFromPreset(SerialisableDataPacket& preset)
{
    if (preset.getPacketClassName() != EventLogContentPreset::kClassName)
        return;
    bool ok = false;
    const auto mine =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<EventLogContentPreset>(preset, ok);
    if (ok)
        setFilter(mine.kinds());
}

void EventLog::populateContextMenu(WzMenu* menu)
{
    auto* const kinds = new WzMenu(tr("Kinds: %1").arg(m_list->rows().filter().text()), menu);
    addKinds(*kinds);
    menu->addMenu(kinds);
    QAction* const newest = menu->addAction(tr("Jump to Newest"));
    newest->setEnabled(m_list->rowsAbove() > 0);
    connect(newest, &QAction::triggered, m_list, &EventLogList::jumpToNewest);
    QAction* const seen = menu->addAction(tr("Mark All as Seen"));
    seen->setEnabled(m_model.unseenCount() > 0);
    connect(seen, &QAction::triggered, &m_model, &EventLogModel::markAllSeen);
    auto* const exports = new WzMenu(tr("Export"), menu);
    addExports(*exports);
    menu->addMenu(exports);
}

void EventLog::addKinds(WzMenu& menu)
{
    const EventKindFilter filter = m_list->rows().filter();
    const auto add = [this, &menu](const QString& text, bool checked, const EventKindFilter& chosen) {
        QAction* const action = menu.addAction(text);
        action->setCheckable(true);
        action->setChecked(checked);
        connect(action, &QAction::triggered, this, [this, chosen] { setFilter(chosen); });
    };
    add(tr("All Kinds"), filter.isAll(), {});
    for (int i = 0; i < kEventKindCount; ++i) {
        const auto kind = static_cast<EventKind>(i);
        EventKindFilter toggled = filter;
        toggled.toggle(kind);
        add(EventKindFilter::kindText(kind), filter.isChosen(kind), toggled);
    }
}

void EventLog::addExports(WzMenu& menu)
{
    using EventLogExport::Format;
    connect(menu.addAction(tr("As Text")), &QAction::triggered, this, [this] { exportTo(Format::Text); });
    connect(menu.addAction(tr("As CSV")), &QAction::triggered, this, [this] { exportTo(Format::Csv); });
}

void EventLog::exportTo(EventLogExport::Format format)
{
    // Rows whose entries have gone since are left out.
    m_list->refresh();
    const QString path = EventLogExport::save(m_list->shownEntries(), m_list->rows(), format);
    getSubWindow()->area().mainWindow()->showNotice(
        QStringLiteral("save"), path.isEmpty() ? tr("The event log could not be exported") : path, {});
}

void EventLog::setFilter(const EventKindFilter& filter)
{
    m_list->setFilter(filter);
    showConnection();
    m_kinds->setText(filter.text());
    m_pause->setText(isFrozen() ? tr("Resume") : tr("Pause"));
    setTitleDetails(filter.text());
}

/// The list is live as soon as the connection stands, since there need not be any event.
void EventLog::showConnection()
{
    const bool stands =
        getSubWindow()->area().connectionStatus().state() == ConnectionStatus::State::Connected;
    const bool isAll = m_list->rows().filter().isAll();
    m_list->setEmptyText(!stands ? QString() : isAll ? tr("No events yet") : tr("No events of this kind"));
    if (stands)
        noteDataArrived();
}

void EventLog::onLogChanged()
{
    if (isExposed() && !isFrozen())
        m_list->refresh();
    else if (isExposed())
        m_list->viewport()->update(); // what counts as seen may have changed
}

void EventLog::onExposedChanged(bool exposed)
{
    if (exposed && !isFrozen())
        m_list->refresh();
}

void EventLog::onFrozenChanged(bool frozen)
{
    m_list->setHeld(frozen);
    m_pause->setChecked(frozen);
    m_pause->setText(frozen ? tr("Resume") : tr("Pause"));
}

void EventLog::resizeEvent(QResizeEvent* event)
{
    const bool large = event->size().width() >= kLargeWidth;
    m_buttons->setVisible(large);
    m_list->setLargeRows(large);
    WzSubwindowContent::resizeEvent(event);
    placeJumpButton();
}

void EventLog::placeJumpButton()
{
    const int above = m_list->rowsAbove();
    m_jump->setVisible(above > 0);
    if (above == 0)
        return;
    // In a small window the words would hide what was scrolled to.
    const bool large = width() >= kLargeWidth;
    m_jump->setText(large ? tr("Newest") : QString());
    m_jump->setFixedWidth(large ? kButtonWidth : kTouchTarget);
    const QRect list = m_list->viewport()->rect().translated(m_list->pos());
    m_jump->move(list.right() - kGap - m_jump->width(), list.top() + kGap);
    m_jump->raise();
}

void EventLog::updateColours()
{
    setPalette(getWzStyle()->instrumentPalette().widgetPalette());
    m_list->updateColours();
}
