#pragma once

class QString;

/// What all programs do alike with their command lines.
namespace CommandLine {

/// Takes the places of standard streams that were closed when the program was started, so that no socket gets
/// one of them and with it what is meant for the stream. Reading and writing there fail as before. Comes
/// first.
void keepStandardStreams();

/// Answers --help with @p usage and --version with "NAME VERSION", on standard output, wherever one stands on
/// the command line. Returns whether it did: the program ends then, with exit code 0.
bool answersHelpOrVersion(int argc, const char* const* argv, const char* name, const char* usage);

/// Ends the program with exit code 2 after one line on standard error that says what is wrong with the
/// command line.
[[noreturn]] void failUsage(const char* name, const QString& problem);

} // namespace CommandLine
