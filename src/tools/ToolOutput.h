#pragma once

#include <QString>

class QByteArray;
class QJsonArray;
class QJsonObject;

/// What all commands of wz_datacore print alike.
namespace ToolOutput {

/// Writes to standard output, at once. False when that is impossible: said on standard error, unless it is
/// only that the reader has seen enough and gone.
[[nodiscard]] bool write(const QByteArray& text);
/// The same for a line of text, or JSON on one line.
[[nodiscard]] bool printLine(const QString& line);
[[nodiscard]] bool printLine(const QJsonObject& object);
[[nodiscard]] bool printLine(const QJsonArray& array);

/// Says on standard error what is wrong, or how far it is, in one line.
void say(const QString& message);

/// The text with control characters escaped, so that what comes from a peer neither breaks lines nor steers
/// the terminal.
QString printable(const QString& text);

} // namespace ToolOutput
