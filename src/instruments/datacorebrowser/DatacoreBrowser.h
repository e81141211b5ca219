#pragma once

#include "gui/framework/WzSubwindowContent.h"

#include <QBasicTimer>

class ClientDatacoreRegistry;
class DatacoreTreeModel;
class DatacoreTreeView;
class QLineEdit;

/// Shows all that the instrument tells and takes, as it is named there.
class DatacoreBrowser : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"DatacoreBrowser", 15};
    static constexpr QLatin1String kTitle{"Datacore Browser", 16};
    static constexpr QLatin1String kIconName{"datacore-browser", 16};

    DatacoreBrowser(WzSubWindow* subWindow, Velmora::Wz::Device device, ClientDatacoreRegistry& registry);

    SerialisableDataPacket getWidgetStatesAsPreset() override;
    void loadWidgetStatesFromPreset(SerialisableDataPacket& preset) override;
    void populateContextMenu(WzMenu* menu) override;
    QString helpText() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void onExposedChanged(bool exposed) override;
    void onFrozenChanged(bool frozen) override;
    void onConnectionChanged(bool connected) override;

private:
    void showConnection();
    void scheduleChanges();
    void applyFilter();
    void showCount();
    void askForChoice(const QModelIndex& index);
    void updateColours();

    DatacoreTreeModel* const m_model;
    DatacoreTreeView* const m_view;
    QLineEdit* const m_filter;
    QBasicTimer m_changesTimer;
    QBasicTimer m_filterTimer;
    bool m_allValuesCame = false;
};
