#include "gui/style/Fonts.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "support/TestRunner.h"

#include <QApplication>

/// The main() of test programs with widgets.
int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QApplication::setStyle(new WzDisplayCustomStyle);
    QApplication application(argc, argv);
    initiateFonts();
    return TestRunner::run(argc, argv);
}
