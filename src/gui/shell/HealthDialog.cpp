#include "gui/shell/HealthDialog.h"

#include "gui/shell/InfoRows.h"
#include "gui/style/ToolTipText.h"
#include "types/health/HealthReading.h"

#include <QLabel>
#include <QVBoxLayout>

HealthDialog::HealthDialog(MainWindowBase& window)
    : InstrumentDialog(window, QStringLiteral("alarm"), tr("Health"))
    , m_rows(new InfoRows(&card()))
    , m_note(addNote())
{
    contents().addWidget(m_rows);
    showState();
}

void HealthDialog::fromStatusCoreHealthReadingsUpdated(QStringList values, QStringList reasons, bool active)
{
    m_readings = {values, reasons, active};
    showState();
}

void HealthDialog::showState()
{
    m_rows->clear();
    const auto readings = HealthReading::fromItems(isConnected() ? m_readings.values : QStringList());
    m_note->setToolTip(m_readings.active ? QString() : ToolTipText::of(inactiveReasons()));
    m_note->setText(!isConnected()         ? tr("Not connected: nothing is known of the instrument.")
                        : readings.empty() ? tr("The machine of this instrument lets no sensor be read.")
                                           : tr("Temperatures and fans of the instrument"));
    for (const HealthReading& reading : readings) {
        const QString limit = reading.limit > 0
            ? tr("   up to %1").arg(HealthReading{{}, reading.unit, reading.limit, 0}.text())
            : QString();
        QLabel* const row = m_rows->addRow(reading.name, reading.text() + limit);
        if (!reading.isAlarm())
            continue;
        row->setText(row->text() + tr("   too hot"));
        row->setForegroundRole(QPalette::BrightText);
    }
}
