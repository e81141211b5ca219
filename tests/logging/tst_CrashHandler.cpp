#include "logging/CrashChild.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <optional>

namespace {

constexpr char kFolder[] = "/home/crashlogs";
constexpr char kPipe[] = "/var/run/crashwatch.pipe";
constexpr char kFrame[] = "^.*\\[0x[0-9a-f]+\\]\n";

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QStringList words(const char* arguments)
{
    return text(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

int frameCount(const QString& report)
{
    const QRegularExpression frame(text(kFrame), QRegularExpression::MultilineOption);
    auto all = frame.globalMatch(report);
    int count = 0;
    for (; all.hasNext(); all.next())
        ++count;
    return count;
}

QString withoutFrames(QString report)
{
    return report.remove(QRegularExpression(text(kFrame), QRegularExpression::MultilineOption));
}

/// The reading end of the crash watcher's pipe.
class Watcher {
public:
    explicit Watcher(const PrivateRoot& root)
        : m_path(QFile::encodeName(root.path(kPipe)))
        , m_fd(::open(m_path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
    {
    }
    ~Watcher() { ::close(m_fd); }
    Q_DISABLE_COPY(Watcher)

    QByteArray read() const
    {
        std::array<char, 256> data;
        const auto size = ::read(m_fd, data.data(), data.size());
        return QByteArray(data.data(), size > 0 ? static_cast<int>(size) : 0);
    }
    bool fillUp() const
    {
        const int fd = ::open(m_path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        const std::array<char, 4096> data{};
        while (::write(fd, data.data(), data.size()) > 0) { }
        const bool full = errno == EAGAIN;
        ::close(fd);
        return full;
    }

private:
    QByteArray m_path;
    int m_fd;
};

/// What the child's crash log says, taken apart.
struct CrashLog {
    explicit CrashLog(const PrivateRoot& root)
    {
        const QStringList names = root.entries(kFolder);
        count = names.size();
        if (count != 1)
            return;
        name = names.front();
        content = QString::fromUtf8(root.read(kFolder, name));
        struct stat status { };
        ::stat(QFile::encodeName(root.path(kFolder) + QLatin1Char('/') + name).constData(), &status);
        mode = status.st_mode & 07777U;
        const QRegularExpression summary(
            text("^(\\S+) \\(PID:(-?\\d+)\\) received signal (\\d+) \\(([^)]+)\\), "
                 "address is (0x[0-9a-f]+|\\(nil\\)) from (0x[0-9a-f]+)\n(.*)Backtrace:\n(.*)$"),
            QRegularExpression::DotMatchesEverythingOption);
        const auto match = summary.match(content);
        complete = match.hasMatch();
        app = match.captured(1);
        pid = match.captured(2).toInt();
        signal = match.captured(3).toInt();
        description = match.captured(4);
        address = match.captured(5).toULongLong(nullptr, 16);
        programCounter = match.captured(6).toULongLong(nullptr, 16);
        extraText = match.captured(7);
        backtrace = match.captured(8);
    }

    int count = 0;
    QString name;
    unsigned mode = 0;
    QString content;
    bool complete = false;
    QString app;
    int pid = 0;
    int signal = 0;
    QString description;
    qulonglong address = 0;
    qulonglong programCounter = 0;
    QString extraText;
    QString backtrace;
};

} // namespace

// The children die inside a private root, in which the fixed paths can be made without touching the machine's
// own.
#define FINISH_OR_SKIP(child)                                                                                \
    QVERIFY2((child).finish(), "the child hangs");                                                           \
    if (!(child).wasPermitted())                                                                             \
    QSKIP("the system does not permit a private root, where the fixed paths could be made")

class tst_CrashHandler : public WzTest {
    Q_OBJECT

    static bool makeRoot(const PrivateRoot& root)
    {
        return root.addFolder(kFolder) && root.addFolder("/var/run")
            && root.addProgramLink(text("/opt/programs/the_program"));
    }

private slots:
    void reportsTheSignal_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("signal");
        QTest::addColumn<QString>("description");
        QTest::addColumn<bool>("folder");
        QTest::addColumn<bool>("pipe");

        const struct {
            const char* arguments;
            int signal;
            const char* description;
        } deaths[] = {
            {"segv", SIGSEGV, "Segmentation fault"},
            {"call", SIGSEGV, "Segmentation fault"},
            {"--thread segv", SIGSEGV, "Segmentation fault"},
            {"abort", SIGABRT, "Aborted"},
            // Root's user id 0 would hide a user id that gets into the address.
            {"--nobody abort", SIGABRT, "Aborted"},
            {"bus", SIGBUS, "Bus error"},
            {"stkflt", SIGSTKFLT, "Stack fault"},
            {"fpe", SIGFPE, "Floating point exception"},
        };
        for (const auto& death : deaths) {
            for (const bool folder : {true, false}) {
                for (const bool pipe : {true, false})
                    QTest::addRow("%s, %s, %s", death.arguments, folder ? "folder" : "no folder",
                                  pipe ? "pipe" : "no pipe")
                        << words(death.arguments) << death.signal << death.description << folder << pipe;
            }
        }
    }
    void reportsTheSignal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, signal);
        QFETCH(bool, folder);
        QFETCH(bool, pipe);
        const PrivateRoot root;
        QVERIFY(root.addFolder("/var/run") && root.addProgramLink(text("/opt/programs/the_program")));
        QVERIFY(!folder || root.addFolder(kFolder));
        QVERIFY(!pipe || root.addPipe(kPipe));
        const Watcher watcher(root);

        CrashChild child(root, arguments);
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), signal);
        QCOMPARE(watcher.read(), pipe ? QByteArray("the_program", 12) : QByteArray());

        QString messages;
        if (!pipe)
            messages += text("the_program: Failed to notify of crash - cannot open pipe! (errno=2)\n");
        if (!folder)
            messages += text("Failed to open crash log! (errno=2)\n");
        messages += text("the_program: Crashlog written to /home/crashlogs/the_program-crashlog-");
        const QString error = child.standardError();
        QVERIFY2(withoutFrames(error).startsWith(messages), qPrintable(error));
        QVERIFY2(QRegularExpression(text("-crashlog-\\d{6}-\\d{6}\n$")).match(error).hasMatch(),
                 qPrintable(error));
        QVERIFY(frameCount(error) > 0);

        const CrashLog crashLog(root);
        QCOMPARE(crashLog.count, folder ? 1 : 0);
        if (!folder)
            return;
        QVERIFY(error.endsWith(QLatin1Char('/') + crashLog.name + QLatin1Char('\n')));
        QCOMPARE(crashLog.mode, 0644U);
        QVERIFY2(crashLog.complete, qPrintable(crashLog.content));
        QCOMPARE(crashLog.app, text("the_program"));
        QCOMPARE(crashLog.signal, signal);
        QTEST(crashLog.description, "description");
        QCOMPARE(crashLog.extraText, QString());

        // A fault shows its address, a signal that was sent its sender; both fields show the same value.
        const QString expected = child.standardOutput();
        if (expected.isEmpty())
            QCOMPARE(crashLog.address, qulonglong(child.processId()));
        else if (expected == text("pc"))
            QCOMPARE(crashLog.address, crashLog.programCounter);
        else
            QCOMPARE(crashLog.address, expected.toULongLong(nullptr, 16));
        QCOMPARE(crashLog.pid, static_cast<int>(crashLog.address));
    }

