#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder that a child takes for the whole file system, so that the fixed paths of the crash handler can be
/// there or not, and the machine's own are not touched.
class PrivateRoot {
public:
    PrivateRoot();

    /// Where the path @p inside, as the child sees it, stands for the test.
    QString path(const char* inside) const { return m_folder.path() + QLatin1String(inside); }

    bool addFolder(const char* inside) const;
    bool addFile(const char* inside) const;
    bool addPipe(const char* inside) const;
    /// Makes the child find @p target in the link to its own program.
    bool addProgramLink(const QString& target) const;
    QStringList entries(const char* inside) const;
    QByteArray read(const char* folder, const QString& name) const;

private:
    /// The child may have given up its rights.
    bool openForAll(const char* inside) const;

    QTemporaryDir m_folder;
};

/// The crashing program as a child process, ended with the test at the latest.
class CrashChild {
public:
    static constexpr char kName[] = "logging_crash_child";

    explicit CrashChild(const QStringList& arguments);
    CrashChild(const PrivateRoot& root, const QStringList& arguments);
    ~CrashChild();

    qint64 processId() const { return m_processId; }
    bool waitForOutput();
    /// Waits for the child's end; false if it hangs.
    bool finish();

    /// After finish(): whether the system let the child enter its root at all.
    bool wasPermitted() const;
    /// After finish(): the signal that the child died of, or 0.
    int signal() const;
    int exitCode() const { return m_process.exitCode(); }
    QString standardOutput() const { return QString::fromUtf8(m_output); }
    QString standardError() const { return QString::fromUtf8(m_error); }

private:
    QProcess m_process;
    qint64 m_processId = 0;
    QByteArray m_output;
    QByteArray m_error;
};
