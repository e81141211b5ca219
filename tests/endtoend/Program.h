#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

inline constexpr int kStartTimeMs = 10000;

/// One of the project's programs, which is ended with the object.
class Program {
public:
    Program(const char* name, const QStringList& arguments)
    {
        m_process.start(QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(name),
                        arguments);
    }
    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    QString output() { return m_output += QString::fromUtf8(m_process.readAllStandardOutput()); }
    QString errors() { return m_errors += QString::fromUtf8(m_process.readAllStandardError()); }
    bool prints(const QString& text)
    {
        return QTest::qWaitFor([&] { return output().contains(text); }, kStartTimeMs);
    }
    bool complains(const QString& text)
    {
        return QTest::qWaitFor([&] { return errors().contains(text); }, kStartTimeMs);
    }
    /// A line for its standard input; what it prints from here on is output().
    void say(const QString& line)
    {
        output();
        m_output.clear();
        m_process.write(line.toUtf8() + '\n');
    }
    void signal(int number) { ::kill(static_cast<pid_t>(m_process.processId()), number); }
    /// The most memory that it has had so far, in kB.
    int peakMemory() const
    {
        QFile status(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return 0;
        const QByteArray text = status.readAll();
        return text.mid(text.indexOf("VmHWM:") + 6).simplified().split(' ').first().toInt();
    }
    /// The exit code, -1 after a crash, -2 when it does not end.
    int exitCode()
    {
        if (!m_process.waitForFinished(kStartTimeMs))
            return -2;
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
    QString m_output;
    QString m_errors;
};

/// The software instrument once it listens; null when it does not. Unless told otherwise it keeps its presets
/// in a folder of this run of the tests.
inline std::unique_ptr<Program> startInstrument(QStringList arguments = {})
{
    static const QTemporaryDir states;
    if (!arguments.contains(QStringLiteral("--state-dir"))) {
        static int started = 0;
        arguments << QStringLiteral("--state-dir") << states.filePath(QString::number(started++));
    }
    auto instrument = std::make_unique<Program>("wz_instrument", arguments);
    return instrument->prints(QStringLiteral("listening on 127.0.0.1:29440")) ? std::move(instrument)
                                                                              : nullptr;
}
