#include "support/TestRunner.h"

#include <QTest>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

std::map<std::string, TestRunner::Maker>& testClasses()
{
    static std::map<std::string, TestRunner::Maker> classes;
    return classes;
}

} // namespace

bool TestRunner::add(const char* name, Maker maker)
{
    return testClasses().emplace(name, maker).second;
}

int TestRunner::run(int argc, char** argv)
{
    std::vector<std::string> chosen;
    QStringList testArguments{QString::fromLocal8Bit(argv[0])};
    for (int i = 1; i < argc; ++i) {
        if (testClasses().contains(argv[i]))
            chosen.emplace_back(argv[i]);
        else if (std::string(argv[i]).starts_with("tst_")) {
            std::fprintf(stderr, "no test class %s in this program\n", argv[i]);
            return 2;
        } else
            testArguments << QString::fromLocal8Bit(argv[i]);
    }
    if (chosen.empty()) {
        for (const auto& [name, maker] : testClasses())
            chosen.push_back(name);
    }

    int failures = 0;
    for (const auto& name : chosen)
        failures += QTest::qExec(testClasses().at(name)().get(), testArguments);
    return failures == 0 ? 0 : 1;
}
