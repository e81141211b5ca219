#pragma once

#include "gui/shell/InstrumentDialog.h"

#include <array>

class DriverCalibrationState;
class ProgressBar;

/// Calibrates the drivers of the SDI outputs, one at a time.
class DriverCalibrationDialog : public InstrumentDialog {
    Q_OBJECT
public:
    DriverCalibrationDialog(MainWindowBase& window, DriverCalibrationState& state);

protected:
    void showState() override;

private:
    struct Row {
        QLabel* value = nullptr;
        QPushButton* button = nullptr;
    };

    void addRow(std::size_t index);
    void showRow(std::size_t index);

    DriverCalibrationState& m_state;
    std::array<Row, 4> m_rows;
    ProgressBar* m_progress;
    QLabel* m_note;
    QPushButton* m_cancel;
};
