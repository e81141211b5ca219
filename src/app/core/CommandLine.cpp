#include "app/core/CommandLine.h"

#include <QString>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

void CommandLine::keepStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free place is this one. Opened the wrong way round, it is of no use to anybody.
        if (::fcntl(stream, F_GETFD) == -1)
            static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

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
