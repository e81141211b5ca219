#include "support/TestRunner.h"

#include <QCoreApplication>

/// Programs that need another application object have a main() of their own and are linked without this one.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    return TestRunner::run(argc, argv);
}
