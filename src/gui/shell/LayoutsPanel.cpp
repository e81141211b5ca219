#include "gui/shell/LayoutsPanel.h"

#include "gui/control/FunctionTrigger.h"
#include "gui/control/TouchScroll.h"
#include "gui/control/WzMenu.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/ConfirmationStrip.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/LayoutCard.h"
#include "gui/shell/NameEntry.h"
#include "gui/shell/ScreenPanels.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int kCardGap = 42;
constexpr int kRowGap = 20;
constexpr int kColumns = 3;
constexpr int kMargin = 32;

} // namespace

LayoutsPanel::LayoutsPanel(ScreenPanels& panels)
    : ShellPanel(panels.window(), QStringLiteral("layouts"), tr("Layouts"), Place::Left)
    , m_panels(panels)
    , m_scroll(new QScrollArea(&card()))
    , m_grid(new QWidget)
    , m_selected(panels.windows().getCurrentWindowLayout())
{
    setCardWidth(kWidth);
    contents().setContentsMargins(kMargin - LayoutCard::kMargin, 8, kMargin - LayoutCard::kMargin, kMargin);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a finger or the focus moves it
    m_scroll->viewport()->setAutoFillBackground(false);
    m_vacant = new LayoutCard(wzStyle(), -1, m_grid);
    m_vacant->setVacant();
    connect(m_vacant, &QAbstractButton::clicked, this, &LayoutsPanel::addLayout);
    m_scroll->setWidgetResizable(true);
    m_scroll->setWidget(m_grid);
    m_grid->setAutoFillBackground(false);
    TouchScroll::enable(*m_scroll);
    contents().addWidget(m_scroll, 1);
    setupCommands();
    setupDeletedLine();
    connect(&windows(), &WzSubWindowManager::layoutsChanged, this, &LayoutsPanel::refresh);
    connect(&windows(), &WzSubWindowManager::requestPopupButtonUpdate, this, &LayoutsPanel::fillCards);
    connect(&panels.window().applicationState(), &ApplicationState::layoutLockChanged, this,
            &LayoutsPanel::updateCommands);
    refresh();
}

WzSubWindowManager& LayoutsPanel::windows() const
{
    return m_panels.windows();
}

bool LayoutsPanel::isLocked() const
{
    return m_panels.window().applicationState().isLayoutLocked();
}

void LayoutsPanel::setupCommands()
{
    const auto add = [this](const QString& text, const char* icon, auto act) {
        QPushButton* const button = addCommand(text, QString::fromLatin1(icon));
        connect(button, &QPushButton::clicked, this, act);
        return button;
    };
    m_add = add(tr("New"), "add", [this] { addLayout(); });
    m_rename = add(tr("Rename"), "rename", [this] { rename(); });
    m_duplicate = add(tr("Duplicate"), "duplicate", [this] { duplicate(); });
    m_earlier = add(tr("Earlier"), "left", [this] { move(true); });
    m_later = add(tr("Later"), "right", [this] { move(false); });
    m_delete = add(tr("Delete"), "delete", [this] { askBeforeDeleting(); });
}

void LayoutsPanel::setupDeletedLine()
{
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(0, kGroupGap, 0, 0);
    row->setSpacing(kPadding);
    m_deletedText = new QLabel(&card());
    m_deletedText->setForegroundRole(QPalette::PlaceholderText);
    m_deletedText->setTextFormat(Qt::PlainText);
    m_bringBack = new QPushButton(tr("Bring back"), &card());
    m_bringBack->setMinimumWidth(160);
    setIcon(m_bringBack, QStringLiteral("back"));
    connect(m_bringBack, &QPushButton::clicked, this, &LayoutsPanel::bringBack);
    row->addWidget(m_deletedText);
    row->addWidget(m_bringBack);
    row->addStretch(1);
    row->addStrut(56);
    contents().addLayout(row);
}

// --- Cards

/// What the manager has changed by itself is seen here, too.
void LayoutsPanel::refresh()
{
    if (static_cast<int>(m_cards.size()) != windows().getNumberLayouts())
        makeCards();
    m_selected = qBound(0, m_selected, windows().getNumberLayouts() - 1);
    fillCards();
    select(m_selected);
}

