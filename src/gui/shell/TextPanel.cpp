#include "gui/shell/TextPanel.h"

#include "gui/framework/MainWindowBase.h"
#include "gui/shell/NameEntry.h"

#include <QVBoxLayout>

namespace {

constexpr int kWidth = 960;

} // namespace

TextPanel::TextPanel(MainWindowBase& window, const QString& title, const QString& text)
    : ShellPanel(window, QStringLiteral("rename"), title)
    , m_entry(new NameEntry(wzStyle(), tr("Text"), text, &card()))
{
    setCardWidth(kWidth);
    contents().setContentsMargins(1, 0, 1, 1);
    contents().addWidget(m_entry);
    connect(m_entry, &NameEntry::accepted, this, [this](const QString& entered) {
        close();
        emit accepted(entered);
    });
    connect(m_entry, &NameEntry::cancelled, this, &QWidget::close);
}

void TextPanel::ask()
{
    m_entry->ask();
}
