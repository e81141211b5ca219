#pragma once

#include "instruments/eventlog/EventKindFilter.h"
#include "instruments/eventlog/EventLogExport.h"

#include "gui/framework/WzSubwindowContent.h"

class EventLogList;
class EventLogModel;
class QPushButton;

/// Shows the event log, the newest entry first.
class EventLog : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"EventLog", 8};
    static constexpr QLatin1String kTitle{"Event Log", 9};
    static constexpr QLatin1String kIconName{"event-log", 9};

    /// The model outlives the window.
    EventLog(WzSubWindow* subWindow, Velmora::Wz::Device device, EventLogModel& model);

    QString helpText() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void onExposedChanged(bool exposed) override;
    void onFrozenChanged(bool frozen) override;

private:
    QWidget* makeButtonRow();
    QPushButton* addButton(QWidget* row, const QString& icon, const QString& text);
    void showConnection();
    void setupSettings();
    void updateFilter();
    void askForSearch();
    void search(const QString& text);
    static QString helpOfKinds();
    void addExports(WzMenu& menu);
    void exportTo(EventLogExport::Format format);
    void placeJumpButton();
    void onLogChanged();
    void updateColours();

    EventLogModel& m_model;
    EventLogList* m_list = nullptr;
    QWidget* m_buttons = nullptr;
    Setting* const m_kinds;
    QPushButton* m_kindsButton = nullptr;
    QPushButton* m_search = nullptr;
    QString m_searchedText; ///< not kept: rows that are missing after a start would be missed
    QPushButton* m_pause = nullptr;
    QPushButton* m_jump = nullptr;
};
