#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <spdlog/spdlog.h>

#include <QRegularExpression>
#include <QTemporaryFile>

#include <unistd.h>

using namespace Velmora;

/// What the program writes to standard output between construction and text().
class StandardOutputCapture {
public:
    StandardOutputCapture()
    {
        m_file.open();
        std::fflush(stdout);
        m_saved = ::dup(STDOUT_FILENO);
        ::dup2(m_file.handle(), STDOUT_FILENO);
    }
    ~StandardOutputCapture() { restore(); }

    QString text()
    {
        restore();
        m_file.seek(0);
        return QString::fromUtf8(m_file.readAll());
    }

private:
    void restore()
    {
        if (m_saved < 0)
            return;
        std::fflush(stdout);
        ::dup2(m_saved, STDOUT_FILENO);
        ::close(m_saved);
        m_saved = -1;
    }

    QTemporaryFile m_file;
    int m_saved = -1;
};

class tst_Logging : public WzTest {
    Q_OBJECT

private slots:
    void fetchingIsSafeBeforeAndAfter()
    {
        ceaseLogging();
        QVERIFY(!spdlog::get(kLoggerName));
        Velmora::log()->error("goes nowhere");

        initLogging(false, "/nowhere/");
        QCOMPARE(spdlog::get(kLoggerName)->level(), spdlog::level::trace);
        QCOMPARE(spdlog::get(kLoggerName)->sinks().size(), size_t(1));

        ceaseLogging();
        ceaseLogging();
        QVERIFY(!spdlog::get(kLoggerName));
        Velmora::log()->error("goes nowhere");
    }

    void writesThePatternToStandardOutput()
    {
        StandardOutputCapture output;
        initLogging(true, "/nowhere/");
        initLogging(true, "/nowhere/");
        Velmora::log()->trace("one {}", 1);
        Velmora::log()->error("two {}", QStringLiteral("zwei \u00fc"));
        ceaseLogging();

        const QRegularExpression lines(
            QStringLiteral("^\\[\\d\\d/\\d\\d/\\d\\d\\]\\[tid:\\d+\\]\\[T\\]> one 1\n"
                           "\\[\\d\\d/\\d\\d/\\d\\d\\]\\[tid:\\d+\\]\\[E\\]> two zwei \u00fc\n$"));
        const QString text = output.text();
        QVERIFY2(lines.match(text).hasMatch(), qPrintable(text));
    }
};

WZ_TEST_CLASS(tst_Logging)
#include "tst_Logging.moc"
