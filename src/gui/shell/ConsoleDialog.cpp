#include "gui/shell/ConsoleDialog.h"

#include "gui/control/TouchScroll.h"
#include "gui/framework/MainWindowBase.h"
#include "gui/shell/ConsoleLog.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/TouchKeyboard.h"
#include "gui/style/WzCustomStyle.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 1160;
constexpr int kOutputHeight = 260;
constexpr int kOutputPixels = 17;
constexpr int kLongestLine = 1000;

} // namespace

ConsoleDialog::ConsoleDialog(MainWindowBase& window, ConsoleLog& log)
    : ShellPanel(window, QStringLiteral("rename"), tr("Console"))
    , m_log(log)
    , m_output(new QPlainTextEdit(&card()))
    , m_entry(new EntryLine(window.wzStyle(), {}, &card()))
{
    setCardWidth(kWidth);
    setupOutput();
    m_entry->setAccessibleName(tr("Command"));
    m_entry->setPlaceholderText(tr("Command"));
    m_entry->setMaxLength(kLongestLine);
    m_entry->installEventFilter(this);
    contents().addWidget(m_entry);
    contents().addSpacing(kGap);
    contents().addWidget(new TouchKeyboard(TouchKeyboard::Keys::Command, m_entry, &card()));
    QPushButton* const before = addCommand(tr("Earlier"), QStringLiteral("up"));
    QPushButton* const after = addCommand(tr("Later"), QStringLiteral("down"));
    QPushButton* const clear = addCommand(tr("Clear"), QStringLiteral("delete"));
    m_run = addCommand(tr("Run"), QStringLiteral("check"));
    connect(before, &QPushButton::clicked, this, [this] { recall(-1); });
    connect(after, &QPushButton::clicked, this, [this] { recall(1); });
    connect(clear, &QPushButton::clicked, this, [this] { m_log.clear(); });
    connect(m_run, &QPushButton::clicked, this, &ConsoleDialog::run);
    connect(m_entry, &EntryLine::returnPressed, this, &ConsoleDialog::run);
    connect(m_entry, &EntryLine::textEdited, this, [this] { m_recalled = -1; });
    connect(&m_log, &ConsoleLog::lineAdded, m_output, &QPlainTextEdit::appendPlainText);
    connect(&m_log, &ConsoleLog::cleared, m_output, &QPlainTextEdit::clear);
    connect(&m_log, &ConsoleLog::busyChanged, this, &ConsoleDialog::showBusy);
    setFirstFocus(m_entry);
    showBusy();
}

void ConsoleDialog::setupOutput()
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(kOutputPixels);
    m_output->setFont(font);
    m_output->setReadOnly(true);
    m_output->setFocusPolicy(Qt::NoFocus);
    m_output->setFrameShape(QFrame::NoFrame);
    m_output->setContextMenuPolicy(Qt::NoContextMenu);
    m_output->setMaximumBlockCount(ConsoleLog::kMostLines);
    m_output->setFixedHeight(kOutputHeight);
    m_output->setPlainText(m_log.lines().join(QLatin1Char('\n')));
    m_output->moveCursor(QTextCursor::End);
    TouchScroll::enable(*m_output);
    contents().addWidget(m_output);
    contents().addSpacing(kGap);
    onThemeChanged();
}

void ConsoleDialog::onThemeChanged()
{
    QPalette colours = m_output->palette();
    colours.setColor(QPalette::Base, EntryLine::fieldColour(wzStyle()));
    colours.setColor(QPalette::Text, wzStyle().colour(ColourRole::Text));
    m_output->setPalette(colours);
}

void ConsoleDialog::showBusy()
{
    setTitleDetail(m_log.isBusy() ? tr("working...") : tr("\"execute 25\" opens the help page"));
}

void ConsoleDialog::run()
{
    const QString line = m_entry->text().trimmed();
    if (line.isEmpty())
        return;
    m_entry->clear();
    m_recalled = -1;
    m_log.enter(line);
}

void ConsoleDialog::recall(int step)
{
    const QStringList& entries = m_log.entries();
    const int from = m_recalled < 0 ? entries.size() : m_recalled;
    const int to = from + step;
    if (to < 0 || from == to || entries.isEmpty())
        return;
    m_recalled = to < entries.size() ? to : -1;
    m_entry->setText(entries.value(m_recalled));
}

/// The knob goes through what was entered, since the arrows move the focus.
bool ConsoleDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_entry && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            recall(key == Qt::Key_PageUp ? -1 : 1);
            return true;
        }
    }
    return ShellPanel::eventFilter(watched, event);
}
