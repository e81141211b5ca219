#pragma once

#include "instruments/eventlog/EventRing.h"
#include "instruments/eventlog/EventRows.h"

/// Writes the rows of an event log to a file, the oldest first.
namespace EventLogExport {

enum class Format {
    Text, ///< one line each: time, kind and message
    Csv, ///< RFC 4180, with a header line
};

QByteArray toBytes(const EventRing& entries, const EventRows& rows, Format format);
/// Writes a file named by date and time into the user's documents, whole or not at all. Returns its path;
/// empty, and a log line, when it could not be written.
QString save(const EventRing& entries, const EventRows& rows, Format format);

} // namespace EventLogExport