    void namesTheSender()
    {
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, words("wait"));
        if (child.waitForOutput())
            ::kill(static_cast<pid_t>(child.processId()), SIGBUS);
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGBUS);
        QCOMPARE(CrashLog(root).pid, static_cast<int>(::getpid()));
        QCOMPARE(CrashLog(root).address, qulonglong(::getpid()));
    }

    void survivesATroubledPipe_data()
    {
        QTest::addColumn<bool>("reader");
        QTest::addColumn<QString>("message");
        QTest::newRow("nobody reads") << false << "cannot open pipe! (errno=6)\n";
        QTest::newRow("full") << true << "cannot write to pipe! (errno=11)\n";
    }
    void survivesATroubledPipe()
    {
        QFETCH(bool, reader);
        QFETCH(QString, message);
        const PrivateRoot root;
        QVERIFY(makeRoot(root) && root.addPipe(kPipe));
        std::optional<Watcher> watcher;
        if (reader) {
            watcher.emplace(root);
            QVERIFY(watcher->fillUp());
        }
        CrashChild child(root, words("abort"));
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGABRT);
        message.prepend(text("the_program: Failed to notify of crash - "));
        QVERIFY2(child.standardError().startsWith(message), qPrintable(child.standardError()));
        QVERIFY(CrashLog(root).complete);
    }

    void takesItsNameFromTheProgramLink_data()
    {
        QTest::addColumn<QString>("link");
        QTest::addColumn<QString>("name");
        QTest::newRow("in a folder") << "/usr/bin/a program"
                                     << "a program";
        QTest::newRow("in the top folder") << "/program"
                                           << "program";
        QTest::newRow("no slash") << "program"
                                  << "UNKNOWN_APPNAME";
        QTest::newRow("no link") << ""
                                 << "UNKNOWN_APPNAME";
    }
    void takesItsNameFromTheProgramLink()
    {
        QFETCH(QString, link);
        QFETCH(QString, name);
        const PrivateRoot root;
        QVERIFY(root.addFolder(kFolder) && root.addFolder("/var/run") && root.addPipe(kPipe));
        QVERIFY(link.isEmpty() || root.addProgramLink(link));
        const Watcher watcher(root);
        CrashChild child(root, words("abort"));
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGABRT);
        QCOMPARE(watcher.read(), name.toUtf8() + '\0');
        const CrashLog crashLog(root);
        QVERIFY2(crashLog.name.startsWith(name + text("-crashlog-")), qPrintable(crashLog.name));
        QVERIFY(crashLog.content.startsWith(name + text(" (PID:")));
    }

    void stampsTheFileWithLocalTime_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::newRow("UTC") << QByteArray("UTC0");
        QTest::newRow("east") << QByteArray("<+1345>-13:45");
        QTest::newRow("west") << QByteArray("<-11>11");
    }
    void stampsTheFileWithLocalTime()
    {
        QFETCH(QByteArray, zone);
        const QByteArray oldZone = qgetenv("TZ");
        qputenv("TZ", zone);
        const auto restore = qScopeGuard([&] {
            oldZone.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", oldZone);
            ::tzset();
        });
        ::tzset();
        const auto stamp = [] {
            const std::time_t now = std::time(nullptr);
            char buffer[64];
            std::strftime(buffer, sizeof buffer, "the_program-crashlog-%y%m%d-%H%M%S", std::localtime(&now));
            return text(buffer);
        };
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        const QString before = stamp();
        CrashChild child(root, words("abort"));
        FINISH_OR_SKIP(child);
        const QString name = CrashLog(root).name;
        QVERIFY2(before <= name && name <= stamp(), qPrintable(name));
    }

    void survivesABrokenClock()
    {
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, words("--broken-clock abort"));
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGABRT);
        QVERIFY(child.standardError().contains(text(
            "\nthe_program: Failed to get date/time for crash log filename - defaulting to NODATETIME\n")));
        QCOMPARE(CrashLog(root).name, text("the_program-crashlog-NODATETIME"));
        QVERIFY(CrashLog(root).complete);
    }

    void survivesAClosedStandardError()
    {
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, words("--broken-stderr segv"));
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGSEGV);
        QVERIFY(CrashLog(root).complete);
    }

    void appendsTheExtraText_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("extraText");
        QTest::newRow("text") << words("--extra text segv") << "extra text for signal 11\n";
        QTest::newRow("longer than any buffer")
            << words("--extra long abort") << QString(5000, QLatin1Char('x')) + QLatin1Char('\n');
        QTest::newRow("all default actions are back") << words("--extra handled abort") << "0 handled\n";
        QTest::newRow("throws") << words("--extra throw abort") << "";
        QTest::newRow("set up twice")
            << words("--setup-twice --extra text abort") << "extra text for signal 6\n";
        QTest::newRow("set up twice, taken back") << words("--setup-twice abort") << "";
    }
    void appendsTheExtraText()
    {
        QFETCH(QStringList, arguments);
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, arguments);
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), arguments.contains(text("segv")) ? SIGSEGV : SIGABRT);
        QVERIFY(CrashLog(root).complete);
        QTEST(CrashLog(root).extraText, "extraText");
    }

    void aSecondFaultEndsTheReport_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("signal");
        QTest::newRow("the same, synchronous") << words("--extra segv segv") << SIGSEGV;
        QTest::newRow("the same, raised") << words("--extra abort abort") << SIGABRT;
        QTest::newRow("another, synchronous") << words("--extra segv abort") << SIGSEGV;
        QTest::newRow("another, raised") << words("--extra abort stkflt") << SIGABRT;
        QTest::newRow("in a thread") << words("--thread --extra segv bus") << SIGSEGV;
    }
    void aSecondFaultEndsTheReport()
    {
        QFETCH(QStringList, arguments);
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, arguments);
        FINISH_OR_SKIP(child);
        QTEST(child.signal(), "signal");
        const CrashLog crashLog(root);
        QCOMPARE(crashLog.content.count(text("received signal")), 1);
        QCOMPARE(crashLog.content.count(QLatin1Char('\n')), 1);
        QVERIFY(!child.standardError().contains(text("Crashlog written")));
    }

    void cutsTheBacktrace_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("fewest");
        QTest::addColumn<int>("most");
        QTest::newRow("all in the log") << words("--depth 40 segv") << 41 << 80;
        QTest::newRow("too many for the log") << words("--depth 400 segv") << 256 << 256;
        QTest::newRow("from nowhere") << words("--depth 40 call") << 41 << 80;
    }
    void cutsTheBacktrace()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, fewest);
        QFETCH(int, most);
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, arguments);
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGSEGV);
        QCOMPARE(frameCount(child.standardError()), 16);
        const QString backtrace = CrashLog(root).backtrace;
        QVERIFY2(frameCount(backtrace) >= fewest && frameCount(backtrace) <= most, qPrintable(backtrace));
        QVERIFY2(backtrace.contains(text("descend")), "the program does not export its functions' names");
    }

    void keepsTheExtraTextFunctionFromBeingOverwritten()
    {
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, words("--extra text overwrite"));
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGSEGV);
        QCOMPARE(CrashLog(root).address, child.standardOutput().toULongLong(nullptr, 16));
        QCOMPARE(CrashLog(root).extraText, text("extra text for signal 11\n"));
    }

    void setUpGoesOnAfterAFailure()
    {
        const PrivateRoot root;
        QVERIFY(makeRoot(root));
        CrashChild child(root, words("--mprotect-fails abort"));
        FINISH_OR_SKIP(child);
        QCOMPARE(child.signal(), SIGABRT);
        QVERIFY(child.standardError().startsWith(
            text("logging_crash_child: Error protecting read only data (errno 12)\n")));
        QVERIFY(CrashLog(root).complete);

        CrashChild refused(words("install-kill"));
        QVERIFY(refused.finish());
        QCOMPARE(refused.exitCode(), 0);
        QCOMPARE(refused.standardError(),
                 text("logging_crash_child: Error installing exception handler for SIGKILL\n"));
    }

    /// On the machine itself, without a private root.
    void reportsUnderItsOwnName()
    {
        if (QFileInfo::exists(text(kFolder)) || QFileInfo::exists(text(kPipe)))
            QSKIP("this machine collects crash logs, the test would add one");
        CrashChild child(words("abort"));
        QVERIFY(child.finish());
        QCOMPARE(child.signal(), SIGABRT);
        const QString error = child.standardError();
        QVERIFY(error.startsWith(
            text("logging_crash_child: Failed to notify of crash - cannot open pipe! (errno=2)\n")));
        QVERIFY(error.contains(text("\nlogging_crash_child: Crashlog written to "
                                    "/home/crashlogs/logging_crash_child-crashlog-")));
    }
};

WZ_TEST_CLASS(tst_CrashHandler)
#include "tst_CrashHandler.moc"
