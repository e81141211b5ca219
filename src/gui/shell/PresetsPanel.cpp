#include "gui/shell/PresetsPanel.h"

#include "gui/control/FocusSweepManager.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/shell/ProgressBar.h"
#include "gui/shell/ConfirmationStrip.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/NameEntry.h"
#include "gui/shell/PresetList.h"
#include "gui/shell/PresetRequests.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QDateTime>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kColumns = 3;
constexpr int kMargin = 24;
constexpr int kStatusHeight = 48;
constexpr int kStatusIcon = 24;

/// "today 20:46", "19 Nov 2026 17:30"; empty when unknown.
QString dateText(qint64 savedMs)
{
    if (savedMs <= 0)
        return {};
    const QDateTime saved = QDateTime::fromMSecsSinceEpoch(savedMs);
    const QString time = saved.toString(QStringLiteral("HH:mm"));
    return saved.date() == QDate::currentDate() ? PresetsPanel::tr("today %1").arg(time)
                                                : saved.toString(QStringLiteral("dd MMM yyyy ")) + time;
}

} // namespace

PresetsPanel::PresetsPanel(ScreenPanels& panels)
    : ShellPanel(panels.window(), QStringLiteral("preset"), tr("Presets"), Place::Right)
    , m_panels(panels)
    , m_presets(panels.presets())
    , m_list(new PresetList(wzStyle(), &card()))
{
    setCardWidth(kWidth);
    setTitleDetail(tr("on the instrument"));
    contents().setContentsMargins(1, 0, 0, kMargin);
    contents().addWidget(m_list, 1);
    m_list->setAccessibleName(tr("Presets"));
    setFirstFocus(m_list, true);
    setupStatus();
    setupCommands();
    connect(m_list, &PresetList::selectionChanged, this, &PresetsPanel::updateCommands);
    connect(m_list, &PresetList::activated, this, &PresetsPanel::loadSelected);
    connect(m_list, &PresetList::contextMenuWanted, this, &PresetsPanel::openContextMenu);
    connect(m_list, &PresetList::orderChosen, &m_presets, &PresetRequests::rearrange);
    connect(&m_presets, &PresetRequests::changed, this, &PresetsPanel::refresh);
    m_list->select(m_presets.current());
    refresh();
}

QString PresetsPanel::selected() const
{
    return m_list->selected();
}

void PresetsPanel::setupStatus()
{
    auto* const column = new QVBoxLayout;
    column->setContentsMargins(kMargin, 0, kMargin, 0);
    m_status = new QLabel(&card());
    m_status->setWordWrap(true);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setMinimumHeight(kStatusHeight);
    m_status->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_failed = new QLabel(&card());
    auto* const row = new QHBoxLayout;
    row->addWidget(m_failed);
    row->addWidget(m_status, 1);
    m_busy = new ProgressBar(wzStyle(), &card());
    auto* const line = new QFrame(&card());
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Midlight);
    column->addLayout(row);
    column->addWidget(m_busy);
    column->addSpacing(kGap);
    column->addWidget(line);
    contents().addLayout(column);
}

QPushButton* PresetsPanel::addButton(QGridLayout& grid, const QString& text, const char* icon,
                                     void (PresetsPanel::*act)())
{
    auto* const button = new QPushButton(text, &card());
    setIcon(button, QString::fromLatin1(icon));
    const int place = static_cast<int>(m_buttons.size());
    grid.addWidget(button, place / kColumns, place % kColumns);
    connect(button, &QPushButton::clicked, this, act);
    m_buttons.push_back(button);
    return button;
}

