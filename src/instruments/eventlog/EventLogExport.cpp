#include "instruments/eventlog/EventLogExport.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>

namespace EventLogExport {
namespace {

QString timeText(const QDateTime& time)
{
    return time.isValid() ? time.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz")) : QString();
}

/// One entry is one line, whatever its message holds.
QByteArray textLine(const EventEntry& entry)
{
    const QString time = entry.time.isValid() ? timeText(entry.time) : QStringLiteral("Unknown time");
    return QStringLiteral("%1  %2  %3\n")
        .arg(time, -23)
        .arg(eventKindName(entry.kind), -16)
        .arg(entry.message.simplified())
        .toUtf8();
}

QByteArray quoted(QString field)
{
    const bool needsQuotes = field.contains(QLatin1Char('"')) || field.contains(QLatin1Char(','))
        || field.contains(QLatin1Char('\n')) || field.contains(QLatin1Char('\r'));
    if (!needsQuotes)
        return field.toUtf8();
    field.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return '"' + field.toUtf8() + '"';
}

QByteArray csvLine(const EventEntry& entry)
{
    return timeText(entry.time).toUtf8() + ',' + eventKindName(entry.kind).toUtf8() + ','
        + quoted(entry.message) + "\r\n";
}

} // namespace

QByteArray toBytes(const EventRing& entries, const EventRows& rows, Format format)
{
    QByteArray bytes;
    if (format == Format::Csv)
        bytes += "time,kind,message\r\n";
    for (int row = rows.count() - 1; row >= 0; --row) {
        const EventEntry& entry = entries.at(rows.number(row));
        bytes += format == Format::Csv ? csvLine(entry) : textLine(entry);
    }
    return bytes;
}

QString save(const EventRing& entries, const EventRows& rows, Format format)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    folder.mkpath(QStringLiteral("."));
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    const auto ending = QLatin1String(format == Format::Csv ? ".csv" : ".txt");
    QSaveFile file(folder.filePath(stamp + QLatin1String("-Event_Log") + ending));
    const QByteArray bytes = toBytes(entries, rows, format);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) {
        Velmora::log()->info("Event log exported to {}", file.fileName());
        return file.fileName();
    }
    Velmora::log()->warn("The event log cannot be exported to {}: {}", file.fileName(), file.errorString());
    return {};
}

} // namespace EventLogExport
