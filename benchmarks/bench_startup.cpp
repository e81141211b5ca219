#include <QApplication>
#include <QFile>
#include <QMdiArea>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>

// The display client from its start to its first frame, beside a bare QApplication with an empty QMdiArea,
// both offscreen and each in a process of its own. Limits: 5 times the time, 2 times the memory.

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRuns = 10;
constexpr double kTimeLimit = 5;
constexpr double kMemoryLimit = 2;
constexpr char kFirstFrame[] = "first frame painted";

struct Start {
    double milliseconds = 0;
    double megabytes = 0; ///< resident
};

double residentMegabytes(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmRSS:") + 6).simplified().split(' ').first().toDouble() / 1024;
}

std::optional<Start> startOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    const auto begin = Clock::now();
    process.start(program, arguments);
    QByteArray said;
    while (!said.contains(kFirstFrame)) {
        if (!process.waitForReadyRead(10'000)) {
            process.kill();
            process.waitForFinished();
            return {};
        }
        said += process.readAll();
    }
    const std::chrono::duration<double, std::milli> time = Clock::now() - begin;
    const Start start{time.count(), residentMegabytes(process.processId())};
    process.kill();
    process.waitForFinished();
    return start;
}

/// The best of several runs, for both figures.
std::optional<Start> bestOf(const QString& program, const QStringList& arguments)
{
    std::optional<Start> best;
    for (int i = 0; i < kRuns; ++i) {
        const auto start = startOf(program, arguments);
        if (!start)
            return {};
        best = best ? Start{std::min(best->milliseconds, start->milliseconds),
                            std::min(best->megabytes, start->megabytes)}
                    : *start;
    }
    return best;
}

class BareArea : public QMdiArea {
protected:
    void paintEvent(QPaintEvent* event) override
    {
        QMdiArea::paintEvent(event);
        // When control is back in the event loop the frame is there.
        QMetaObject::invokeMethod(
            this, [] { std::fprintf(stderr, "%s\n", kFirstFrame); }, Qt::QueuedConnection);
    }
};

int runBare(int argc, char** argv)
{
    QApplication application(argc, argv);
    BareArea area;
    area.resize(1920, 1080);
    area.show();
    return QApplication::exec();
}

bool report(const char* what, double ours, double bare, double limit, const char* unit)
{
    const double ratio = ours / bare;
    std::printf("%-20s %8.1f %s, bare %8.1f %s: %.2fx (limit %.0fx)%s\n", what, ours, unit, bare, unit, ratio,
                limit, ratio <= limit ? "" : "  ABOVE");
    return ratio <= limit;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc > 1 && qstrcmp(argv[1], "--bare") == 0)
        return runBare(argc, argv);
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QTemporaryDir folder;
    const QString presetFile =
        QStringLiteral("-DpresetFile=") + folder.filePath(QStringLiteral("state.json"));
    const auto bare = bestOf(QCoreApplication::applicationFilePath(), {QStringLiteral("--bare")});
    const auto ours = bestOf(QCoreApplication::applicationDirPath() + QStringLiteral("/wz_displayclient"),
                             {presetFile, QStringLiteral("-Dtrace=startup"),
                              QStringLiteral("-Dwindowed=true"), QStringLiteral("-Dscale=1")});
    if (!bare || !ours) {
        std::fprintf(stderr, "bench_startup: a program did not come to its first frame\n");
        return 1;
    }
    const bool timeHolds = report("first frame", ours->milliseconds, bare->milliseconds, kTimeLimit, "ms");
    const bool memoryHolds = report("resident memory", ours->megabytes, bare->megabytes, kMemoryLimit, "MB");
    const bool strict = arguments.contains(QStringLiteral("--strict"));
    return strict && !(timeHolds && memoryHolds) ? 1 : 0;
}
