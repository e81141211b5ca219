#include "instruments/datacorebrowser/DatacoreBrowser.h"

#include "instruments/datacorebrowser/DatacoreBrowserContentPreset.h"
#include "instruments/datacorebrowser/DatacoreTreeModel.h"
#include "instruments/datacorebrowser/DatacoreTreeView.h"

#include "gui/control/WzMenu.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QLocale>
#include <QResizeEvent>
#include <QTimerEvent>
#include <QVBoxLayout>

namespace {

constexpr int kChangesMs = 50;
constexpr int kTypingMs = 200;
constexpr int kLargeWidth = 900;
constexpr int kSmallField = 36;
constexpr int kLargeField = 56;
constexpr int kFieldMargin = 8;

} // namespace

DatacoreBrowser::DatacoreBrowser(WzSubWindow* subWindow, Velmora::Wz::Device device,
                                 ClientDatacoreRegistry& registry)
    : WzSubwindowContent(QString(kClassName), Icons::path(QString(kIconName)), subWindow, device)
    , m_model(new DatacoreTreeModel(registry, this))
    , m_view(new DatacoreTreeView(*getWzStyle(), *m_model, this))
    , m_filter(new QLineEdit(this))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_filter);
    column->addWidget(m_view);
    m_filter->setPlaceholderText(tr("Search name, value or class"));
    m_filter->setClearButtonEnabled(true);
    m_filter->setTextMargins(kFieldMargin, 0, kFieldMargin, 0);
    m_filter->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    setFocusProxy(m_view);

    connect(m_filter, &QLineEdit::textChanged, this, [this] { m_filterTimer.start(kTypingMs, this); });
    connect(m_filter, &QLineEdit::returnPressed, this, &DatacoreBrowser::applyFilter);
    connect(m_model, &DatacoreTreeModel::changesWaiting, this, &DatacoreBrowser::scheduleChanges);
    connect(m_model, &QAbstractItemModel::modelReset, this, &DatacoreBrowser::showCount);
    connect(m_view, &DatacoreTreeView::choiceRequested, this, &DatacoreBrowser::askForChoice);
    connect(getWzStyle(), &WzCustomStyle::subWindowSettingsaUpdated, this, &DatacoreBrowser::updateColours);
    connect(&subWindow->area().connectionStatus(), &ConnectionStatus::changed, this,
            &DatacoreBrowser::showConnection);
    updateColours();
    showCount();
    showConnection();
}

QString DatacoreBrowser::helpText() const
{
    return tr(
        "<h3>Datacore Browser</h3>"
        "<p>All that the instrument tells and takes, under the names that it has there. Touch a row to "
        "unfold "
        "or fold it.</p>"
        "<p><b>Search</b>: shows the rows that have all the words in name, value or class, and what leads to "
        "them. Values count as they are when you type.</p>"
        "<p><b>Writing</b>: values in a field can be written: those of the configuration and command trees. "
        "Touch one twice, type, and press Enter; Escape, or touching elsewhere, leaves it as it was. A list "
        "is "
        "written as [\"one\",\"two\"]. A dashed amber edge stands until the instrument has confirmed the "
        "value, a triangle when it has not for 5 s. A value that the instrument refuses returns to what it "
        "was. Each write of a command carries it out, also with the same value.</p>"
        "<p><b>Validity</b>: tick valid, \"i\" note, triangle warning, cross error. Greyed rows are "
        "inactive. "
        "Hold, or point at, a row for the reasons, its path and its whole value.</p>"
        "<p><b>Freeze</b> holds all values as they are.</p>");
}

SerialisableDataPacket DatacoreBrowser::getWidgetStatesAsPreset()
{
    DatacoreBrowserContentPreset preset;
    preset.setExpandedPaths(m_view->expandedPaths());
    preset.setSelectedPath(m_view->selectedPath());
    preset.setFilter(m_filter->text());
    return preset;
}

void DatacoreBrowser::loadWidgetStatesFromPreset(SerialisableDataPacket& preset)
{
    if (preset.getPacketClassName() != DatacoreBrowserContentPreset::kClassName)
        return;
    bool ok = false;
    const auto mine =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<DatacoreBrowserContentPreset>(
            preset, ok);
    if (!ok)
        return;
    if (mine.containsExpandedPaths())
        m_view->setRemembered(mine.expandedPaths(), mine.selectedPath());
    m_filter->setText(mine.filter());
    applyFilter();
}

