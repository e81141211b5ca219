#pragma once

/// What all programs do alike with --help and --version.
namespace CommandLine {

/// Answers --help with @p usage and --version with "NAME VERSION", on standard output, wherever one stands on
/// the command line. Returns whether it did: the program ends then, with exit code 0.
bool answersHelpOrVersion(int argc, const char* const* argv, const char* name, const char* usage);

} // namespace CommandLine
