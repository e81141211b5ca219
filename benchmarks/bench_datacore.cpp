// A tree of values on its way from a server process to a client process and back, over loopback: by
// datacores, by Qt Remote Objects, and as bare as it can be. The time is the processor time of both processes
// together: what it takes on one core that has nothing else to do, whatever else the machine does.

#include "Ratios.h"

#include "mirror/Contestant.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <malloc.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <csignal>
#include <ctime>
#include <unistd.h>

using namespace Mirror;

const QString& Mirror::pathOf(int index)
{
    static const auto paths = [] {
        std::vector<QString> made;
        for (int i = 0; i < kValueCount; ++i) {
            made.push_back(QStringLiteral("configCoreRouter/analyser%1/measurement%2/display/value%3")
                               .arg(i / 1000)
                               .arg(i / 100)
                               .arg(i));
        }
        return made;
    }();
    return paths[static_cast<size_t>(index)];
}

QString Mirror::initialText(int index)
{
    return QString::number(index);
}

namespace {

constexpr int kTimeLimitMs = 20000;
constexpr char kChangeAll = 'c';

/// A contestant's server in a process of its own, which ends with this one.
class ServerProcess {
public:
    explicit ServerProcess(const Contestant& contestant)
    {
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
            qFatal("no socket pair");
        m_process = fork();
        if (m_process == 0) {
            close(ends[0]);
            serve(contestant, ends[1]);
        }
        close(ends[1]);
        m_channel = ends[0];
        if (::read(m_channel, &m_port, sizeof m_port) != sizeof m_port)
            qFatal("no server of %s", contestant.name);
    }

    quint16 port() const { return m_port; }
    pid_t process() const { return m_process; }
    void changeAll() const
    {
        if (::write(m_channel, &kChangeAll, 1) != 1)
            qFatal("the server is gone");
    }

private:
    [[noreturn]] static void serve(const Contestant& contestant, int channel)
    {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        int argc = 1;
        char name[] = "server";
        char* argv[] = {name, nullptr};
        QCoreApplication application(argc, argv);
        const auto server = contestant.makeServer();
        QSocketNotifier notifier(channel, QSocketNotifier::Read);
        QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [&] {
            char command = 0;
            if (::read(channel, &command, 1) != 1)
                _exit(EXIT_SUCCESS);
            server->changeAll();
        });
        const quint16 port = server->port();
        if (::write(channel, &port, sizeof port) != sizeof port)
            _exit(EXIT_FAILURE);
        _exit(QCoreApplication::exec());
    }

    pid_t m_process = -1;
    int m_channel = -1;
    quint16 m_port = 0;
};

/// Processor time of this process and of a server's since it was made.
class ProcessorTime {
public:
    explicit ProcessorTime(const ServerProcess& server)
    {
        clock_getcpuclockid(server.process(), &m_serverClock);
        m_start = now();
    }
    double seconds() const { return now() - m_start; }

private:
    double now() const { return read(CLOCK_PROCESS_CPUTIME_ID) + read(m_serverClock); }
    static double read(clockid_t clock)
    {
        timespec time{};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    clockid_t m_serverClock = 0;
    double m_start = 0;
};

template<typename Condition>
bool waitUntil(benchmark::State& state, Condition&& condition)
{
    const QDeadlineTimer deadline(kTimeLimitMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            state.SkipWithError("values are missing");
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool isComplete(const Client& client, int values)
{
    return client.received >= values;
}

double heapInUse()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void connectAndMirror(benchmark::State& state, const Contestant& contestant, const ServerProcess& server)
{
    for (auto _ : state) {
        const double heap = heapInUse();
        const ProcessorTime time(server);
        const auto client = contestant.makeClient(server.port());
        if (!waitUntil(state, [&] { return isComplete(*client, kValueCount); }))
            return;
        state.SetIterationTime(time.seconds());
        state.counters["bytes/value"] = (heapInUse() - heap) / kValueCount;
        if (client->text(kValueCount - 1).isEmpty())
            state.SkipWithError("a value is wrong");
    }
}

void update(benchmark::State& state, const Contestant& contestant, const ServerProcess& server)
{
    const auto client = contestant.makeClient(server.port());
    if (!waitUntil(state, [&] { return isComplete(*client, kValueCount); }))
        return;
    for (auto _ : state) {
        client->received = 0;
        const ProcessorTime time(server);
        server.changeAll();
        if (!waitUntil(state, [&] { return isComplete(*client, kValueCount); }))
            return;
        state.SetIterationTime(time.seconds());
    }
    state.SetItemsProcessed(state.iterations() * kValueCount);
}

void writeAndEcho(benchmark::State& state, const Contestant& contestant, const ServerProcess& server)
{
    const auto client = contestant.makeClient(server.port());
    if (!waitUntil(state, [&] { return isComplete(*client, kValueCount); }))
        return;
    int number = 0;
    for (auto _ : state) {
        const QString text = QString::number(++number);
        client->received = 0;
        const ProcessorTime time(server);
        client->write(number % kValueCount, text);
        if (!waitUntil(state, [&] { return isComplete(*client, 1); }))
            return;
        state.SetIterationTime(time.seconds());
        if (client->text(number % kValueCount) != text)
            state.SkipWithError("an echo is wrong");
    }
}

using Run = void (*)(benchmark::State&, const Contestant&, const ServerProcess&);

void add(const std::string& name, Run run, int iterations, const Contestant& contestant,
         const ServerProcess& server)
{
    benchmark::RegisterBenchmark(
        (name + ", " + contestant.name).c_str(),
        [=, &contestant, &server](benchmark::State& state) { run(state, contestant, server); })
        ->UseManualTime()
        ->Iterations(iterations)
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char** argv)
{
    (void)pathOf(0); // makes all of them, for every process
    // Before there is an application or a thread to be forked with.
    const std::vector<const Contestant*> contestants{&kDatacores, &kModelReplica, &kSnapshotReplica,
                                                     &kBareSocket};
    std::vector<std::unique_ptr<ServerProcess>> servers;
    for (const Contestant* contestant : contestants)
        servers.push_back(std::make_unique<ServerProcess>(*contestant));

    QCoreApplication application(argc, argv);
    for (size_t i = 0; i < contestants.size(); ++i) {
        add("connect", connectAndMirror, 1, *contestants[i], *servers[i]);
        add("update", update, 2, *contestants[i], *servers[i]);
        add("echo", writeAndEcho, 200, *contestants[i], *servers[i]);
    }
    return runBenchmarks(
        argc, argv,
        {{"10,000 nodes valid, against a model replica", "connect, datacores", "connect, model replica",
          1 / 0.7},
         {"10,000 updates, against a model replica", "update, datacores", "update, model replica", 1.5},
         {"write and echo, against a model replica", "echo, datacores", "echo, model replica", 1 / 0.8},
         {"10,000 nodes valid, against a snapshot replica", "connect, datacores", "connect, snapshot replica",
          0.0},
         {"10,000 updates, against a snapshot replica", "update, datacores", "update, snapshot replica", 1.5},
         {"write and echo, against a snapshot replica", "echo, datacores", "echo, snapshot replica", 1 / 0.8},
         {"10,000 nodes valid, against bare JSON", "connect, datacores", "connect, bare socket", 0.0},
         {"10,000 updates, against bare JSON", "update, datacores", "update, bare socket", 0.0},
         {"write and echo, against bare JSON", "echo, datacores", "echo, bare socket", 0.0}});
}
