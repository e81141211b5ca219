#include "gui/shell/TimeDateDialog.h"

#include "gui/shell/InfoRows.h"
#include "gui/shell/InstrumentClock.h"
#include "gui/style/ToolTipText.h"

#include <QDateTime>
#include <QLabel>
#include <QPushButton>
#include <QTimeZone>
#include <QVBoxLayout>

namespace {

constexpr int kTickMs = 1000;
/// Behind the full second, so that a clock that is late by the way of a packet shows the same one.
constexpr int kTickOffsetMs = 100;

QString dateAndTime(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd   HH:mm:ss"));
}

} // namespace

TimeDateDialog::TimeDateDialog(MainWindowBase& window, const InstrumentClock& clock)
    : InstrumentDialog(window, QStringLiteral("timing"), tr("Time and date"))
    , m_clock(clock)
{
    auto* const rows = new InfoRows(&card());
    m_instrument = rows->addRow(tr("Instrument"));
    m_zone = rows->addRow(tr("Time zone"));
    m_held = rows->addRow(tr("Its clock"));
    m_screen = rows->addRow(tr("This screen"));
    contents().addWidget(rows);
    m_note = addNote();
    m_set = addCommand(tr("Set to the time of this screen"), QStringLiteral("check"));
    connect(m_set, &QPushButton::clicked, this, [this] {
        emit toCommandcore_setUtc(QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
    });
    connect(&m_clock, &InstrumentClock::changed, this, &TimeDateDialog::showTimes);
    showState();
}

void TimeDateDialog::fromStatusCoreSystemTimeTimeZoneUpdated(QStringList values, QStringList, bool active)
{
    m_zoneName = active ? values.value(0) : QString();
    showState();
}

void TimeDateDialog::fromStatusCoreSystemTimeSynchronisedUpdated(QStringList values, QStringList reasons,
                                                                 bool active)
{
    m_synchronised = {values, reasons, active};
    showState();
}

void TimeDateDialog::fromCommandcore_setUtcUpdated(QStringList, QStringList, bool active)
{
    m_isSettable = active;
    showState();
}

void TimeDateDialog::showState()
{
    if (!isConnected()) {
        m_zoneName.clear();
        m_synchronised = {};
        m_isSettable = false;
    }
    m_zone->setText(m_zoneName.isEmpty() ? unknown() : m_zoneName);
    m_held->setText(!m_synchronised.isUsable()                           ? unknown()
                        : m_synchronised.text() == QLatin1String("true") ? tr("held to another clock")
                                                                         : tr("runs free"));
    m_note->setText(!isConnected() ? tr("Not connected: its clock can be neither read nor set.")
                        : m_isSettable
                        ? QString()
                        : tr("This instrument takes its time from the machine that it runs on; it "
                             "cannot be set from here."));
    m_note->setToolTip(isConnected() && !m_isSettable ? ToolTipText::of(inactiveReasons()) : QString());
    m_note->setVisible(!m_note->text().isEmpty());
    m_set->setEnabled(m_isSettable);
    m_set->setToolTip(m_note->text());
    updateFunctionTriggers();
    showTimes();
}

void TimeDateDialog::showTimes()
{
    const QDateTime now = QDateTime::currentDateTime();
    m_screen->setText(dateAndTime(now));
    const auto theirs = m_clock.now();
    const QTimeZone zone(m_zoneName.toLatin1());
    m_instrument->setText(!theirs              ? unknown()
                              : zone.isValid() ? dateAndTime(theirs->toTimeZone(zone))
                                               : dateAndTime(*theirs));
    m_tick.start(kTickMs - now.time().msec() + kTickOffsetMs, Qt::PreciseTimer, this);
}

void TimeDateDialog::timerEvent(QTimerEvent*)
{
    showTimes();
}
