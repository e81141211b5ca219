#include "app/core/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace {

int s_pipe[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 0;
    // The handler ran once; the next signal takes its default action.
    [[maybe_unused]] const auto written = ::write(s_pipe[1], &byte, 1);
}

} // namespace

void TerminationSignals::quitApplication()
{
    if (s_pipe[0] != -1 || ::pipe2(s_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* const notifier = new QSocketNotifier(s_pipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action { };
    action.sa_handler = onSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}
