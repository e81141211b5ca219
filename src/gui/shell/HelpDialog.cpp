#include "gui/shell/HelpDialog.h"

#include "gui/framework/MainWindowBase.h"
#include "gui/style/Fonts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kColumnGap = 40;
constexpr int kRowGap = 9;
constexpr int kWhatWidth = 176;
constexpr int kDoesWidth = 340;

} // namespace

HelpDialog::HelpDialog(MainWindowBase& window)
    : ShellPanel(window, QStringLiteral("help"), tr("Help"))
{
    setTitleDetail(tr("\"?\" in the title of a window tells about that window"));
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(kColumnGap);
    columns->addWidget(makeColumn(tr("Touch"),
                                  {{tr("Tap the top or bottom edge"), tr("tool bar and function bar come")},
                                   {tr("Tap the background"), tr("main menu")},
                                   {tr("Swipe sideways"), tr("next layout; a new one after the last")},
                                   {tr("Drag a title"), tr("moves the window to where the frame shows")},
                                   {tr("Drag an edge"), tr("changes the size; between two windows, both")},
                                   {tr("Double tap"), tr("full screen and back")},
                                   {tr("Hold"), tr("menu of what is under the finger")},
                                   {tr("Second finger"), tr("takes a drag or a swipe back")},
                                   {tr("Tap beside a panel"), tr("closes it")}}));
    columns->addWidget(makeColumn(tr("Buttons and knob"),
                                  {{tr("Ten buttons"), tr("do what the bar above them says")},
                                   {tr("More..."), tr("next row of the same buttons")},
                                   {tr("Next..."), tr("next set of buttons")},
                                   {tr("Logo"), tr("main menu")},
                                   {tr("Arrow"), tr("back to what the buttons did before")},
                                   {tr("Arrow buttons"), tr("move the focus")},
                                   {tr("Knob"), tr("moves the focus, or changes the value")},
                                   {tr("OK"), tr("touches what has the focus")},
                                   {tr("Lock"), tr("layouts and windows stay as they are")}}));
    columns->addWidget(makeColumn(tr("Keyboard"),
                                  {{tr("F1 to F10"), tr("the ten buttons")},
                                   {tr("Arrows, Enter"), tr("move the focus, OK")},
                                   {tr("Escape"), tr("back")},
                                   {tr("Tab, Shift+Tab"), tr("next and previous window")},
                                   {tr("Ctrl+Tab"), tr("next layout; with Shift the previous one")},
                                   {tr("Space"), tr("full screen and back")},
                                   {tr("Page Up, Page Down"), tr("turn the knob")},
                                   {tr("Menu"), tr("the logo button")},
                                   {tr("Ctrl+L"), tr("locks the layouts")},
                                   {tr("Ctrl+S"), tr("saves the screen as a preset")},
                                   {tr("Ctrl+Z"), tr("takes back: deleted layout, loaded preset")},
                                   {tr("Print"), tr("screenshot")},
                                   {tr("F11, Ctrl+Q"), tr("leaves full screen, quits")}}));
    contents().addLayout(columns);
}

QWidget* HelpDialog::makeColumn(const QString& heading, const std::vector<Entry>& entries)
{
    auto* const column = new QWidget(&card());
    auto* const grid = new QGridLayout(column);
    grid->setContentsMargins(0, 0, 0, kPadding);
    grid->setHorizontalSpacing(kPadding);
    grid->setVerticalSpacing(kRowGap);
    auto* const title = new QLabel(heading, column);
    title->setFont(Fonts::ofPixels(Fonts::kBodyPixels, true));
    grid->addWidget(title, 0, 0, 1, 2);
    int row = 1;
    for (const Entry& entry : entries) {
        auto* const what = new QLabel(entry.what, column);
        what->setFixedWidth(kWhatWidth);
        what->setWordWrap(true);
        auto* const does = new QLabel(entry.does, column);
        does->setForegroundRole(QPalette::PlaceholderText);
        does->setFixedWidth(kDoesWidth);
        does->setWordWrap(true);
        grid->addWidget(what, row, 0, Qt::AlignTop);
        grid->addWidget(does, row, 1, Qt::AlignTop);
        ++row;
    }
    grid->setRowStretch(row, 1);
    return column;
}