void LayoutsPanel::makeCards()
{
    const bool hadFocus = m_grid->isAncestorOf(focusWidget());
    for (LayoutCard* const gone : m_cards) {
        gone->hide();
        gone->deleteLater();
    }
    m_cards.clear();
    for (int i = 0; i < windows().getNumberLayouts(); ++i) {
        auto* const card = new LayoutCard(wzStyle(), i, m_grid);
        card->show();
        connect(card, &LayoutCard::focused, this, [this, i] { select(i); });
        connect(card, &QAbstractButton::clicked, this, [this, i] {
            if (m_selected == i)
                openSelected();
            else
                select(i);
        });
        connect(card, &HoldButton::contextMenuWanted, this,
                [this, i](const QPoint& place) { openContextMenu(i, place); });
        m_cards.push_back(card);
    }
    placeCards();
    if (hadFocus && !m_cards.empty())
        m_cards[static_cast<std::size_t>(qBound(0, m_selected, int(m_cards.size()) - 1))]->setFocus();
}

void LayoutsPanel::fillCards()
{
    const QSize area = m_panels.window().area().instrumentArea().size();
    const int current = windows().getCurrentWindowLayout();
    const auto layouts = windows().getWindowLayoutPresets(!windows().getLayoutSwitchInProgress());
    for (std::size_t i = 0; i < qMin(layouts.size(), m_cards.size()); ++i)
        m_cards[i]->setLayout(layouts[i].getLayoutName(),
                              LayoutCard::windowsOf(layouts[i], area, m_panels.catalogue()),
                              static_cast<int>(i) == current);
    setTitleDetail(tr("%1 of %2 at most")
                       .arg(QString::number(layouts.size()), QString::number(LayoutList::kMaximumBySwiping)));
}

void LayoutsPanel::placeCards()
{
    const QSize pitch = LayoutCard::kFace + QSize(kCardGap, kRowGap);
    for (std::size_t i = 0; i < m_cards.size(); ++i) {
        const int index = static_cast<int>(i);
        m_cards[i]->setGeometry(
            {{index % kColumns * pitch.width(), index / kColumns * pitch.height()}, m_cards[i]->sizeHint()});
    }
    const int count = static_cast<int>(m_cards.size());
    m_vacant->setGeometry(
        {{count % kColumns * pitch.width(), count / kColumns * pitch.height()}, m_vacant->sizeHint()});
    const int rows = count / kColumns + 1;
    m_grid->setMinimumHeight(rows * pitch.height() - kRowGap + 2 * LayoutCard::kMargin);
}

void LayoutsPanel::select(int index)
{
    m_selected = index;
    for (LayoutCard* const card : m_cards)
        card->setChecked(card->index() == index);
    if (index >= 0 && index < static_cast<int>(m_cards.size())) {
        LayoutCard* const card = m_cards[static_cast<std::size_t>(index)];
        setFirstFocus(card);
        m_scroll->ensureWidgetVisible(card, 0, kRowGap);
    }
    updateCommands();
}

void LayoutsPanel::updateCommands()
{
    const bool free = !isLocked();
    const QString why = free ? QString() : tr("The layouts are locked");
    const bool isLast = m_selected + 1 >= windows().getNumberLayouts();
    m_add->setEnabled(free && windows().getNumberLayouts() < LayoutList::kMaximumBySwiping);
    m_duplicate->setEnabled(free && windows().getNumberLayouts() < LayoutList::kMaximumBySwiping);
    m_rename->setEnabled(free);
    m_vacant->setEnabled(m_add->isEnabled());
    m_earlier->setEnabled(free && m_selected > 0);
    m_later->setEnabled(free && !isLast);
    m_delete->setEnabled(free);
    for (QPushButton* const button : {m_add, m_rename, m_duplicate, m_earlier, m_later, m_delete})
        button->setToolTip(why);
    const bool mayComeBack = windows().canRestoreDeletedLayout();
    m_deletedText->setText(mayComeBack ? tr("Deleted \"%1\".").arg(windows().deletedLayoutName())
                               : free  ? tr("Touch a layout twice to show it.")
                                       : why);
    m_bringBack->setVisible(mayComeBack);
    m_bringBack->setEnabled(free);
    updateFunctionTriggers();
}

// --- What can be done

void LayoutsPanel::openSelected()
{
    const int index = m_selected;
    close();
    // The current one would come back as it was stored last.
    if (index != windows().getCurrentWindowLayout())
        windows().setCurrentWindowLayout(index);
}

void LayoutsPanel::addLayout()
{
    windows().addLayoutAtEnd(windows().getNewLayoutName(windows().getLayoutOverview(), false));
    windows().setCurrentWindowLayout(windows().getNumberLayouts() - 1);
    select(windows().getNumberLayouts() - 1);
}

