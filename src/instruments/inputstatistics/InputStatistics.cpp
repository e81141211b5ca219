#include "instruments/inputstatistics/InputStatistics.h"

#include "gui/control/ReadOnlyRows.h"
#include "gui/control/SettingList.h"
#include "gui/style/Icons.h"

#include <QTimerEvent>

namespace {

constexpr int kRefreshMs = 1000;

/// Hours, minutes and seconds: "0:01:05".
QString durationText(FormatHistory::Time time)
{
    const qint64 seconds = std::chrono::floor<std::chrono::seconds>(time).count();
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

InputStatistics::InputStatistics(WzSubWindow* subWindow, Velmora::Wz::Device device)
    : WzSubwindowContent(QString(kClassName), Icons::path(QString(kIconName)), subWindow, device)
    , m_rows(new ReadOnlyRows(*getWzStyle(), this))
{
    m_clock.start();
    m_rows->setToolTips([this](int row) { return toolTipOf(row); });
    connect(settings().addButton(tr("Reset Counts")), &Setting::chosen, this, &InputStatistics::resetCounts);
}

QString InputStatistics::helpText() const
{
    return tr("<h3>Input Statistics</h3>"
              "<p>How steady the pictures at the input are, as this display has seen it while the window was "
              "open and connected.</p>"
              "<p><b>Unchanged</b>: since the format is what it is, or since it was first seen. "
              "<b>Changes</b> and <b>Longest</b> count from the opening of the window or from <b>Reset "
              "Counts</b>, in the context menu and on the soft buttons.</p>");
}

void InputStatistics::setInactiveReasons(std::function<QStringList()> reasons)
{
    m_inactiveReasons = std::move(reasons);
}

void InputStatistics::fromStatusCorePictureFormatUpdated(QStringList values, QStringList reasons, bool active)
{
    m_format = {values, reasons, active};
    m_history.note(m_format.isUsable() ? m_format.text() : QString(), now());
    if (m_format.verdict() != ElementState::Verdict::Unknown)
        noteDataArrived();
    showRows();
}

void InputStatistics::resetCounts()
{
    m_history.resetCounts(now());
    showRows();
}

void InputStatistics::showRows()
{
    if (isFrozen())
        return;
    const auto verdict = m_format.verdict();
    const bool isKnown = !m_history.format().isEmpty();
    const QString none = QStringLiteral("--");
    m_rows->setRows({
        {tr("Format"), isKnown ? m_history.format() : none, verdict},
        {tr("Unchanged"), isKnown ? durationText(m_history.unchangedFor(now())) : none, verdict},
        {tr("Changes"), QString::number(m_history.changes()), ElementState::Verdict::Valid},
        {tr("Longest"), durationText(m_history.longestUnchanged(now())), ElementState::Verdict::Valid},
    });
}

QString InputStatistics::toolTipOf(int row) const
{
    if (!isConnected())
        return tr("Not connected to the instrument");
    QStringList lines;
    if (!m_format.active && m_inactiveReasons)
        lines << m_inactiveReasons();
    if (!m_format.reasons.isEmpty())
        lines << m_format.toolTip();
    const QStringList meanings{m_history.format(), tr("Since the last change, or since it was first seen"),
                               tr("Changes of the format since the counts were reset"),
                               tr("The longest time without a change since the counts were reset")};
    lines << meanings.value(row);
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

void InputStatistics::resizeEvent(QResizeEvent* event)
{
    m_rows->setGeometry(rect());
    WzSubwindowContent::resizeEvent(event);
}

void InputStatistics::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        showRows();
    else
        WzSubwindowContent::timerEvent(event);
}

void InputStatistics::onExposedChanged(bool exposed)
{
    if (!exposed) {
        m_timer.stop();
        return;
    }
    m_timer.start(kRefreshMs, this);
    showRows();
}

void InputStatistics::onFrozenChanged(bool)
{
    showRows();
}

void InputStatistics::onConnectionChanged(bool connected)
{
    if (connected)
        return;
    m_format = {};
    m_history.forget(now());
    showRows();
}
