#pragma once

#include <QBasicTimer>
#include <QWidget>

class ApplicationState;
class ConnectionStatus;
class ToolBarAudioMonitorButton;
class ToolBarHealthAlarmButton;
class ToolBarItem;
class WzClientPreset;
class WzCustomStyle;

/// The bar over the upper edge: menu, layout, signal, audio monitor, health, events, lock, connection, clock.
/// What comes from an instrument that is not connected is shown as "--".
class ToolBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 56;

    ToolBar(const WzCustomStyle& style, ApplicationState& state, const ConnectionStatus& connection,
            QWidget* parent);

    /// @p index counts from 0.
    void setLayout(const QString& name, int index, int count);
    void setUnseenEvents(int count);
    /// Whether the bars stay while nobody uses them.
    bool isKept() const { return m_isKept; }
    void setKept(bool kept);
    void onPopulateClientPreset(WzClientPreset& preset) const;
    void onLoadClientPreset(WzClientPreset& preset);
    ToolBarAudioMonitorButton* audioMonitorButton() const { return m_audioMonitor; }
    ToolBarHealthAlarmButton* healthAlarmButton() const { return m_health; }

public slots:
    void fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreAudioChannelsUpdated(QStringList values, QStringList reasons, bool active);
    /// The element's name is spelt so deliberately.
    void fromStatusCoreCurrentPresetSytemModeUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void menuRequested();
    void layoutsRequested();
    void healthRequested();
    void eventLogRequested();
    void connectionRequested();
    void used();
    void keptChanged();
    /// At each full second.
    void clockTicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addItems();
    template<typename Item>
    Item* addItem(Item* item);
    void showConnection();
    void showSignal();
    void showLock(bool locked);
    void showClock();
    bool isConnected() const;

    const WzCustomStyle& m_style;
    ApplicationState& m_state;
    const ConnectionStatus& m_connection;
    QString m_signal;
    QString m_channels;
    bool m_isKept = false;
    QBasicTimer m_clockTimer;
    ToolBarItem* m_menu = nullptr;
    ToolBarItem* m_layout = nullptr;
    ToolBarItem* m_signalItem = nullptr;
    ToolBarAudioMonitorButton* m_audioMonitor = nullptr;
    ToolBarHealthAlarmButton* m_health = nullptr;
    ToolBarItem* m_events = nullptr;
    ToolBarItem* m_lock = nullptr;
    ToolBarItem* m_connectionItem = nullptr;
    ToolBarItem* m_clock = nullptr;
};
