#include "instruments/diagnostics/Diagnostics.h"

#include "gui/style/Icons.h"

#include <QTimerEvent>

namespace {

constexpr int kRefreshMs = 1000;

QString fixed(double number, int decimals)
{
    return QString::number(number, 'f', decimals);
}

QString perSecond(const std::optional<double>& rate)
{
    return rate ? Diagnostics::tr("%1 /s").arg(fixed(*rate, 0)) : QStringLiteral("--");
}

double milliseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

ReadOnlyRows::Row row(const QString& label, const QString& value, bool isBad = false)
{
    return {label, value, isBad ? ElementState::Verdict::Warning : ElementState::Verdict::Valid};
}

} // namespace

Diagnostics::Diagnostics(WzSubWindow* subWindow, Velmora::Wz::Device device, ClientFigures& figures)
    : WzSubwindowContent(QString(kClassName), Icons::path(QStringLiteral("diagnostics")), subWindow, device)
    , m_figures(figures)
    , m_rows(new ReadOnlyRows(*getWzStyle(), this))
{
    m_rows->setToolTips([this](int index) { return m_toolTips.value(index); });
}

Diagnostics::~Diagnostics()
{
    setExposed(false);
}

QString Diagnostics::helpText() const
{
    return tr(
        "<h3>Diagnostics</h3>"
        "<p>How this display is doing, measured while the window can be seen and shown once a second.</p>"
        "<p><b>Frames</b>: packets from the instrument, by TCP and by UDP. <b>Updates</b>: values that "
        "reached a node of the mirror. <b>Age of data</b>: since the last packet of any kind.</p>"
        "<p><b>Datagrams dropped</b>: thrown away by this computer since they were not fetched in time. "
        "<b>Meter sets lost</b>: gaps in the numbers of the meter packets.</p>"
        "<p><b>Echo</b>: from the last change made here to the instrument's word on it.</p>"
        "<p><b>Stalls</b>: how often the program did nothing else for more than 20 ms.</p>"
        "<p><b>Drawing</b>: share of the time that each window's painting took, and what one paint event "
        "cost.</p>");
}

void Diagnostics::resizeEvent(QResizeEvent* event)
{
    m_rows->setGeometry(rect());
    WzSubwindowContent::resizeEvent(event);
}

void Diagnostics::onExposedChanged(bool exposed)
{
    if (exposed) {
        m_figures.startWatching();
        DrawClock::getInstance().start();
        m_timer.start(kRefreshMs, this);
        refresh();
    } else {
        m_timer.stop();
        DrawClock::getInstance().stop();
        m_figures.stopWatching();
    }
}

void Diagnostics::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        refresh();
    else
        WzSubwindowContent::timerEvent(event);
}

void Diagnostics::refresh()
{
    noteDataArrived(); // it is live without an instrument, too
    const ClientFigures::Reading reading = m_figures.read();
    const std::vector<DrawClock::Share> shares = DrawClock::getInstance().take();
    if (isFrozen())
        return;
    std::vector<ReadOnlyRows::Row> rows;
    m_toolTips.clear();
    for (const Line& line : linesOf(reading, shares)) {
        rows.push_back(line.row);
        m_toolTips << line.toolTip;
    }
    m_rows->setRows(rows);
}

std::vector<Diagnostics::Line> Diagnostics::linesOf(const ClientFigures::Reading& reading,
                                                    const std::vector<DrawClock::Share>& shares) const
{
    std::vector<Line> lines;
    const auto add = [&lines](const QString& label, const QString& value, bool isBad,
                              const QString& toolTip) {
        lines.push_back({row(label, value, isBad), toolTip});
    };
    const QString none = QStringLiteral("--");
    add(tr("Frames"),
        tr("TCP %1, UDP %2")
            .arg(perSecond(reading.tcpFramesPerSecond), perSecond(reading.udpFramesPerSecond)),
        false, tr("Packets received in the last second"));
    add(tr("Updates"), perSecond(reading.updatesPerSecond), false,
        tr("Values that reached a node of the mirror in the last second"));
    add(tr("Age of data"), reading.dataAge ? tr("%1 ms").arg(reading.dataAge->count()) : none, false,
        tr("Since the last packet of any kind"));
    add(tr("Datagrams dropped"), reading.droppedDatagrams ? QString::number(*reading.droppedDatagrams) : none,
        reading.droppedDatagrams.value_or(0) > 0, tr("By this computer; the limit is 0"));
    add(tr("Meter packets lost"), QString::number(reading.lostMeterPackets), reading.lostMeterPackets > 0,
        tr("Gaps in the numbers of the meter packets since the start; the limit is 0"));
    add(tr("Echo"), reading.echoTime ? tr("%1 ms").arg(fixed(milliseconds(*reading.echoTime), 2)) : none,
        false, tr("From the last change made here to the instrument's word on it"));
    add(tr("Memory"),
        tr("%1 MiB, at most %2")
            .arg(fixed(static_cast<double>(reading.residentKiB) / 1024, 1),
                 fixed(static_cast<double>(reading.peakKiB) / 1024, 1)),
        false, tr("Resident memory of this program"));
    QString stalls = QString::number(reading.stalls);
    if (reading.stalls > 0)
        stalls = tr("%1, at most %2 ms").arg(stalls, QString::number(reading.longestStall.count()));
    if (!reading.longestStallCause.isEmpty())
        stalls = tr("%1 (%2)").arg(stalls, reading.longestStallCause);
    add(tr("Stalls"), stalls, reading.stalls > 0,
        tr("Over 20 ms, since the window can be seen; the limit is 0"));
    for (const DrawClock::Share& share : shares) {
        const double percent = reading.span.count() > 0
            ? 100 * std::chrono::duration<double>(share.time).count() / reading.span.count()
            : 0;
        add(share.window.isEmpty() ? tr("Drawing: bars and menus") : tr("Drawing: %1").arg(share.window),
            tr("%1 %, %2 ms each").arg(fixed(percent, 1), fixed(milliseconds(share.time) / share.events, 2)),
            false, tr("%1 paint events in the last second").arg(share.events));
    }
    return lines;
}
