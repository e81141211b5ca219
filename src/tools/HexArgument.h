#pragma once

class QByteArray;
class QString;

/// An argument that stands for bytes.
namespace HexArgument {

/// The @p size bytes of hexadecimal digits, with or without "0x" before them. Anything else is wrong usage
/// and ends the program.
QByteArray read(const QString& text, int size);

} // namespace HexArgument
