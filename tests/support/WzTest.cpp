#include "support/WzTest.h"

void WzTest::init()
{
    m_log.emplace();
}

void WzTest::cleanup()
{
    const QStringList unexpected = m_log->unexpectedErrors();
    const QStringList missing = m_log->missingErrors();
    m_log.reset();
    QVERIFY2(unexpected.isEmpty(),
             qPrintable(QLatin1String("unexpected error lines: ") + unexpected.join(QLatin1String("; "))));
    QVERIFY2(
        missing.isEmpty() || QTest::currentTestFailed(),
        qPrintable(QLatin1String("error lines that did not come: ") + missing.join(QLatin1String("; "))));
}
