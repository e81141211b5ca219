#include "instruments/eventlog/EventLog.h"

#include "instruments/eventlog/EventLogList.h"
#include "instruments/eventlog/EventLogModel.h"

#include "gui/control/SettingList.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/framework/WzMdiArea.h"
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

std::vector<Setting::Option> kindOptions()
{
    std::vector<Setting::Option> options;
    for (int i = 0; i < kEventKindCount; ++i) {
        EventKindFilter only;
        only.toggle(static_cast<EventKind>(i));
        options.push_back({only.text(), only.names().first()});
    }
    return options;
}

} // namespace

EventLog::EventLog(WzSubWindow* subWindow, Velmora::Wz::Device device, EventLogModel& model)
    : WzSubwindowContent(QString(kClassName), Icons::path(QString(kIconName)), subWindow, device)
    , m_model(model)
    , m_kinds(settings().addChoices(tr("Kinds"), kindOptions(), tr("All kinds"), tr("%1 kinds")))
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
    setupSettings();
    updateFilter();
}

QWidget* EventLog::makeButtonRow()
{
    auto* const row = new QWidget(this);
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins(kGap, kGap, kGap, kGap);
    line->setSpacing(kGap);
    m_kindsButton = addButton(row, QStringLiteral("event-log"), {});
    m_search = addButton(row, QStringLiteral("search"), {});
    m_search->setCheckable(true);
    m_search->setToolTip(tr("Shows entries that hold a text. Touch again to show all."));
    m_pause = addButton(row, QStringLiteral("freeze"), {});
    m_pause->setCheckable(true);
    QPushButton* const exports = addButton(row, QStringLiteral("save"), tr("Export"));
    for (QPushButton* const button : {m_kindsButton, m_search, m_pause, exports})
        line->addWidget(button);
    line->addStretch(1);
    const auto popUp = [this](QPushButton* button, auto fill) {
        connect(button, &QPushButton::clicked, this, [this, button, fill] {
            auto* const menu = new WzMenu(this);
            menu->setAttribute(Qt::WA_DeleteOnClose);
            fill(*menu);
            menu->popup(button->mapToGlobal(QPoint(0, button->height())));
        });
    };
    popUp(m_kindsButton, [this](WzMenu& menu) { SettingList::addOptionsTo(menu, *m_kinds); });
    popUp(exports, [this](WzMenu& menu) { addExports(menu); });
    connect(m_search, &QPushButton::clicked, this, [this] {
        m_search->setChecked(!m_searchedText.isEmpty());
        if (m_searchedText.isEmpty())
            askForSearch();
        else
            search({});
    });
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
    return tr("<h3>Event Log</h3>"
              "<p>What the instrument has told since this program runs, the newest entry first, up to "
              "100,000 "
              "entries. The log goes on while no window shows it. A white bar marks entries that nobody has "
              "looked at; the tool bar counts them. Touch the list, or turn the wheel, and they count as "
              "seen.</p>"
              "<p><b>Kinds</b>: the kinds of event that are shown; none chosen shows all.</p>"
              "<p><b>Search</b>: shows the entries that hold a text, in large letters or small ones.</p>"
              "<p><b>Pause</b> (Freeze): holds the list as it is. Nothing is lost: the log goes on, and "
              "shows "
              "when the pause ends.</p>"
              "<p><b>Newest</b>: appears while older entries are shown, which stay in their place when new "
              "ones "
              "come. Home and End go to the newest and the oldest.</p>"
              "<p><b>Export</b>: writes the entries shown, the oldest first, as text or CSV to a file in "
              "your "
              "documents.</p>"
              "<p>Hold, or point at, an entry for its date, kind and whole text. Icons: ring with a tick ok, "
              "triangle warning, cross error, \"i\" information.</p>")
        + helpOfKinds();
}

QString EventLog::helpOfKinds()
{
    QString help = tr("<h3>Kinds of event</h3>");
    for (int i = 0; i < kEventKindCount; ++i) {
        const auto kind = static_cast<EventKind>(i);
        help += QStringLiteral("<p><b>%1</b>: %2</p>")
                    .arg(EventKindFilter::kindText(kind), EventKindFilter::kindHelp(kind));
    }
    return help;
}

void EventLog::setupSettings()
{
    setPresetClassName(QLatin1String("EventLogContentPreset"));
    m_kinds->keepAs(QLatin1String("kinds"));
    connect(m_kinds, &Setting::changed, this, &EventLog::updateFilter);
    using EventLogExport::Format;
    const auto add = [this](const QString& title, const QString& icon, auto action) {
        connect(settings().addButton(title, icon), &Setting::chosen, this, action);
    };
    add(tr("Search"), QStringLiteral("search"), [this] { askForSearch(); });
    add(tr("End Search"), QStringLiteral("close"), [this] { search({}); });
    add(tr("Jump to Newest"), QStringLiteral("up"), [this] { m_list->jumpToNewest(); });
    add(tr("Mark All as Seen"), QStringLiteral("check"), [this] { m_model.markAllSeen(); });
    add(tr("Export as Text"), QStringLiteral("save"), [this] { exportTo(Format::Text); });
    add(tr("Export as CSV"), QStringLiteral("save"), [this] { exportTo(Format::Csv); });
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

void EventLog::updateFilter()
{
    const EventKindFilter filter = EventKindFilter::fromNames(m_kinds->values());
    m_list->setFilter(filter, m_searchedText);
    showConnection();
    m_kindsButton->setText(m_kinds->valueText());
    m_pause->setText(isFrozen() ? tr("Resume") : tr("Pause"));
    const bool isSearching = !m_searchedText.isEmpty();
    m_search->setChecked(isSearching);
    m_search->setText(isSearching ? QStringLiteral("\"%1\"").arg(m_searchedText) : tr("Search"));
    setTitleDetails(isSearching ? m_kinds->valueText() + QStringLiteral("  \"%1\"").arg(m_searchedText)
                                : m_kinds->valueText());
}

void EventLog::askForSearch()
{
    getSubWindow()->area().mainWindow()->askForText(tr("Search the event log"), m_searchedText, this,
                                                    [this](const QString& text) { search(text); });
}

void EventLog::search(const QString& text)
{
    m_searchedText = text;
    updateFilter();
}

/// The list is live as soon as the connection stands, since there need not be any event.
void EventLog::showConnection()
{
    const bool stands =
        getSubWindow()->area().connectionStatus().state() == ConnectionStatus::State::Connected;
    const bool isAll = m_list->rows().filter().isAll();
    m_list->setEmptyText(!stands                         ? QString()
                             : !m_searchedText.isEmpty() ? tr("No events with \"%1\"").arg(m_searchedText)
                             : isAll                     ? tr("No events yet")
                                                         : tr("No events of this kind"));
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
