#include "gui/shell/MainMenu.h"

#include "gui/control/FunctionTrigger.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/SupportedSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/LauncherPage.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/PanelColumn.h"
#include "gui/shell/PresetRequests.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/style/WzCustomStyle.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kFirstColumn = 272;
constexpr int kSecondColumn = 312;
/// The first of the user's order; the panel has all of them.
constexpr int kPresetsInMenu = 20;

/// The icon of a group is that of its first kind of window, unless the group has one of its own.
QString iconOfGroup(const QString& group, const std::vector<SupportedSubWindow>& kinds)
{
    const auto first = std::find_if(kinds.begin(), kinds.end(),
                                    [&group](const SupportedSubWindow& kind) { return kind.group == group; });
    return first == kinds.end() ? QStringLiteral("launcher") : first->icon;
}

} // namespace

MainMenu::MainMenu(ScreenPanels& panels)
    : ShellPanel(panels.window(), QStringLiteral("menu"), tr("Main menu"), Place::Left)
    , m_panels(panels)
{
    hideTitleLine();
    setupColumns();
    addSections();
    showFavourites();
    connect(&m_panels.favourites(), &Favourites::changed, this, &MainMenu::showFavourites);
    connect(&m_panels.windows(), &WzSubWindowManager::layoutsChanged, this, [this] {
        if (m_section == Section::Layouts && isVisible())
            fillEntries();
    });
    connect(&m_panels.window().applicationState(), &ApplicationState::layoutLockChanged, this,
            &MainMenu::refreshCommands);
    connect(&m_panels.presets(), &PresetRequests::changed, this, [this] {
        if (m_section == Section::Presets && isVisible())
            fillEntries();
    });
    connect(&m_panels.window().connectionStatus(), &ConnectionStatus::changed, this, [this] {
        if (m_section == Section::Inputs && isVisible())
            fillEntries();
    });
    showSection(Section::Instruments);
}

void MainMenu::setupColumns()
{
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(0);
    auto* const first = new QVBoxLayout;
    first->setSpacing(0);
    m_sections = new PanelColumn(wzStyle(), ColourRole::Background, &card());
    m_favourites = new PanelColumn(wzStyle(), ColourRole::Background, &card());
    m_entries = new PanelColumn(wzStyle(), ColourRole::DisabledFill, &card());
    m_sections->setFixedWidth(kFirstColumn);
    m_favourites->setFixedWidth(kFirstColumn);
    m_entries->setFixedWidth(kSecondColumn);
    m_launcher = new LauncherPage(m_panels.windows(), m_panels.favourites(), wzStyle(), &card());
    first->addWidget(m_sections, 1);
    first->addWidget(m_favourites);
    columns->addLayout(first);
    columns->addWidget(m_entries);
    columns->addWidget(m_launcher, 1);
    contents().addLayout(columns);
    connect(m_launcher, &LauncherPage::windowOpened, this, &QWidget::close);
    connect(m_launcher, &LauncherPage::groupsChanged, this, [this] {
        if (m_section == Section::Instruments)
            fillEntries();
    });
    connect(m_launcher, &LauncherPage::currentChanged, this, &MainMenu::updateFunctionTriggers);
}

void MainMenu::addSections()
{
    addSection(Section::Instruments, QStringLiteral("launcher"), tr("Instruments"));
    addSection(Section::Layouts, QStringLiteral("layouts"), tr("Layouts"));
    addSection(Section::Presets, QStringLiteral("preset"), tr("Presets"));
    addSection(Section::Inputs, QStringLiteral("signal"), tr("Inputs"));
    addSection(Section::System, QStringLiteral("settings"), tr("System"));
    addSection(Section::Help, QStringLiteral("help"), tr("Help"))->setChevron(false);
    addSection(Section::About, QStringLiteral("status-information"), tr("About"))->setChevron(false);
    m_sections->setMinimumHeight(m_sections->contentHeight());
}

ListRow* MainMenu::addSection(Section section, const QString& iconName, const QString& text)
{
    ListRow* const row = m_sections->addRow(iconName, text);
    row->setChevron(true);
    row->setCheckable(true);
    connect(row, &QAbstractButton::clicked, this, [this, section] { showSection(section); });
    m_sectionRows.emplace_back(section, row);
    return row;
}

void MainMenu::closeAndDo(const std::function<void()>& action)
{
    close();
    action();
}

void MainMenu::showSection(Section section)
{
    if (section == Section::Help || section == Section::About) {
        closeAndDo([this, section] {
            m_panels.run(section == Section::Help ? QStringLiteral("help") : QStringLiteral("about"));
        });
        return;
    }
    m_section = section;
    for (const auto& [each, row] : m_sectionRows) {
        row->setChecked(each == section);
        if (each == section)
            setFirstFocus(row);
    }
    m_launcher->setVisible(section == Section::Instruments);
    setCardWidth(section == Section::Instruments ? QWIDGETSIZE_MAX : kFirstColumn + kSecondColumn);
    fillEntries();
    updateFunctionTriggers();
}

