#include "app/WzDisplayClientApplication.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "logging/Logging.h"

#include "app/core/TerminationSignals.h"

#include <QSocketNotifier>
#include <QTest>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

DisplayMainWindow& mainWindow(const WzDisplayClientApplication& application)
{
    return *qobject_cast<DisplayMainWindow*>(application.getMainWindowBase());
}

/// "Layout 1:4 Layout 2:0": names and numbers of windows, and the theme.
QString screenOf(const WzDisplayClientApplication& application)
{
    QStringList parts;
    for (const auto& overview : mainWindow(application).windows().getLayoutOverview())
        parts << QStringLiteral("%1:%2").arg(overview.name, QString::number(overview.numberOfWindows));
    const bool isLight = application.getWzStyle()->theme() == WzPalette::Theme::Light;
    return parts.join(QLatin1Char(' ')) + (isLight ? QStringLiteral(" light") : QStringLiteral(" dark"));
}

/// One line: what to do, and with what.
QString carryOut(const WzDisplayClientApplication& application, const QString& line)
{
    const QString what = line.section(QLatin1Char(' '), 0, 0);
    const QString with = line.section(QLatin1Char(' '), 1);
    DisplayMainWindow& window = mainWindow(application);
    ScreenPanels& panels = window.panels();
    QWidget* const focused = QApplication::focusWidget() ? QApplication::focusWidget() : &window;
    if (what == QLatin1String("key")) {
        const int key = QKeySequence(with)[0];
        QTest::keyClick(focused, static_cast<Qt::Key>(key & ~Qt::KeyboardModifierMask),
                        static_cast<Qt::KeyboardModifiers>(key & static_cast<int>(Qt::KeyboardModifierMask)));
    } else if (what == QLatin1String("type")) {
        QTest::keyClicks(focused, with);
    } else if (what == QLatin1String("run")) {
        panels.run(with);
    } else if (what == QLatin1String("load")) {
        panels.run(Favourite{Favourite::Kind::Preset, with, {}, {}});
    } else if (what == QLatin1String("presets")) {
        return panels.presets().names().join(QLatin1Char(','));
    } else if (what == QLatin1String("connected")) {
        return panels.presets().isConnected() ? QStringLiteral("yes") : QStringLiteral("no");
    }
    return screenOf(application);
}

} // namespace

/// The display client with a second way in: each line of the standard input is carried out and answered by
/// one line that begins with "= ".
int main(int argc, char** argv)
{
    Velmora::initLogging(true, "/home/transfer/log/");
    QApplication::setStyle(new WzDisplayCustomStyle);
    WzDisplayClientApplication application(argc, argv);
    TerminationSignals::quitApplication();
    QMetaObject::invokeMethod(
        &application, [&application] { application.initialise(true); }, Qt::QueuedConnection);
    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&application, &input] {
        std::string line;
        if (!std::getline(std::cin, line)) {
            input.setEnabled(false);
            return;
        }
        const QByteArray answer = carryOut(application, QString::fromStdString(line)).toUtf8();
        std::printf("= %s\n", answer.constData());
        std::fflush(stdout);
    });
    const int exitCode = QApplication::exec();
    Velmora::ceaseLogging();
    return exitCode;
}
