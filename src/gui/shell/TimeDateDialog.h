#pragma once

#include "gui/shell/InstrumentDialog.h"

#include <QBasicTimer>

class InstrumentClock;

/// The clock of the instrument beside that of the screen, and the command that sets it.
class TimeDateDialog : public InstrumentDialog {
    Q_OBJECT
public:
    TimeDateDialog(MainWindowBase& window, const InstrumentClock& clock);

public slots:
    void fromStatusCoreSystemTimeTimeZoneUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreSystemTimeSynchronisedUpdated(QStringList values, QStringList reasons, bool active);
    void fromCommandcore_setUtcUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toCommandcore_setUtc(QString utc);

protected:
    void showState() override;
    void timerEvent(QTimerEvent* event) override;

private:
    void showTimes();

    const InstrumentClock& m_clock;
    QLabel* m_instrument = nullptr;
    QLabel* m_zone = nullptr;
    QLabel* m_held = nullptr;
    QLabel* m_screen = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_set = nullptr;
    QString m_zoneName;
    ElementState m_synchronised;
    bool m_isSettable = false;
    QBasicTimer m_tick;
};
