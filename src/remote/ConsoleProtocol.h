#pragma once

#include <QString>

/// What display client and console say to each other over the local socket. One line of UTF-8 is one command.
/// Its answer is any number of lines, then the end mark, which tells whether it was carried out:
///
///     execute 0
///     Executing command 0
///     /home/op/Pictures/20261123-204712-001-Layout_1.png
///     -- done
///
/// A line of an answer that would begin like the end mark has a blank before it.
namespace ConsoleProtocol {

inline constexpr char kDone[] = "-- done";
inline constexpr char kFailed[] = "-- failed";
inline constexpr char kMark[] = "-- ";

/// Bytes of a command line.
inline constexpr int kLongestLine = 4096;

/// In the user's runtime folder, which nobody else can enter. Empty when there is none that is safe.
QString defaultSocketPath();

/// The lines of @p text as they travel: without control characters, and none like the end mark.
QByteArray answerLines(const QString& text);
QByteArray endMark(bool isDone);

/// Why the bytes are no command line; empty when they are one.
QString faultOf(const QByteArray& line);

} // namespace ConsoleProtocol