ListRow* MainMenu::row(const QString& text) const
{
    for (const PanelColumn* const column : {m_sections, m_favourites, m_entries}) {
        for (ListRow* const row : column->rows()) {
            if (row->text() == text)
                return row;
        }
    }
    return nullptr;
}

// --- The second column

void MainMenu::fillEntries()
{
    const bool hadFocus = m_entries->isAncestorOf(focusWidget());
    m_entries->clear();
    m_commandRows.clear();
    switch (m_section) {
    case Section::Layouts:
        addLayouts();
        break;
    case Section::Presets:
        addPresets();
        break;
    case Section::Inputs:
        addInputs();
        break;
    case Section::System:
        addCommands(m_panels.systemCommands());
        break;
    default:
        addGroups();
        break;
    }
    if (hadFocus && !m_entries->rows().empty())
        m_entries->rows().front()->setFocus();
}

void MainMenu::addGroups()
{
    for (const LauncherPage::Group& group : m_launcher->groups()) {
        ListRow* const row = m_entries->addRow(
            iconOfGroup(group.name, m_panels.windows().getAvailableSubWindows()), group.name);
        row->setDetail(QString::number(group.count));
        connect(row, &QAbstractButton::clicked, this,
                [this, name = group.name] { m_launcher->showGroup(name); });
    }
    m_entries->addSeparator();
    addCommands({QStringLiteral("closeWindows")});
}

void MainMenu::addLayouts()
{
    addCommands({QStringLiteral("layouts"), QStringLiteral("newLayout"), QStringLiteral("lockLayouts"),
                 QStringLiteral("undo")});
    m_entries->addSeparator();
    const auto overview = m_panels.windows().getLayoutOverview();
    for (int i = 0; i < static_cast<int>(overview.size()); ++i) {
        const auto& [name, count] = overview[static_cast<std::size_t>(i)];
        const bool isCurrent = i == m_panels.windows().getCurrentWindowLayout();
        ListRow* const row = m_entries->addRow(QStringLiteral("layouts"), name);
        row->setCheckable(true);
        row->setChecked(isCurrent);
        row->setSecondary(count == 1 ? tr("1 window") : tr("%1 windows").arg(count));
        connect(row, &QAbstractButton::clicked, this, [this, i, isCurrent] {
            closeAndDo([this, i, isCurrent] {
                // The current one would come back as it was stored last.
                if (!isCurrent)
                    m_panels.windows().setCurrentWindowLayout(i);
            });
        });
        offerPin(row, {Favourite::Kind::Layout, name, {}, {}});
    }
}

void MainMenu::addPresets()
{
    addCommands({QStringLiteral("presets"), QStringLiteral("savePreset"), QStringLiteral("undo")});
    m_entries->addSeparator();
    const PresetRequests& presets = m_panels.presets();
    const QStringList names = presets.names();
    for (const QString& name : names.mid(0, kPresetsInMenu)) {
        const Favourite preset{Favourite::Kind::Preset, name, {}, {}};
        ListRow* const row = m_entries->addRow(QStringLiteral("preset"), name);
        row->setCheckable(true);
        row->setChecked(name == presets.current());
        connect(row, &QAbstractButton::clicked, this,
                [this, preset] { closeAndDo([this, preset] { m_panels.run(preset); }); });
        offerPin(row, preset);
    }
    if (names.size() > kPresetsInMenu) {
        ListRow* const more =
            m_entries->addRow(QStringLiteral("more"), tr("All %1 presets").arg(names.size()));
        connect(more, &QAbstractButton::clicked, this,
                [this] { closeAndDo([this] { m_panels.openPresets(); }); });
    } else if (names.isEmpty()) {
        ListRow* const row = m_entries->addRow(QStringLiteral("preset"), tr("No presets"));
        row->setSecondary(presets.isConnected() ? tr("Save this screen as one") : tr("Not connected"));
        row->setEnabled(false);
    }
}

void MainMenu::addInputs()
{
    const bool connected =
        m_panels.window().connectionStatus().state() != ConnectionStatus::State::NotConnected;
    if (!connected || m_inputNames.isEmpty()) {
        ListRow* const row = m_entries->addRow(QStringLiteral("signal"), tr("No inputs"));
        row->setSecondary(connected ? tr("The instrument names none") : tr("Not connected"));
        row->setEnabled(false);
        return;
    }
    for (const QString& name : std::as_const(m_inputNames)) {
        ListRow* const row = m_entries->addRow(QStringLiteral("signal"), name);
        row->setCheckable(true);
        row->setChecked(name == m_input.text());
        row->setEnabled(m_input.active);
        connect(row, &QAbstractButton::clicked, this, [this, name] {
            emit toConfigCoreSignalSourceName(name);
            close();
        });
    }
}

