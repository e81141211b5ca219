#include "app/core/CommandLine.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <string_view>

bool CommandLine::answersHelpOrVersion(int argc, const char* const* argv, const char* name, const char* usage)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--help" || argument == "-h") {
            std::fputs(usage, stdout);
            return true;
        }
        if (argument == "--version") {
            std::printf("%s %s\n", name, WZ_VERSION);
            return true;
        }
    }
    return false;
}

void CommandLine::failUsage(const char* name, const QString& problem)
{
    std::fprintf(stderr, "%s: %s (see --help)\n", name, qPrintable(problem));
    std::exit(2);
}