void LayoutsPanel::duplicate()
{
    const int source = m_selected;
    windows().duplicateLayout(source);
    select(source + 1);
}

void LayoutsPanel::move(bool earlier)
{
    const int target = m_selected + (earlier ? -1 : 1);
    windows().moveLayout(m_selected, earlier);
    select(target);
}

/// The commands wait for the answer.
void LayoutsPanel::layOverCommands(QWidget* question)
{
    m_question = question;
    const int top = m_add->y() - kGap;
    question->setGeometry(m_add->x(), top, m_delete->geometry().right() + 1 - m_add->x(), question->height());
}

/// The focus goes back to the layout that was asked about.
void LayoutsPanel::endQuestion()
{
    m_question = nullptr;
    if (m_selected < static_cast<int>(m_cards.size()))
        m_cards[static_cast<std::size_t>(m_selected)]->setFocus();
    updateCommands();
}

void LayoutsPanel::rename()
{
    if (m_question || isLocked())
        return;
    const QString name = windows().layoutAt(m_selected)->getLayoutName();
    auto* const entry = new NameEntry(wzStyle(), tr("Name"), name, &card());
    connect(entry, &NameEntry::accepted, this, [this, name](const QString& newName) {
        windows().renameLayout(m_selected, newName);
        m_panels.favourites().noteRenamed(Favourite::Kind::Layout, name, newName);
        endQuestion();
    });
    connect(entry, &NameEntry::cancelled, this, &LayoutsPanel::endQuestion);
    entry->setGeometry(0, card().height() - entry->sizeHint().height(), card().width(),
                       entry->sizeHint().height());
    m_question = entry;
    entry->ask();
}

void LayoutsPanel::askBeforeDeleting()
{
    if (m_question || isLocked())
        return;
    const auto overview = windows().getLayoutOverview();
    const auto& [name, count] = overview[static_cast<std::size_t>(m_selected)];
    const QString loss = count == 0 ? tr("It holds no windows.")
        : count == 1                ? tr("1 window is lost.")
                                    : tr("%1 windows are lost.").arg(count);
    auto* const strip = new ConfirmationStrip(wzStyle(), tr("Delete layout \"%1\"?").arg(name), loss,
                                              tr("Delete"), QStringLiteral("delete"), &card());
    connect(strip, &ConfirmationStrip::confirmed, this, &LayoutsPanel::deleteSelected);
    connect(strip, &ConfirmationStrip::kept, this, &LayoutsPanel::endQuestion);
    layOverCommands(strip);
    strip->ask();
}

void LayoutsPanel::deleteSelected()
{
    windows().onDeleteLayout(m_selected, false);
    endQuestion();
}

void LayoutsPanel::bringBack()
{
    windows().restoreDeletedLayout();
    select(windows().getCurrentWindowLayout());
    endQuestion();
}

void LayoutsPanel::openContextMenu(int index, const QPoint& globalPosition)
{
    select(index);
    auto* const menu = new WzMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(tr("Open")), &QAction::triggered, this, &LayoutsPanel::openSelected);
    for (QPushButton* const button : {m_rename, m_duplicate, m_delete}) {
        QAction* const action = menu->addAction(button->text());
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &QPushButton::click);
    }
    menu->addSeparator();
    m_panels.favourites().addPinAction(
        *menu, {Favourite::Kind::Layout, windows().layoutAt(index)->getLayoutName(), {}, {}});
    menu->popup(globalPosition);
}

ShellPanel::TriggerList LayoutsPanel::functionTriggers()
{
    TriggerList triggers;
    const WindowLayoutPreset* const layout = windows().layoutAt(m_selected);
    const auto open = makeTrigger(tr("Open"), {}, [this] { openSelected(); });
    open->setSuperscriptText(layout ? layout->getLayoutName() : QString());
    triggers.push_back(open);
    const TriggerList commands = ShellPanel::functionTriggers();
    triggers.insert(triggers.end(), commands.begin(), commands.end());
    const auto lock = makeTrigger(tr("Lock Layouts"), QStringLiteral("lock"),
                                  [this] { m_panels.run(QStringLiteral("lockLayouts")); });
    lock->setButtonSelected(isLocked());
    triggers.push_back(lock);
    triggers.push_back(
        makeTrigger(tr("Presets"), QStringLiteral("preset"), [this] { m_panels.openPresets(); }));
    if (m_bringBack->isEnabled() && windows().canRestoreDeletedLayout())
        triggers.push_back(makeTrigger(m_bringBack->text(), QStringLiteral("back"), [this] { bringBack(); }));
    return triggers;
}