void PresetsPanel::setupCommands()
{
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(kMargin, kGap, kMargin, 0);
    grid->setSpacing(kGap);
    for (int column = 0; column < kColumns; ++column)
        grid->setColumnStretch(column, 1);
    m_save = addButton(*grid, tr("Save New"), "save", &PresetsPanel::askForName);
    m_overwrite = addButton(*grid, tr("Overwrite"), "save", &PresetsPanel::askBeforeOverwriting);
    m_load = addButton(*grid, tr("Load"), "check", &PresetsPanel::loadSelected);
    m_rename = addButton(*grid, tr("Rename"), "rename", &PresetsPanel::askForNewName);
    m_up = addButton(*grid, tr("Up"), "up", &PresetsPanel::moveUp);
    m_down = addButton(*grid, tr("Down"), "down", &PresetsPanel::moveDown);
    m_delete = addButton(*grid, tr("Delete"), "delete", &PresetsPanel::askBeforeDeleting);
    m_export = addButton(*grid, tr("Export"), "save", &PresetsPanel::exportSelected);
    m_import = addButton(*grid, tr("Import"), "add", &PresetsPanel::openImport);
    contents().addLayout(grid);
}

// --- What is shown

void PresetsPanel::refresh()
{
    fillList();
    showStatus();
    updateCommands();
}

void PresetsPanel::fillList()
{
    std::vector<PresetList::Row> rows;
    const QStringList names = m_presets.names();
    rows.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        const QString mark = name != m_presets.current() ? QString()
            : m_presets.currentIsLoaded()                ? tr("loaded")
                                                         : tr("saved");
        rows.push_back({name, dateText(m_presets.savedAt(name)), mark});
    }
    m_list->setEmptyText(m_presets.isConnected() ? tr(
                             "No presets yet.\nA preset keeps this screen: all layouts with their windows, "
                             "favourites and colours.")
                                                 : mainWindow().connectionStatus().text());
    m_list->setRows(std::move(rows));
}

void PresetsPanel::showStatus()
{
    const bool isBusy = m_presets.isBusy();
    m_status->setForegroundRole(m_presets.hasFailed() ? QPalette::WindowText : QPalette::PlaceholderText);
    m_failed->setPixmap(Icons::pixmap(Icons::path(QStringLiteral("status-warning")), kStatusIcon,
                                      wzStyle().colour(ColourRole::Warning), devicePixelRatioF()));
    m_failed->setVisible(m_presets.hasFailed());
    m_status->setText(!m_presets.text().isEmpty()  ? m_presets.text()
                          : m_list->rows().empty() ? QString()
                                                   : tr("Touch a preset twice to load it."));
    m_busy->setBusy(isBusy);
}

void PresetsPanel::onThemeChanged()
{
    showStatus();
}

void PresetsPanel::updateCommands()
{
    const QString why = m_presets.whyNot();
    const int row = m_list->selectedRow();
    const int last = static_cast<int>(m_list->rows().size()) - 1;
    for (QPushButton* const button : m_buttons) {
        const bool needsNone = button == m_save || button == m_import;
        button->setEnabled(why.isEmpty() && !m_question && (needsNone || row >= 0));
        button->setToolTip(why);
    }
    // The order is this program's own.
    m_up->setEnabled(!m_question && row > 0);
    m_down->setEnabled(!m_question && row >= 0 && row < last);
    updateFunctionTriggers();
}

ShellPanel::TriggerList PresetsPanel::functionTriggers()
{
    TriggerList triggers;
    for (QPushButton* const button :
         {m_load, m_save, m_overwrite, m_rename, m_up, m_down, m_delete, m_export, m_import}) {
        const auto trigger = makeTrigger(button->text(), {}, [button] { button->click(); });
        if (button == m_load)
            trigger->setSuperscriptText(selected());
        // Each stays at its place, whichever others can be given.
        triggers.push_back(button->isEnabled() ? trigger : nullptr);
    }
    triggers.push_back(
        makeTrigger(tr("Layouts"), QStringLiteral("layouts"), [this] { m_panels.openLayouts(); }));
    return triggers;
}

// --- What can be done

void PresetsPanel::loadSelected()
{
    if (!m_question && m_load->isEnabled())
        m_presets.load(selected());
}

void PresetsPanel::askForName()
{
    const QString current = m_presets.current();
    enterName(m_presets.contains(current) ? current : m_presets.freeName(tr("Preset")),
              [this](const QString& name) {
                  if (m_presets.contains(name)) {
                      askBeforeOverwriting(name);
                      return;
                  }
                  m_list->select(name);
                  m_presets.save(name);
              });
}

void PresetsPanel::askBeforeOverwriting()
{
    askBeforeOverwriting(selected());
}

