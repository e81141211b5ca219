#include "support/WzTest.h"

void WzTest::init()
{
    m_log.emplace();
}

void WzTest::cleanup()
{
    const QStringList unexpected = m_log->unexpectedErrors();
    m_log.reset();
    QVERIFY2(unexpected.isEmpty(),
             qPrintable(QLatin1String("unexpected error lines: ") + unexpected.join(QLatin1String("; "))));
}
