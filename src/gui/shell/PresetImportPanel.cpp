#include "gui/shell/PresetImportPanel.h"

#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/PresetFiles.h"
#include "gui/shell/PresetList.h"
#include "gui/shell/PresetRequests.h"
#include "gui/shell/PresetsPanel.h"
#include "gui/shell/ScreenPanels.h"

#include <QDateTime>
#include <QPushButton>
#include <QVBoxLayout>

PresetImportPanel::PresetImportPanel(ScreenPanels& panels)
    : ShellPanel(panels.window(), QStringLiteral("preset"), tr("Import a preset"), Place::Right)
    , m_panels(panels)
    , m_list(new PresetList(wzStyle(), &card()))
{
    setCardWidth(PresetsPanel::kWidth);
    contents().setContentsMargins(1, 0, 0, 24);
    contents().addWidget(m_list, 1);
    std::vector<PresetList::Row> rows;
    for (const QFileInfo& file : PresetFiles::found()) {
        rows.push_back({file.completeBaseName(),
                        file.lastModified().toString(QStringLiteral("dd MMM yyyy HH:mm  ")) + file.path(),
                        {}});
        m_paths << file.filePath();
    }
    m_list->setMovable(false);
    m_list->setEmptyText(
        tr("No files of presets were found.\nThey are looked for in %1 and on media that are "
           "put in.")
            .arg(PresetFiles::documents()));
    m_list->setRows(std::move(rows));
    setFirstFocus(m_list, true);
    QPushButton* const choose = addCommand(tr("Import"), QStringLiteral("add"));
    choose->setEnabled(!m_paths.isEmpty());
    connect(choose, &QPushButton::clicked, this, &PresetImportPanel::importSelected);
    connect(addCommand(tr("Back"), QStringLiteral("back")), &QPushButton::clicked, &panels,
            &ScreenPanels::openPresets);
    connect(m_list, &PresetList::activated, this, &PresetImportPanel::importSelected);
}

void PresetImportPanel::importSelected()
{
    const QString path = m_paths.value(m_list->selectedRow());
    m_panels.openPresets();
    if (!path.isEmpty())
        m_panels.presets().importFrom(path);
}