void PresetsPanel::askBeforeOverwriting(const QString& name)
{
    ask(tr("Overwrite preset \"%1\"?").arg(name), tr("What it holds now is lost."), tr("Overwrite"), "save",
        [this, name] {
            m_list->select(name);
            m_presets.overwrite(name);
        });
}

void PresetsPanel::askForNewName()
{
    const QString name = selected();
    enterName(name, [this, name](const QString& newName) {
        if (newName != name && m_presets.contains(newName)) {
            m_panels.window().showNotice(QStringLiteral("status-warning"),
                                         tr("There is a preset \"%1\" already").arg(newName), {});
            return;
        }
        m_list->select(newName);
        m_presets.rename(name, newName);
        m_panels.favourites().noteRenamed(Favourite::Kind::Preset, name, newName);
    });
}

void PresetsPanel::askBeforeDeleting()
{
    const QString name = selected();
    ask(tr("Delete preset \"%1\"?").arg(name), tr("It goes from the instrument, for everybody."),
        tr("Delete"), "delete", [this, name] { m_presets.remove(name); });
}

void PresetsPanel::moveUp()
{
    m_list->moveSelected(-1);
}

void PresetsPanel::moveDown()
{
    m_list->moveSelected(1);
}

void PresetsPanel::exportSelected()
{
    m_presets.exportToFile(selected());
}

void PresetsPanel::openImport()
{
    m_panels.openPresetImport();
}

void PresetsPanel::openContextMenu(const QPoint& globalPosition)
{
    auto* const menu = new WzMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QPushButton* const button : {m_load, m_overwrite, m_rename, m_export, m_delete}) {
        QAction* const action = menu->addAction(button->text());
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &QPushButton::click);
    }
    menu->addSeparator();
    m_panels.favourites().addPinAction(*menu, {Favourite::Kind::Preset, selected(), {}, {}});
    menu->popup(globalPosition);
}

// --- Questions

/// The commands wait for the answer.
void PresetsPanel::ask(const QString& question, const QString& loss, const QString& destroy, const char* icon,
                       std::function<void()> action)
{
    if (m_question)
        return;
    auto* const strip =
        new ConfirmationStrip(wzStyle(), question, loss, destroy, QString::fromLatin1(icon), &card());
    connect(strip, &ConfirmationStrip::confirmed, this, [this, action = std::move(action)] {
        endQuestion();
        action();
    });
    connect(strip, &ConfirmationStrip::kept, this, &PresetsPanel::endQuestion);
    strip->setGeometry(placeOfQuestion(strip->height()));
    m_question = strip;
    updateCommands();
    sweep().deselectFocusWidget(); // arrows go to the answers
    strip->ask();
}

/// Below the row that it is about, or above it where there is no room.
QRect PresetsPanel::placeOfQuestion(int height) const
{
    const QRect list = m_list->geometry();
    const QRect row = m_list->rowRect(m_list->selectedRow()).translated(list.topLeft());
    const int below = row.bottom() + 1 + kGap;
    const int top = below + height <= list.bottom() ? below : qMax(list.top(), row.top() - kGap - height);
    return {kPadding, top, card().width() - 2 * kPadding, height};
}

void PresetsPanel::enterName(const QString& proposed, std::function<void(const QString&)> action)
{
    if (m_question || !m_save->isEnabled())
        return;
    setCardWidth(kEntryWidth);
    auto* const entry = new NameEntry(wzStyle(), tr("Name"), proposed, &card());
    connect(entry, &NameEntry::accepted, this, [this, action = std::move(action)](const QString& name) {
        endQuestion();
        action(name);
    });
    connect(entry, &NameEntry::cancelled, this, &PresetsPanel::endQuestion);
    entry->setGeometry(0, card().height() - entry->sizeHint().height(), card().width(),
                       entry->sizeHint().height());
    m_question = entry;
    updateCommands();
    sweep().deselectFocusWidget();
    entry->ask();
}

void PresetsPanel::endQuestion()
{
    m_question = nullptr;
    setCardWidth(kWidth);
    m_list->setFocus();
    sweep().selectFocusWidget();
    updateCommands();
}
