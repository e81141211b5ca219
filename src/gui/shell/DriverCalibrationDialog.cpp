#include "gui/shell/DriverCalibrationDialog.h"

#include "gui/framework/MainWindowBase.h"
#include "gui/shell/DriverCalibrationState.h"
#include "gui/shell/ProgressBar.h"
#include "gui/style/Fonts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 820;
constexpr int kNameWidth = 104;

QString nameOf(std::size_t index)
{
    return QString(QChar(QLatin1Char('A').unicode() + static_cast<int>(index)));
}

} // namespace

DriverCalibrationDialog::DriverCalibrationDialog(MainWindowBase& window, DriverCalibrationState& state)
    : InstrumentDialog(window, QStringLiteral("generator"), tr("Driver calibration"))
    , m_state(state)
    , m_progress(new ProgressBar(window.wzStyle(), &card()))
{
    setCardWidth(kWidth);
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        addRow(i);
    setFirstFocus(m_rows.front().button);
    contents().addSpacing(kPadding);
    contents().addWidget(m_progress);
    contents().addSpacing(kGap);
    m_note = addNote();
    m_cancel = addCommand(tr("Cancel Calibration"), QStringLiteral("close"));
    connect(m_cancel, &QPushButton::clicked, &m_state, &DriverCalibrationState::cancelRequested);
    connect(&m_state, &DriverCalibrationState::changed, this, [this] { showState(); });
    showState();
}

void DriverCalibrationDialog::addRow(std::size_t index)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(kPadding);
    auto* const name = new QLabel(tr("Driver %1").arg(nameOf(index)), &card());
    name->setFont(Fonts::ofPixels(Fonts::kBodyPixels, true));
    name->setFixedWidth(kNameWidth);
    m_rows[index].value = new QLabel(&card());
    m_rows[index].value->setTextFormat(Qt::PlainText);
    m_rows[index].button = new QPushButton(tr("Calibrate %1").arg(nameOf(index)), &card());
    m_rows[index].button->setMinimumWidth(180);
    connect(m_rows[index].button, &QPushButton::clicked, &m_state,
            [this, index] { emit m_state.startRequested(static_cast<Velmora::Types::OutputSpigot>(index)); });
    row->addWidget(name);
    row->addWidget(m_rows[index].value, 1);
    row->addWidget(m_rows[index].button);
    contents().addLayout(row);
    contents().addSpacing(kGap);
}

void DriverCalibrationDialog::showRow(std::size_t index)
{
    const DriverCalibrationState::Driver& driver = m_state.driver(index);
    const bool mayStart = isConnected() && !m_state.isRunning();
    m_rows[index].button->setEnabled(mayStart);
    m_rows[index].button->setToolTip(mayStart                  ? QString()
                                         : m_state.isRunning() ? tr("A driver is being calibrated")
                                                               : tr("Not connected"));
    QLabel& value = *m_rows[index].value;
    value.setForegroundRole(driver.hasFailed ? QPalette::BrightText : QPalette::WindowText);
    if (driver.isRunning)
        value.setText(tr("being calibrated"));
    else if (!driver.result.isEmpty())
        value.setText(driver.result);
    else
        value.setText(isConnected() && !driver.gain.isEmpty() ? tr("Gain %1").arg(driver.gain) : unknown());
}

void DriverCalibrationDialog::showState()
{
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        showRow(i);
    setTitleDetail(isConnected() ? m_state.kind() : QString());
    m_progress->setVisible(true);
    m_progress->setValue(m_state.isRunning() ? m_state.progress() : 0);
    m_note->setText(m_state.isRunning() ? m_state.reading()
                        : !isConnected()
                        ? tr("Not connected: the outputs cannot be measured.")
                        : tr("The output sends a check field meanwhile, and then what it sent before."));
    m_cancel->setEnabled(m_state.isRunning());
    updateFunctionTriggers();
}
