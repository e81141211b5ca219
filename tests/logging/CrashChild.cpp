#include "logging/CrashChild.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {

constexpr int kPatienceMs = 30000;
constexpr int kCannotEnterRoot = 77;

} // namespace

PrivateRoot::PrivateRoot()
{
    ::chmod(QFile::encodeName(m_folder.path()).constData(), 0755);
}

bool PrivateRoot::addFolder(const char* inside) const
{
    return QDir().mkpath(path(inside)) && openForAll(inside);
}

bool PrivateRoot::addFile(const char* inside) const
{
    QFile file(path(inside));
    return file.open(QIODevice::WriteOnly);
}

bool PrivateRoot::addPipe(const char* inside) const
{
    return ::mkfifo(QFile::encodeName(path(inside)).constData(), 0666) == 0 && openForAll(inside);
}

bool PrivateRoot::openForAll(const char* inside) const
{
    return ::chmod(QFile::encodeName(path(inside)).constData(), 0777) == 0;
}

bool PrivateRoot::addProgramLink(const QString& target) const
{
    return addFolder("/proc/self") && QFile::link(target, path("/proc/self/exe"));
}

QStringList PrivateRoot::entries(const char* inside) const
{
    return QDir(path(inside)).entryList(QDir::Files);
}

QByteArray PrivateRoot::read(const char* folder, const QString& name) const
{
    QFile file(path(folder) + QLatin1Char('/') + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

CrashChild::CrashChild(const QStringList& arguments)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    // The sanitizer leaves the signals and the limits to the program.
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       QStringLiteral("handle_segv=0:handle_sigbus=0:handle_sigfpe=0:handle_abort=0:"
                                      "disable_coredump=0:detect_leaks=0"));
    m_process.setProcessEnvironment(environment);
    m_process.start(QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(kName),
                    arguments);
    if (m_process.waitForStarted(kPatienceMs))
        m_processId = m_process.processId();
}

CrashChild::CrashChild(const PrivateRoot& root, const QStringList& arguments)
    : CrashChild(QStringList{QStringLiteral("--root"), root.path("")} + arguments)
{
}

CrashChild::~CrashChild()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(kPatienceMs);
}

bool CrashChild::waitForOutput()
{
    while (m_output.isEmpty()) {
        if (!m_process.waitForReadyRead(kPatienceMs))
            return false;
        m_output += m_process.readAllStandardOutput();
    }
    return true;
}

bool CrashChild::finish()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(kPatienceMs))
        return false;
    m_output += m_process.readAllStandardOutput();
    m_error = m_process.readAllStandardError();
    return m_processId != 0;
}

bool CrashChild::wasPermitted() const
{
    return m_process.exitStatus() == QProcess::CrashExit || m_process.exitCode() != kCannotEnterRoot;
}

int CrashChild::signal() const
{
    // For a child that was killed, QProcess keeps the signal's number as the exit code.
    return m_process.exitStatus() == QProcess::CrashExit ? m_process.exitCode() : 0;
}
