#include "gui/shell/ScreenMenus.h"

#include "gui/control/FunctionBar.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMenu.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QInputDialog>

ScreenMenus::ScreenMenus(DisplayMainWindow& window, SupportedSubWindows& catalogue)
    : QObject(&window)
    , m_window(window)
    , m_catalogue(catalogue)
{
}

WzSubWindowManager& ScreenMenus::windows() const
{
    return m_window.windows();
}

void ScreenMenus::openMainMenuAboveFunctionBar()
{
    WzMenu* const menu = makeMainMenu();
    const int top = m_window.height() - FunctionBar::kHeight - menu->sizeHint().height();
    menu->popup(m_window.mapToGlobal(QPoint(FunctionBar::kGap, top)));
}

void ScreenMenus::openMainMenu(const QPoint& globalPosition)
{
    makeMainMenu()->popup(globalPosition);
}

WzMenu* ScreenMenus::makeMenu()
{
    auto* const menu = new WzMenu(&m_window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    return menu;
}

WzMenu* ScreenMenus::makeMainMenu()
{
    WzMenu* const menu = makeMenu();
    const auto addSubMenu = [this, menu](const QString& iconName, const QString& title, auto fill) {
        auto* const subMenu = new WzMenu(title, menu);
        subMenu->setIcon(icon(iconName));
        fill(*subMenu);
        menu->addMenu(subMenu);
    };
    addSubMenu(QStringLiteral("launcher"), tr("Instruments"), [this](WzMenu& sub) { addInstruments(sub); });
    addSubMenu(QStringLiteral("layouts"), tr("Layouts"), [this](WzMenu& sub) { addLayouts(sub); });
    addSubMenu(QStringLiteral("settings"), tr("System"), [this](WzMenu& sub) { addSystem(sub); });
    return menu;
}

QIcon ScreenMenus::icon(const QString& name) const
{
    return Icons::icon(Icons::path(name), 24, m_window.wzStyle().colour(ColourRole::Text),
                       m_window.wzStyle().colour(ColourRole::DisabledText));
}

void ScreenMenus::addSystem(WzMenu& menu)
{
    const auto addToggle = [this, &menu](const QString& text, bool isOn, auto change) {
        QAction* const action = menu.addAction(text);
        action->setCheckable(true);
        action->setChecked(isOn);
        connect(action, &QAction::triggered, this, change);
    };
    addToggle(tr("Light Theme"), m_window.wzStyle().theme() == WzPalette::Theme::Light, [this](bool on) {
        m_window.wzStyle().setTheme(on ? WzPalette::Theme::Light : WzPalette::Theme::Dark);
    });
    addToggle(tr("Colour-Blind Palette"), m_window.wzStyle().isColourBlind(),
              [this](bool on) { m_window.wzStyle().setColourBlind(on); });
    connect(menu.addAction(icon(QStringLiteral("screenshot")), tr("Take Screenshot")), &QAction::triggered,
            this, [this] { m_window.takeScreenshot(&m_window); });
    connect(menu.addAction(icon(QStringLiteral("close")), tr("Quit")), &QAction::triggered, &m_window,
            &DisplayMainWindow::quitRequested);
}

void ScreenMenus::addInstruments(WzMenu& menu)
{
    WzMenu* group = nullptr;
    for (const SupportedSubWindow& kind : m_catalogue.getAvailableSubWindows()) {
        if (!group || group->title() != kind.group) {
            group = new WzMenu(kind.group, &menu);
            menu.addMenu(group);
        }
        QAction* const action = group->addAction(icon(kind.icon), kind.windowTitle);
        connect(action, &QAction::triggered, this, [this, kind] { m_catalogue.request(kind); });
    }
}

void ScreenMenus::openLayoutsMenu(const QPoint& globalPosition)
{
    WzMenu* const menu = makeMenu();
    addLayouts(*menu);
    menu->popup(globalPosition);
}

void ScreenMenus::addLayouts(WzMenu& menu)
{
    const auto overview = windows().getLayoutOverview();
    for (int i = 0; i < static_cast<int>(overview.size()); ++i) {
        const auto& [name, count] = overview[static_cast<std::size_t>(i)];
        const QString content = count == 1 ? tr("1 window") : tr("%1 windows").arg(count);
        // What stands behind the tab is the row's detail.
        QAction* const action = menu.addAction(name + QLatin1Char('\t') + content);
        action->setCheckable(true);
        action->setChecked(i == windows().getCurrentWindowLayout());
        // The current one would come back as it was stored last.
        if (i != windows().getCurrentWindowLayout())
            connect(action, &QAction::triggered, this, [this, i] { windows().setCurrentWindowLayout(i); });
    }
    menu.addSeparator();
    addChangesOfLayouts(menu);
    QAction* const lock = menu.addAction(tr("Lock Layouts"));
    lock->setCheckable(true);
    lock->setChecked(m_window.applicationState().isLayoutLocked());
    connect(lock, &QAction::triggered, &m_window.applicationState(), &ApplicationState::setLayoutLocked);
}

void ScreenMenus::addChangesOfLayouts(WzMenu& menu)
{
    const bool locked = m_window.applicationState().isLayoutLocked();
    const auto add = [this, &menu, locked](const QString& text, auto act) {
        QAction* const action = menu.addAction(text);
        action->setEnabled(!locked);
        connect(action, &QAction::triggered, this, act);
    };
    const int current = windows().getCurrentWindowLayout();
    add(tr("New Layout"), [this] {
        windows().addLayoutAtEnd(windows().getNewLayoutName(windows().getLayoutOverview(), false));
        windows().setCurrentWindowLayout(windows().getNumberLayouts() - 1);
    });
    add(tr("Rename..."), [this] { askForLayoutName(); });
    add(tr("Duplicate"), [this, current] { windows().duplicateLayout(current); });
    add(tr("Move Earlier"), [this, current] { windows().moveLayout(current, true); });
    add(tr("Move Later"), [this, current] { windows().moveLayout(current, false); });
    add(tr("Delete"), [this] { windows().onDeleteLayout(-1, true); });
    if (windows().canRestoreDeletedLayout())
        add(tr("Bring Back \"%1\"").arg(windows().deletedLayoutName()),
            [this] { windows().restoreDeletedLayout(); });
}

void ScreenMenus::askForLayoutName()
{
    auto* const dialog = new QInputDialog(&m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Rename Layout"));
    dialog->setLabelText(tr("Name"));
    dialog->setTextValue(windows().getCurrentLayoutName());
    const int index = windows().getCurrentWindowLayout();
    connect(dialog, &QInputDialog::textValueSelected, this,
            [this, index](const QString& name) { windows().renameLayout(index, name.trimmed()); });
    dialog->open();
}
