#pragma once

#include "gui/shell/InstrumentDialog.h"

class InfoRows;

/// What the sensors of the instrument read.
class HealthDialog : public InstrumentDialog {
    Q_OBJECT
public:
    explicit HealthDialog(MainWindowBase& window);

public slots:
    void fromStatusCoreHealthReadingsUpdated(QStringList values, QStringList reasons, bool active);

protected:
    void showState() override;

private:
    InfoRows* m_rows;
    QLabel* m_note;
    ElementState m_readings;
};
