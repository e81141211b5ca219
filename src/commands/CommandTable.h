#pragma once

#include "commands/NumberedCommand.h"

#include <QString>

#include <array>
#include <optional>

/// The numbered commands with their names and what they do, for help, menus and whoever acts on them.
namespace CommandTable {

/// Who acts.
enum class Place { Client, Instrument, Nobody };

struct Entry {
    const char* name; ///< without blanks, for scripts
    const char* text; ///< for help and lists, without a full stop
    Place place;
};

/// By number.
const std::array<Entry, kNumberedCommandCount>& entries();

const Entry& entry(NumberedCommand command);
/// Nothing for a number beyond the table.
std::optional<NumberedCommand> fromNumber(int number);
std::optional<NumberedCommand> fromName(const QString& name);
/// A line for each command: number, name, what it does.
QString help();

} // namespace CommandTable
