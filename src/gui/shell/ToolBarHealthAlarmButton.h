#pragma once

#include "gui/shell/ToolBarItem.h"

#include <QStringList>

/// Whether the instrument is well, and how many of its sensors say that it is not.
class ToolBarHealthAlarmButton : public ToolBarItem {
    Q_OBJECT
public:
    ToolBarHealthAlarmButton(const WzCustomStyle& style, QWidget* parent);

    /// What was known goes with the connection.
    void setConnected(bool connected);
    void setSystemMode(const QString& mode);

public slots:
    void fromStatusCoreHealthAlarmsUpdated(QStringList values, QStringList reasons, bool active);

private:
    void showHealth();

    const WzCustomStyle& m_style;
    QStringList m_alarms;
    QString m_mode;
    bool m_isKnown = false;
};