void DatacoreBrowser::populateContextMenu(WzMenu* menu)
{
    const QModelIndex current = m_view->currentIndex();
    const QModelIndex value = current.sibling(current.row(), DatacoreTreeModel::Value);
    const auto add = [menu](const QString& text, bool enabled) {
        QAction* const action = menu->addAction(text);
        action->setEnabled(enabled);
        return action;
    };
    connect(add(tr("Edit Value"), m_model->flags(value).testFlag(Qt::ItemIsEditable)), &QAction::triggered,
            this, [this, value = QPersistentModelIndex(value)] {
                if (m_model->isBool(value))
                    askForChoice(value);
                else
                    m_view->edit(value);
            });
    const auto copies = [this](QAction* action, const QString& text) {
        connect(action, &QAction::triggered, this, [text] { QGuiApplication::clipboard()->setText(text); });
    };
    copies(add(tr("Copy Path"), current.isValid()), m_model->pathOf(current));
    copies(add(tr("Copy Value"), current.isValid()), value.data(Qt::EditRole).toString());
    connect(add(tr("Fold All"), true), &QAction::triggered, m_view, &QTreeView::collapseAll);
    connect(add(tr("Clear Search"), !m_filter->text().isEmpty()), &QAction::triggered, m_filter,
            &QLineEdit::clear);
}

void DatacoreBrowser::resizeEvent(QResizeEvent* event)
{
    const bool large = event->size().width() >= kLargeWidth;
    m_filter->setFixedHeight(large ? kLargeField : kSmallField);
    m_view->setLayoutFor(event->size().width());
    WzSubwindowContent::resizeEvent(event);
}

void DatacoreBrowser::onExposedChanged(bool exposed)
{
    m_model->setWatching(exposed);
    if (exposed) {
        m_view->viewport()->update();
        scheduleChanges();
    } else {
        m_changesTimer.stop();
    }
}

void DatacoreBrowser::onFrozenChanged(bool frozen)
{
    m_model->setHeld(frozen);
    m_view->viewport()->update();
}

void DatacoreBrowser::onConnectionChanged(bool connected)
{
    if (!connected)
        m_allValuesCame = false;
}

void DatacoreBrowser::showConnection()
{
    const auto state = getSubWindow()->area().connectionStatus().state();
    m_view->setEmptyText(!m_filter->text().isEmpty() && m_model->nodeCount() > 0 ? tr("Nothing found")
                                                                                 : QString());
    if (state != ConnectionStatus::State::Connected)
        return;
    noteDataArrived();
    // What is searched among values can be found only now.
    if (!std::exchange(m_allValuesCame, true) && !m_filter->text().isEmpty())
        applyFilter();
}

void DatacoreBrowser::scheduleChanges()
{
    if (isExposed() && !m_changesTimer.isActive())
        m_changesTimer.start(kChangesMs, this);
}

void DatacoreBrowser::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_filterTimer.timerId()) {
        applyFilter();
    } else if (event->timerId() == m_changesTimer.timerId()) {
        m_changesTimer.stop();
        if (m_view->showChanges())
            scheduleChanges();
    } else {
        WzSubwindowContent::timerEvent(event);
    }
}

void DatacoreBrowser::applyFilter()
{
    m_filterTimer.stop();
    if (m_filter->text().simplified() != m_model->filter() || !m_allValuesCame)
        m_model->setFilter(m_filter->text());
}

void DatacoreBrowser::showCount()
{
    const QLocale locale;
    const QString all = locale.toString(m_model->nodeCount());
    const QString found = locale.toString(m_model->matchCount());
    setTitleDetails(m_model->nodeCount() == 0         ? QString()
                        : m_model->filter().isEmpty() ? tr("%1 nodes").arg(all)
                                                      : tr("%1 of %2 nodes").arg(found, all));
    showConnection();
}

void DatacoreBrowser::askForChoice(const QModelIndex& index)
{
    auto* const menu = new WzMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPersistentModelIndex target(index);
    for (const QString& choice : {QStringLiteral("true"), QStringLiteral("false")}) {
        QAction* const action = menu->addAction(choice);
        action->setCheckable(true);
        action->setChecked(index.data(Qt::EditRole).toString() == choice);
        connect(action, &QAction::triggered, m_model,
                [this, target, choice] { m_model->setData(target, choice); });
    }
    menu->popup(m_view->viewport()->mapToGlobal(m_view->visualRect(index).bottomLeft()));
}

void DatacoreBrowser::updateColours()
{
    setPalette(getWzStyle()->instrumentPalette().widgetPalette());
    m_view->updateColours();
}
