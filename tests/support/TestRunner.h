#pragma once

#include <memory>

class QObject;

/// Adds a test class to the program that it is compiled into: `WZ_TEST_CLASS(tst_Foo)` at the end of
/// tst_Foo.cpp, before the moc include. The program runs the classes named on its command line, or all of
/// them.
#define WZ_TEST_CLASS(Class)                                                                                 \
    static const bool s_registered##Class =                                                                  \
        TestRunner::add(#Class, [] { return std::unique_ptr<QObject>(new Class); });

namespace TestRunner {

using Maker = std::unique_ptr<QObject> (*)();

bool add(const char* name, Maker maker);

/// Runs the classes named by the arguments: PROGRAM [tst_Class ...] [Qt Test options and functions]. To be
/// called when there is an application object. The exit code.
int run(int argc, char** argv);

} // namespace TestRunner
