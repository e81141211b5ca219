#include "tools/MeterBars.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace MeterBars {

namespace {

constexpr float kLowestDb = -70.0F;
constexpr int kDbPerColumn = 2;
constexpr int kColumns = static_cast<int>(-kLowestDb) / kDbPerColumn;
constexpr int kDbPerMark = 10;

QString headLine(State state, const QString& server)
{
    switch (state) {
    case State::Live:
        return QStringLiteral("Audio meters of %1, dBFS").arg(server);
    case State::Waiting:
        return QStringLiteral("Connected to %1, no meter values yet").arg(server);
    case State::NotConnected:
        break;
    }
    return QStringLiteral("Not connected to %1, retrying").arg(server);
}

QString scaleLine()
{
    QString line(kColumns + 1, QLatin1Char(' '));
    for (int db = 0; db > static_cast<int>(kLowestDb); db -= kDbPerMark) {
        const QString mark = QString::number(db);
        const int end = kColumns + db / kDbPerColumn;
        line.replace(end + 1 - mark.size(), mark.size(), mark);
    }
    return QStringLiteral("           ") + line;
}

QString bar(const MeterSet& meters, int channel)
{
    const int filled = barLength(meters.value(MeterSet::Ppm, channel).value_or(kLowestDb));
    QString text = QString(filled, QLatin1Char('#')) + QString(kColumns - filled, QLatin1Char('.'));
    const int hat = barLength(meters.value(MeterSet::PeakHold, channel).value_or(kLowestDb));
    if (hat > 0)
        text[hat - 1] = QLatin1Char('|');
    return text;
}

QString phaseText(const MeterSet& meters, int channel)
{
    if (channel % 2 != 0)
        return QString();
    const auto phase = meters.value(MeterSet::Phase, channel);
    return phase ? QStringLiteral("  phase %1").arg(static_cast<double>(*phase), 5, 'f', 2)
                 : QStringLiteral("  phase --.--");
}

/// To one decimal, without the sign of a level that rounds to 0.
QString levelText(float level)
{
    const double rounded = std::round(static_cast<double>(level) * 10.0) / 10.0;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', 1);
}

QString channelLine(const MeterSet& meters, int channel)
{
    const auto level = meters.value(MeterSet::Ppm, channel);
    const QString reading = level ? levelText(*level) : QStringLiteral("--.-");
    return QStringLiteral("%1 %2  %3%4")
        .arg(QString::number(channel + 1).rightJustified(2), reading.rightJustified(6), bar(meters, channel),
             phaseText(meters, channel));
}

} // namespace

QString draw(const MeterSet& meters, State state, const QString& server)
{
    QStringList lines{headLine(state, server), scaleLine()};
    const MeterSet shown = state == State::Live ? meters : MeterSet();
    for (int channel = 0; channel < MeterSet::kChannels; ++channel)
        lines << channelLine(shown, channel);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

int barLength(float levelDb)
{
    if (!(levelDb > kLowestDb))
        return 0;
    const float columns = std::ceil((std::min(levelDb, 0.0F) - kLowestDb) / float{kDbPerColumn});
    return std::min(static_cast<int>(columns), kColumns);
}

} // namespace MeterBars
