#pragma once

#include "gui/shell/ShellPanel.h"

class PresetList;
class ScreenPanels;

/// The files of presets that were found, to choose the one that the instrument is to keep.
class PresetImportPanel : public ShellPanel {
    Q_OBJECT
public:
    explicit PresetImportPanel(ScreenPanels& panels);

    PresetList& list() const { return *m_list; }

private:
    void importSelected();

    ScreenPanels& m_panels;
    PresetList* m_list;
    QStringList m_paths; ///< by row
};