void MainMenu::addCommands(const QStringList& ids)
{
    for (const QString& id : ids) {
        const ScreenCommand* const command = m_panels.commands().find(id);
        if (!command)
            continue;
        ListRow* const row = m_entries->addRow(command->icon, command->text);
        connect(row, &QAbstractButton::clicked, this, [this, id] {
            const ScreenCommand* const meant = m_panels.commands().find(id);
            // What is switched on and off is seen to be so where it was touched.
            if (meant->state)
                meant->run();
            else
                closeAndDo([this, id] { m_panels.run(id); });
            refreshCommands();
        });
        offerPin(row, {Favourite::Kind::Command, id, {}, {}});
        m_commandRows.emplace_back(id, row);
    }
    refreshCommands();
}

void MainMenu::refreshCommands()
{
    for (const auto& [id, row] : m_commandRows) {
        const ScreenCommand* const command = m_panels.commands().find(id);
        row->setEnabled(command->canRun());
        row->setSecondary(command->whyNot ? command->whyNot() : QString());
        row->setDetail(command->state ? command->state() : QString());
    }
}

void MainMenu::fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active)
{
    m_input = {values, reasons, active};
    if (m_section == Section::Inputs)
        fillEntries();
}

void MainMenu::fromStatusCoreSignalSourceAvailableNamesUpdated(QStringList values, QStringList, bool active)
{
    m_inputNames = active ? values : QStringList();
    if (m_section == Section::Inputs)
        fillEntries();
}

// --- Favourites

void MainMenu::showFavourites()
{
    m_favourites->clear();
    m_favourites->addSeparator();
    m_favourites->addHeading(tr("Favourites"));
    const auto& all = m_panels.favourites().all();
    for (const Favourite& favourite : all) {
        const ScreenPanels::Description description = m_panels.describe(favourite);
        ListRow* const row = m_favourites->addRow(description.icon, description.text);
        row->setEnabled(description.whyNot.isEmpty());
        row->setSecondary(description.whyNot);
        connect(row, &QAbstractButton::clicked, this,
                [this, favourite] { closeAndDo([this, favourite] { m_panels.run(favourite); }); });
        offerPin(row, favourite);
    }
    m_favourites->setVisible(!all.empty());
    m_favourites->setMaximumHeight(m_favourites->contentHeight());
    m_favourites->setMinimumHeight(qMin(m_favourites->contentHeight(), 4 * ListRow::kHeight));
}

/// Holding the row offers to pin or to unpin it.
void MainMenu::offerPin(ListRow* row, const Favourite& favourite)
{
    connect(row, &HoldButton::contextMenuWanted, this,
            [this, favourite](const QPoint& place) { openFavouriteMenu(favourite, place); });
}

void MainMenu::openFavouriteMenu(const Favourite& favourite, const QPoint& globalPosition)
{
    auto* const menu = new WzMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    m_panels.favourites().addPinAction(*menu, favourite);
    menu->popup(globalPosition);
}

// --- Function bar

ShellPanel::TriggerList MainMenu::functionTriggers()
{
    if (m_section == Section::Instruments)
        return launcherTriggers();
    TriggerList triggers;
    for (const auto& [section, row] : m_sectionRows) {
        if (!row->isEnabled())
            continue;
        const auto trigger = makeTrigger(row->text(), {}, [row = row] { row->click(); });
        trigger->setButtonSelected(section == m_section);
        triggers.push_back(trigger);
    }
    return triggers;
}

ShellPanel::TriggerList MainMenu::launcherTriggers()
{
    const SupportedSubWindow* const kind = m_launcher->current();
    TriggerList triggers;
    if (kind) {
        triggers.push_back(
            makeTrigger(tr("Open"), QStringLiteral("check"), [this] { m_launcher->openCurrent(); }));
        const auto openNew = makeTrigger(tr("Open New"), {}, [this] { m_launcher->openNewOfCurrent(); });
        openNew->setSuperscriptText(kind->windowTitle);
        triggers.push_back(m_launcher->mayOpenNewOfCurrent() ? openNew : nullptr);
        triggers.push_back(m_launcher->isCurrentOpen()
                               ? makeTrigger(tr("Close"), QStringLiteral("close"),
                                             [this] { m_launcher->closeOneOfCurrent(); })
                               : nullptr);
        const auto pin = makeTrigger(tr("Favourite"), QStringLiteral("favourite"),
                                     [this] { m_launcher->togglePinOfCurrent(); });
        pin->setButtonSelected(m_launcher->isCurrentPinned());
        triggers.push_back(pin);
    }
    for (const LauncherPage::Group& group : m_launcher->groups()) {
        const auto trigger =
            makeTrigger(group.name, {}, [this, name = group.name] { m_launcher->showGroup(name); });
        triggers.push_back(trigger);
    }
    triggers.push_back(
        makeTrigger(tr("Help"), QStringLiteral("help"), [this] { showSection(Section::Help); }));
    return triggers;
}
